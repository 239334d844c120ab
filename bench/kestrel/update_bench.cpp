// Measures TL_PROCESSLIST::Update() at steady state against a bare NtQuerySystemInformation
// (SystemProcessInformation) call on the same machine, with at least 150 processes running, and prints
// the raw times and their ratio. Starts idle children to reach the count and ends them at the end.
#include "child_process.h"
#include "kestrel.h"
#include "query_timing.h"

#include <cstdio>
#include <memory>
#include <vector>

namespace {

using namespace kestrel_bench;

constexpr int WantedProcesses = 150;
constexpr int Rounds = 200;

}  // namespace

int wmain() {
    const auto query = SystemInformationQuery();
    kestrel::TL_PROCESSLIST list;
    if (!query || !list.Init()) {
        std::fputws(L"cannot query processes\n", stderr);
        return 1;
    }
    list.Update();
    std::vector<std::unique_ptr<lmvx_test::ChildProcess>> children;
    while (list.GetItemCount() + static_cast<int>(children.size()) < WantedProcesses) {
        children.push_back(std::make_unique<lmvx_test::ChildProcess>(L"sleep 600000"));
        if (!children.back()->Started()) {
            std::fputws(L"cannot start lmvx_test_child.exe\n", stderr);
            return 1;
        }
    }
    Sleep(1000);   // let the children settle into their wait
    // Steady state: every instance has been seen, its static data and icons are cached.
    for (int warmUp = 0; warmUp < 5; ++warmUp) list.Update();

    std::vector<unsigned char> buffer(256 * 1024);
    std::vector<double> bare;
    std::vector<double> update;
    for (int round = 0; round < Rounds; ++round) {
        const auto bareStart = Clock::now();
        QueryProcesses(query, buffer);
        bare.push_back(MicrosecondsSince(bareStart));
        const auto updateStart = Clock::now();
        list.Update();
        update.push_back(MicrosecondsSince(updateStart));
    }

    const double bareMedian = Median(bare);
    const double updateMedian = Median(update);
    std::wprintf(L"processes:                                %d\n", list.GetItemCount());
    std::wprintf(L"NtQuerySystemInformation, median of %d:  %.1f us\n", Rounds, bareMedian);
    std::wprintf(L"TL_PROCESSLIST::Update, median of %d:    %.1f us\n", Rounds, updateMedian);
    std::wprintf(L"ratio Update / bare query:                %.2f (target: at most 2)\n", updateMedian / bareMedian);

    children.clear();   // ends every child
    list.Delete();
    return 0;
}
