// Setup and the uninstaller run for real, silently, in this test prefix. Each test ends with Lumivex
// uninstalled and the registry values it set restored, also when an assertion fails.
#include <windows.h>
#include <shlobj.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "common/unique_resource.h"
#include "message_pump.h"

#include "program_runner.h"
#include "settings_seed.h"

namespace {

namespace fs = std::filesystem;
using namespace lmvx::test;

constexpr DWORD kWaitMs = 120000;
constexpr wchar_t kUninstallKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Lumivex";
constexpr wchar_t kTaskmgrKey[] =
    L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Image File Execution Options\\taskmgr.exe";
constexpr wchar_t kRunKey[] = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr wchar_t kNotesKey[] = L"Software\\Orvane Software\\Lumivex\\Notes";
constexpr wchar_t kWineDllOverridesKey[] = L"Software\\Wine\\DllOverrides";

std::optional<std::wstring> ReadString(HKEY root, const wchar_t* key, const wchar_t* name) {
    wchar_t text[1024];
    DWORD size = sizeof text;
    if (RegGetValueW(root, key, name, RRF_RT_REG_SZ, nullptr, text, &size) != ERROR_SUCCESS) return std::nullopt;
    return text;
}

void WriteString(HKEY root, const wchar_t* key, const wchar_t* name, const std::wstring& text) {
    RegSetKeyValueW(root, key, name, REG_SZ, text.c_str(), static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

// A registry value as it was before the test: put back, or removed again (with its key when the test
// created that key) when the object goes.
class SavedValue {
public:
    SavedValue(HKEY root, const wchar_t* key, const wchar_t* name) : root_(root), key_(key), name_(name) {
        lmvx::UniqueRegKey opened;
        keyExisted_ = RegOpenKeyExW(root, key, 0, KEY_READ, opened.Put()) == ERROR_SUCCESS;
        DWORD size = 0;
        if (RegGetValueW(root, key, name, RRF_RT_ANY | RRF_NOEXPAND, &type_, nullptr, &size) == ERROR_SUCCESS) {
            data_.emplace(size, BYTE{0});
            RegGetValueW(root, key, name, RRF_RT_ANY | RRF_NOEXPAND, &type_, data_->data(), &size);
        }
    }
    ~SavedValue() {
        if (data_) {
            RegSetKeyValueW(root_, key_, name_, type_, data_->data(), static_cast<DWORD>(data_->size()));
        } else {
            RegDeleteKeyValueW(root_, key_, name_);
            if (!keyExisted_) RegDeleteKeyW(root_, key_);
        }
    }
    SavedValue(const SavedValue&) = delete;

private:
    HKEY root_;
    const wchar_t* key_;
    const wchar_t* name_;
    bool keyExisted_ = false;
    DWORD type_ = REG_NONE;
    std::optional<std::vector<BYTE>> data_;
};

template <typename Condition>
bool WaitUntil(Condition condition) { return lmvx_test::PollUntil(condition, kWaitMs); }

fs::path KnownFolder(REFKNOWNFOLDERID id) {
    wchar_t* path = nullptr;
    const fs::path folder = SUCCEEDED(SHGetKnownFolderPath(id, 0, nullptr, &path)) ? fs::path(path) : fs::path();
    CoTaskMemFree(path);
    return folder;
}

fs::path Shortcut() { return KnownFolder(FOLDERID_CommonPrograms) / L"Lumivex.lnk"; }

DWORD RunToEnd(const std::wstring& program, const std::wstring& arguments) {
    ProgramRunner runner;
    return runner.Start(program, arguments) ? runner.WaitForExit(kWaitMs) : ~0u;
}

// "major.minor.build" from the version resource of the file.
std::wstring FileVersion(const fs::path& file) {
    std::string data(GetFileVersionInfoSizeW(file.c_str(), nullptr), '\0');
    VS_FIXEDFILEINFO* info = nullptr;
    UINT size = 0;
    if (data.empty() || !GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(data.size()), data.data()) ||
        !VerQueryValueW(data.data(), L"\\", reinterpret_cast<void**>(&info), &size)) return L"";
    return std::to_wstring(HIWORD(info->dwFileVersionMS)) + L"." + std::to_wstring(LOWORD(info->dwFileVersionMS)) +
           L"." + std::to_wstring(HIWORD(info->dwFileVersionLS));
}

class InstalledLumivex : public ::testing::Test {
protected:
    void SetUp() override {
        // Wine would copy the Start-menu shortcut into the host's menus, outside the prefix. Its menu
        // builder is turned off in the registry: Wine takes WINEDLLOVERRIDES from the host environment only.
        WriteString(HKEY_CURRENT_USER, kWineDllOverridesKey, L"winemenubuilder.exe", L"");
    }

    void TearDown() override {
        if (ReadString(HKEY_LOCAL_MACHINE, kUninstallKey, L"QuietUninstallString")) Uninstall();
        std::error_code ignored;
        if (!folder_.empty()) fs::remove_all(folder_, ignored);
        fs::remove(Shortcut(), ignored);
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, kUninstallKey);
    }

    void Install(const std::wstring& arguments = L"/S") {
        ASSERT_EQ(RunToEnd(TestBinFolder() + L"\\..\\packages\\" LMVX_SETUP_NAME, arguments), 0u);
        const auto folder = ReadString(HKEY_LOCAL_MACHINE, kUninstallKey, L"InstallLocation");
        ASSERT_TRUE(folder.has_value());
        folder_ = *folder;
    }

    // Runs the registered quiet uninstall command. The uninstaller goes on in a copy of itself and
    // the process started here ends at once, so the end is when the entry and the folder are gone.
    void Uninstall() {
        const std::wstring command = ReadString(HKEY_LOCAL_MACHINE, kUninstallKey, L"QuietUninstallString").value();
        const size_t programEnd = command.find(L"\" ", 1);
        ASSERT_TRUE(command[0] == L'"' && programEnd != std::wstring::npos) << command;
        ASSERT_EQ(RunToEnd(command.substr(1, programEnd - 1), command.substr(programEnd + 2)), 0u);
        ASSERT_TRUE(WaitUntil([&] {
            return !ReadString(HKEY_LOCAL_MACHINE, kUninstallKey, L"DisplayName") && !fs::exists(folder_);
        }));
        // The copy leaves its folder in TEMP, to be deleted at the next start of Windows.
        wchar_t temp[MAX_PATH];
        GetTempPathW(MAX_PATH, temp);
        for (const auto& entry : fs::directory_iterator(temp)) {
            if (!entry.path().filename().wstring().starts_with(L"~nsu")) continue;
            std::error_code busy;   // until the copy has ended
            EXPECT_TRUE(WaitUntil([&] { return fs::remove_all(entry.path(), busy) != ~std::uintmax_t{0}; }));
        }
    }

    fs::path folder_;
    // Declared first, restored last: after TearDown has uninstalled.
    SavedValue menuBuilder_{HKEY_CURRENT_USER, kWineDllOverridesKey, L"winemenubuilder.exe"};
    SavedValue replacement_{HKEY_LOCAL_MACHINE, kTaskmgrKey, L"Debugger"};
    SavedValue launcher_{HKEY_CURRENT_USER, kRunKey, L"Lumivex Launcher"};
    SavedValue note_{HKEY_CURRENT_USER, kNotesKey, L"installer-test.exe"};
    SavedValue pendingDeletes_{HKEY_LOCAL_MACHINE, L"System\\CurrentControlSet\\Control\\Session Manager",
                               L"PendingFileRenameOperations"};
};

TEST_F(InstalledLumivex, SilentSetupInstallsTheProgramItsShortcutAndUninstallEntryAndUninstallRemovesThem) {
    Install();
    EXPECT_EQ(folder_.wstring(), (KnownFolder(FOLDERID_ProgramFiles) / L"Orvane Software" / L"Lumivex").wstring());
    std::set<std::wstring> files;
    for (const auto& entry : fs::directory_iterator(folder_)) files.insert(entry.path().filename().wstring());
    // No debug files: they stay in the build's debug archive.
    EXPECT_EQ(files, (std::set<std::wstring>{L"finch64.dll", L"heron64.dll", L"kestrel64.dll", L"lmvx64.exe",
                                             L"readme.txt", L"uninstall.exe", L"wren64.dll"}));
    EXPECT_TRUE(fs::exists(Shortcut()));

    const auto value = [](const wchar_t* name) { return ReadString(HKEY_LOCAL_MACHINE, kUninstallKey, name); };
    const std::wstring uninstaller = L"\"" + (folder_ / L"uninstall.exe").wstring() + L"\"";
    EXPECT_EQ(value(L"DisplayName"), L"Lumivex");
    EXPECT_EQ(value(L"DisplayVersion"), FileVersion(folder_ / L"lmvx64.exe"));
    EXPECT_EQ(value(L"Publisher"), L"Orvane Software");
    EXPECT_EQ(value(L"DisplayIcon"), (folder_ / L"lmvx64.exe").wstring() + L",0");
    EXPECT_EQ(value(L"UninstallString"), uninstaller);
    EXPECT_EQ(value(L"QuietUninstallString"), uninstaller + L" /S");
    DWORD kilobytes = 0, size = sizeof kilobytes;
    RegGetValueW(HKEY_LOCAL_MACHINE, kUninstallKey, L"EstimatedSize", RRF_RT_REG_DWORD, nullptr, &kilobytes, &size);
    EXPECT_GT(kilobytes, 1000u);   // the five binaries take some megabytes

    ProgramRunner program;
    ASSERT_TRUE(program.Start((folder_ / L"lmvx64.exe").wstring(), L"/buildinfo"));
    HWND box = program.WaitForWindowWithCaption(L"Orvane Lumivex", kWaitMs);
    ASSERT_NE(box, nullptr) << "no build information box";
    PressButton(box, IDOK);
    EXPECT_EQ(program.WaitForExit(kWaitMs), 0u);

    // The uninstaller removes what Setup added and the registrations of this copy, but keeps notes.
    // Quoted, as the program stores a path with spaces.
    WriteString(HKEY_LOCAL_MACHINE, kTaskmgrKey, L"Debugger", L"\"" + (folder_ / L"lmvx64.exe").wstring() + L"\"");
    WriteString(HKEY_CURRENT_USER, kRunKey, L"Lumivex Launcher", (folder_ / L"lvLaunch.exe spawn").wstring());
    WriteString(HKEY_CURRENT_USER, kNotesKey, L"installer-test.exe", L"kept");

    Uninstall();
    EXPECT_FALSE(fs::exists(Shortcut()));
    EXPECT_FALSE(ReadString(HKEY_LOCAL_MACHINE, kTaskmgrKey, L"Debugger"));
    EXPECT_FALSE(ReadString(HKEY_CURRENT_USER, kRunKey, L"Lumivex Launcher"));
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, kNotesKey, L"installer-test.exe"), L"kept");
}

TEST_F(InstalledLumivex, SetupUpgradesInTheInstalledFolderClosingOnlyTheInstalledProgramAndUninstallKeepsOtherCopies) {
    const fs::path chosen = KnownFolder(FOLDERID_ProgramFiles) / L"Lumivex elsewhere";
    Install(L"/S /D=" + chosen.wstring());
    ASSERT_EQ(folder_.wstring(), chosen.wstring());
    SeedQuietStart(0x0409);
    ProgramRunner installed, portable;
    ASSERT_TRUE(installed.Start((folder_ / L"lmvx64.exe").wstring(), L""));
    ASSERT_TRUE(portable.Start(TestBinFolder() + L"\\lmvx64.exe", L""));
    ASSERT_NE(installed.WaitForWindowWithCaption(L"Orvane Lumivex 5", kWaitMs), nullptr);
    ASSERT_NE(portable.WaitForWindowWithCaption(L"Orvane Lumivex 5", kWaitMs), nullptr);

    Install();
    EXPECT_EQ(folder_.wstring(), chosen.wstring());
    EXPECT_NE(installed.WaitForExit(0), STILL_ACTIVE);
    EXPECT_EQ(portable.WaitForExit(0), STILL_ACTIVE);
    EXPECT_FALSE(fs::exists(KnownFolder(FOLDERID_ProgramFiles) / L"Orvane Software" / L"Lumivex"));

    // Registrations that point at another copy outlive the uninstaller.
    const std::wstring otherCopy = L"C:\\Tools\\Lumivex";
    WriteString(HKEY_LOCAL_MACHINE, kTaskmgrKey, L"Debugger", otherCopy + L"\\lmvx64.exe");
    WriteString(HKEY_CURRENT_USER, kRunKey, L"Lumivex Launcher", otherCopy + L"\\lvLaunch.exe spawn");
    Uninstall();
    EXPECT_EQ(ReadString(HKEY_LOCAL_MACHINE, kTaskmgrKey, L"Debugger"), otherCopy + L"\\lmvx64.exe");
    EXPECT_EQ(ReadString(HKEY_CURRENT_USER, kRunKey, L"Lumivex Launcher"), otherCopy + L"\\lvLaunch.exe spawn");
}

}  // namespace
