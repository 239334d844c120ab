// The shell-open helper through replaceable calls: which path reaches the shell, on which thread.
#include "common/shell_open.h"
#include "common/shell_open_calls.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace {

// A made-up file system and a shell that only takes notes.
class FakeShell {
public:
    void AddFile(const std::wstring& path) { attributes_[path] = FILE_ATTRIBUTE_ARCHIVE; }
    void AddFolder(const std::wstring& path) { attributes_[path] = FILE_ATTRIBUTE_DIRECTORY; }

    lmvx::ShellOpenCalls Calls() { return {FileAttributes, Execute, this}; }

    // The path the shell was given, waiting for the helper thread to hand it over.
    std::wstring OpenedPath() {
        std::unique_lock<std::mutex> lock(mutex_);
        if (!condition_.wait_for(lock, std::chrono::seconds(10), [this] { return opened_; })) return L"<none>";
        return openedPath_;
    }
    DWORD OpeningThread() {
        OpenedPath();
        return openingThread_;
    }

private:
    static DWORD FileAttributes(void* context, const wchar_t* path) {
        const auto& attributes = static_cast<FakeShell*>(context)->attributes_;
        const auto found = attributes.find(path);
        return found == attributes.end() ? INVALID_FILE_ATTRIBUTES : found->second;
    }
    static void Execute(void* context, const wchar_t* path) {
        auto* shell = static_cast<FakeShell*>(context);
        std::lock_guard<std::mutex> lock(shell->mutex_);
        shell->openedPath_ = path;
        shell->openingThread_ = GetCurrentThreadId();
        shell->opened_ = true;
        shell->condition_.notify_all();
    }

    std::map<std::wstring, DWORD> attributes_;
    std::mutex mutex_;
    std::condition_variable condition_;
    bool opened_ = false;
    std::wstring openedPath_;
    DWORD openingThread_ = 0;
};

// A file opens its folder, a folder its parent; the name is cut one character at a time until it exists, and a
// shortened name that is a file opens whole; a one-character path hands the shell the empty string.
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
        for (const std::wstring& file : c.files) shell.AddFile(file);
        for (const std::wstring& folder : c.folders) shell.AddFolder(folder);
        EXPECT_EQ(1, lmvx::OpenInShellWith(c.path, shell.Calls())) << c.path;
        EXPECT_EQ(c.opened, shell.OpenedPath()) << c.path;
    }
    FakeShell shell;
    EXPECT_EQ(0, lmvx::OpenInShellWith(L"", shell.Calls())) << "an empty path opens nothing";
    EXPECT_EQ(0, lmvx::OpenInShellWith(nullptr, shell.Calls()));
}

TEST(OpenInShell, TheShellIsCalledOnAnotherThread) {
    FakeShell shell;
    ASSERT_EQ(1, lmvx::OpenInShellWith(L"C:\\Tools\\app.exe", shell.Calls()));
    const DWORD openingThread = shell.OpeningThread();
    EXPECT_NE(0u, openingThread);
    EXPECT_NE(GetCurrentThreadId(), openingThread);
}

TEST(CopyTruncated, CopiesWhatFitsAndAlwaysTerminates) {
    wchar_t buffer[4] = {L'#', L'#', L'#', L'#'};
    EXPECT_FALSE(lmvx::CopyTruncated(buffer, 4, L"abcdef"));
    EXPECT_STREQ(L"abc", buffer);
    EXPECT_TRUE(lmvx::CopyTruncated(buffer, 4, L"ab"));
    EXPECT_STREQ(L"ab", buffer);
    EXPECT_FALSE(lmvx::CopyTruncated(buffer, 1, L"a"));
    EXPECT_STREQ(L"", buffer);
}

}  // namespace
