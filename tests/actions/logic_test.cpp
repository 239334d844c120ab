// Pure rules of the process actions: priority names in each language, which windows of a process count and
// how their titles are read, the owner-drawn button's colours and layout, the shell-open path cut (through
// replaceable calls, so no shell is started) and the cache of window owners.
#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <future>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "command_ids.h"
#include "common/owner_button_layout.h"
#include "common/shell_open.h"
#include "common/shell_open_calls.h"
#include "finch.h"
#include "mainwnd/priority_names.h"
#include "mainwnd/process_windows_rules.h"
#include "mainwnd/window_owner_cache.h"
#include "string_ids.h"

namespace {

// Each class has its English name and a German one; other values have the empty name, not "unknown". (Which
// class each command sets is tested on real processes with the program's priority action.)
TEST(PriorityNames, EachClassHasItsNameInTheLanguageOthersTheEmptyName) {
    UIL_LangModule.Init(GetModuleHandleW(nullptr), L"Lumivex Priority Test", L"test", UIL_LANGMODULE::English);
    const std::pair<unsigned, const wchar_t*> names[] = {
        {REALTIME_PRIORITY_CLASS, L"Realtime"},         {HIGH_PRIORITY_CLASS, L"High"},
        {ABOVE_NORMAL_PRIORITY_CLASS, L"Above Normal"}, {NORMAL_PRIORITY_CLASS, L"Normal"},
        {BELOW_NORMAL_PRIORITY_CLASS, L"Below Normal"}, {IDLE_PRIORITY_CLASS, L"Idle"},
    };
    for (const auto& [priorityClass, name] : names) EXPECT_STREQ(name, lmvx::PriorityClassName(priorityClass));
    for (unsigned value : {0u, 1u, 0x20000u, 0x40000u, static_cast<unsigned>(IDM_PRIORITY_HIGH)}) {
        EXPECT_STREQ(L"", lmvx::PriorityClassName(value)) << value;
        EXPECT_EQ(0u, lmvx::PriorityClassNameId(value));
    }
    ASSERT_TRUE(UIL_LangModule.SelectLanguage(UIL_LANGMODULE::German));
    EXPECT_STRNE(L"Realtime", lmvx::PriorityClassName(REALTIME_PRIORITY_CLASS));
    EXPECT_STRNE(L"", lmvx::PriorityClassName(REALTIME_PRIORITY_CLASS));
    UIL_LangModule.SelectLanguage(UIL_LANGMODULE::English);
}

using lmvx::TitleRead;

// Own windows on other threads are asked with a time-out; the own thread's and other processes' are read
// directly. A window counts when it is visible, of the process and has a title that fits. Zero coordinates of
// the window menu come from the cursor, each on its own.
TEST(ProcessWindowRules, TitleReadWhichWindowsQualifyAndMenuPosition) {
    EXPECT_EQ(TitleRead::TimedMessage, lmvx::ChooseTitleRead(10, 21, 10, 20));
    EXPECT_EQ(TitleRead::Direct, lmvx::ChooseTitleRead(10, 20, 10, 20));
    EXPECT_EQ(TitleRead::Direct, lmvx::ChooseTitleRead(11, 21, 10, 20));
    EXPECT_EQ(TitleRead::Direct, lmvx::ChooseTitleRead(11, 20, 10, 20));
    EXPECT_TRUE(lmvx::QualifiesAsProcessWindow(true, 7, 7, 1));
    EXPECT_TRUE(lmvx::QualifiesAsProcessWindow(true, 7, 7, lmvx::kWindowTitleCapacity - 1));
    EXPECT_FALSE(lmvx::QualifiesAsProcessWindow(false, 7, 7, 5));
    EXPECT_FALSE(lmvx::QualifiesAsProcessWindow(true, 8, 7, 5));
    EXPECT_FALSE(lmvx::QualifiesAsProcessWindow(true, 7, 7, 0));
    EXPECT_FALSE(lmvx::QualifiesAsProcessWindow(true, 7, 7, lmvx::kWindowTitleCapacity));
    const std::array<LONG, 4> menus[] = {{10, 20, 10, 20}, {0, 20, 300, 20}, {10, 0, 10, 400}, {0, 0, 300, 400}};
    for (const auto& [x, y, menuX, menuY] : menus) {
        const POINT position = lmvx::WindowMenuPosition(x, y, POINT{300, 400});
        EXPECT_EQ((std::pair{position.x, position.y}), (std::pair{menuX, menuY})) << x << "," << y;
    }
}

using lmvx::ButtonFill;

bool SameRect(const RECT& a, const RECT& b) { return EqualRect(&a, &b) != FALSE; }

// The light face adds ten to each channel in one integer addition, so it carries into the next channel
// instead of saturating (intended: the buttons have always been painted so). Pressed (selected or pushed)
// wins over focus; the painting test shows the faces of the other states. The inner rectangle leaves a one-pixel frame; the icon sits at the left,
// centred, and pushes the text.
TEST(OwnerButton, ColoursFillAndLayout) {
    EXPECT_EQ(RGB(0xDA, 0xDA, 0xDA), lmvx::LightFaceColor(RGB(0xD0, 0xD0, 0xD0)));
    EXPECT_EQ(static_cast<COLORREF>(0x00FA0B04), lmvx::LightFaceColor(RGB(0xFA, 0x00, 0xF0)));
    EXPECT_EQ(static_cast<COLORREF>(0x000B0A09), lmvx::LightFaceColor(RGB(0xFF, 0xFF, 0x00)));
    EXPECT_EQ(ButtonFill::Highlight, lmvx::ChooseButtonFill(false, true, true));
    EXPECT_EQ(ButtonFill::Highlight, lmvx::ChooseButtonFill(true, false, true));
    EXPECT_EQ(ButtonFill::Highlight, lmvx::ChooseButtonFill(true, true, false));

    const RECT item = {10, 20, 110, 45};
    const lmvx::OwnerButtonLayout withIcon = lmvx::LayOutOwnerButton(item, true);
    const lmvx::OwnerButtonLayout without = lmvx::LayOutOwnerButton(item, false);
    EXPECT_TRUE(SameRect(without.inner, RECT{11, 21, 109, 44}));
    EXPECT_EQ(withIcon.inner.left + 6, withIcon.icon.x);
    EXPECT_EQ(withIcon.inner.top + (withIcon.inner.bottom - withIcon.inner.top) / 2 - 8, withIcon.icon.y);
    EXPECT_EQ(withIcon.inner.left + 21 + 6, withIcon.text.left);
    EXPECT_TRUE(SameRect(without.text, RECT{without.inner.left + 6, without.inner.top, without.inner.right,
                                            without.inner.bottom}));
}

// A made-up file system and a shell that only notes the path it was given and the thread it was called on.
struct FakeShell {
    std::map<std::wstring, DWORD> attributes;
    std::promise<std::pair<std::wstring, DWORD>> opened;

    lmvx::ShellOpenCalls Calls() {
        const auto fileAttributes = [](void* context, const wchar_t* path) -> DWORD {
            const auto& known = static_cast<FakeShell*>(context)->attributes;
            return known.contains(path) ? known.at(path) : INVALID_FILE_ATTRIBUTES;
        };
        const auto execute = [](void* context, const wchar_t* path) {
            static_cast<FakeShell*>(context)->opened.set_value({path, GetCurrentThreadId()});
        };
        return {fileAttributes, execute, this};
    }
    // Waits for the helper thread to hand the call over.
    std::pair<std::wstring, DWORD> Opened() {
        auto call = opened.get_future();
        if (call.wait_for(std::chrono::seconds(10)) != std::future_status::ready) return {L"<none>", 0};
        return call.get();
    }
};

// A file opens its folder, a folder its parent; the name is cut one character at a time until it exists, and a
// shortened name that is a file opens whole; a one-character path hands the shell the empty string. The shell
// is called on another thread. (The cut is the only use of the truncating copy, so it is tested through it.)
TEST(OpenInShell, WhichPathReachesTheShell) {
    const struct {
        std::vector<std::wstring> files, folders;
        const wchar_t* path;
        const wchar_t* opened;
    } cases[] = {
        {{L"C:\\Tools\\app.exe"}, {L"C:\\Tools"}, L"C:\\Tools\\app.exe", L"C:\\Tools\\"},
        {{}, {L"C:\\Windows\\System32", L"C:\\Windows"}, L"C:\\Windows\\System32", L"C:\\Windows\\"},
        {{L"C:\\Tools\\app.exe", L"C:\\Tools\\app.ex"}, {}, L"C:\\Tools\\app.exe", L"C:\\Tools\\app.ex"},
        {{}, {L"C:\\Data\\logs"}, L"C:\\Data\\logs2", L"C:\\Data\\"},
        {{}, {}, L"x", L""},
    };
    for (const auto& c : cases) {
        FakeShell shell;
        for (const std::wstring& file : c.files) shell.attributes[file] = FILE_ATTRIBUTE_ARCHIVE;
        for (const std::wstring& folder : c.folders) shell.attributes[folder] = FILE_ATTRIBUTE_DIRECTORY;
        EXPECT_EQ(1, lmvx::OpenInShellWith(c.path, shell.Calls())) << c.path;
        const auto [opened, thread] = shell.Opened();
        EXPECT_EQ(c.opened, opened) << c.path;
        EXPECT_NE(GetCurrentThreadId(), thread) << "the shell is called on another thread";
    }
    FakeShell shell;
    EXPECT_EQ(0, lmvx::OpenInShellWith(L"", shell.Calls())) << "an empty path opens nothing";
    EXPECT_EQ(0, lmvx::OpenInShellWith(nullptr, shell.Calls()));
}


HWND Handle(unsigned value) { return reinterpret_cast<HWND>(static_cast<UINT_PTR>(value)); }

TEST(WindowOwnerCache, AsksOncePerWindowWhileItStaysListedAndForgetsTheRest) {
    lmvx::WindowOwnerCache cache;
    std::vector<HWND> asked;
    std::set<HWND> gone;
    // Answers with the handle's value as thread and the value + 1000 as process, nothing for the gone ones.
    const auto ask = [&](HWND window) {
        asked.push_back(window);
        const auto value = static_cast<DWORD>(reinterpret_cast<UINT_PTR>(window));
        return gone.contains(window) ? lmvx::WindowOwner{} : lmvx::WindowOwner{value + 1000, value};
    };
    const std::vector<HWND> windows{Handle(0x10020), Handle(0x10024), Handle(0x2002c)};
    const auto first = cache.OwnersOf(windows, ask);
    ASSERT_EQ(first.size(), 3u);
    EXPECT_EQ(first[1].processId, 0x10024u + 1000);
    EXPECT_EQ(first[1].threadId, 0x10024u);
    EXPECT_EQ(asked, windows);

    asked.clear();
    const auto second = cache.OwnersOf({Handle(0x2002c), Handle(0x10020), Handle(0x10024), Handle(0x30030)}, ask);
    EXPECT_EQ(asked, std::vector<HWND>{Handle(0x30030)}) << "only the new window is asked about";
    ASSERT_EQ(second.size(), 4u);
    EXPECT_EQ(second[0].threadId, 0x2002cu) << "owners follow the order of this listing";
    EXPECT_EQ(second[3].threadId, 0x30030u);

    // Windows that left the listing and windows that could not be answered are forgotten.
    gone = {Handle(0x50050)};
    cache.OwnersOf({Handle(0x40040), Handle(0x50050)}, ask);
    cache.OwnersOf({Handle(0x50050)}, ask);   // 0x40040 has gone from the listing
    asked.clear();
    gone.clear();
    const auto owners = cache.OwnersOf({Handle(0x40040), Handle(0x50050)}, ask);
    EXPECT_EQ(asked, (std::vector<HWND>{Handle(0x40040), Handle(0x50050)}));
    EXPECT_EQ(owners[1].threadId, 0x50050u) << "a window that could not be answered is asked again";
}

}  // namespace
