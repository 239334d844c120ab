// lmvx_test_child.exe <verb> <arguments...>: a process for tests to watch, doing what its verb says.
#include "verbs.h"

#include <cstdio>

int wmain(int argc, wchar_t** argv) {
    using namespace lmvx_test_child;
    if (argc >= 2) {
        const std::wstring_view verb = argv[1];
        for (const VerbEntry& entry : Verbs()) {
            if (entry.name == verb) return entry.run(Arguments(argv + 2, static_cast<size_t>(argc - 2)));
        }
    }
    std::fputws(L"usage: lmvx_test_child <verb> <arguments>\n", stderr);
    for (const VerbEntry& entry : Verbs()) std::fwprintf(stderr, L"  %ls\n", entry.usage.data());
    return ExitUsage;
}
