// The verbs of the test child. Each takes the arguments after the verb and returns the exit code.
// To add one, write a function here and put it in the table in verbs.cpp.
#pragma once
#include <span>
#include <string>
#include <string_view>

namespace lmvx_test_child {

using Arguments = std::span<wchar_t* const>;
using Verb = int (*)(Arguments arguments);

struct VerbEntry {
    std::wstring_view name;
    Verb run;
    std::wstring_view usage;
};

std::span<const VerbEntry> Verbs();

// Verbs that live in files of their own.
int KnownThreadsVerb(Arguments arguments);
int DeepStackVerb(Arguments arguments);
int ManyModulesVerb(Arguments arguments);
// Handle-holding verbs (handle_verbs.cpp).
int HoldVerb(Arguments arguments);
int ManyHandlesVerb(Arguments arguments);

// Writes the bytes to a temporary file renamed into place, so that a reader never sees half of them.
bool WriteWholeFile(const std::wstring& path, const void* bytes, size_t size);
inline bool WriteWholeFile(const std::wstring& path, const std::wstring& text) {
    return WriteWholeFile(path, text.data(), text.size() * sizeof(wchar_t));
}

// Waits until standard input closes (ChildProcess::CloseInput or the test's end), polling; when someone
// closes watched from outside meanwhile, writes the file closedMarker.
int WaitForInputToClose(void* watched = nullptr, const std::wstring& closedMarker = {});

constexpr int ExitUsage = 2;
constexpr int ExitFailed = 3;

}  // namespace lmvx_test_child
