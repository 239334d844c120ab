// The library's pure logic: DOS paths, counter arithmetic, the process tree, thread CPU and priority levels,
// suspension from thread states, version texts and link time stamps.
#include <gtest/gtest.h>

#include <limits>
#include <tuple>

#include "dos_path.h"
#include "process_math.h"
#include "process_tree.h"
#include "thread_math.h"
#include "thread_states.h"
#include "version_text.h"

using namespace kestrel::detail;

namespace {

const DriveDevice kDrives[] = {
    {L"C:", L"\\Device\\HarddiskVolume1"},
    {L"D:", L"\\Device\\HarddiskVolume12"},
    {L"E:", L"\\Device\\CdRom0"},
};

// Each native path's DOS form, and whether that form is a file or folder on a drive.
TEST(DosPath, NativePathsBecomeDrivePathsAndRegistryRootsShortNames) {
    struct Case {
        const wchar_t* native;
        const wchar_t* dos;
        bool onDrive;
    };
    const Case cases[] = {
        {L"\\Device\\HarddiskVolume1\\Windows\\notepad.exe", L"C:\\Windows\\notepad.exe", true},
        {L"\\device\\harddiskvolume1\\x", L"C:\\x", true},                  // device names ignore case
        {L"\\Device\\HarddiskVolume12\\data", L"D:\\data", true},           // not taken for volume 1
        {L"\\Device\\HarddiskVolume1", L"C:", true},                        // the drive's root object itself
        {L"\\Device\\HarddiskVolume13\\data", L"\\Device\\HarddiskVolume13\\data", false},   // no drive: unchanged
        {L"\\??\\C:\\windows\\system32", L"C:\\windows\\system32", true},
        {L"\\DosDevices\\z:\\", L"z:\\", true},
        {L"\\??\\C:Windows", L"C:Windows", false},                          // relative to a drive: no place
        {L"\\??\\1:\\x", L"1:\\x", false},
        {L"\\??\\UNC\\server\\share\\f.txt", L"\\\\server\\share\\f.txt", false},
        {L"\\Device\\Mup\\server\\share\\f.txt", L"\\\\server\\share\\f.txt", false},
        {L"\\Device\\NamedPipe\\lsass", L"\\Device\\NamedPipe\\lsass", false},
        {L"", L"", false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(NativeToDosPath(c.native, kDrives), c.dos) << c.native;
        EXPECT_EQ(IsDrivePath(c.dos), c.onDrive) << c.dos;
    }
    // Registry roots get their short names.
    EXPECT_EQ(RegistryDisplayPath(L"\\REGISTRY\\MACHINE\\SOFTWARE\\Wine"), L"HKLM\\SOFTWARE\\Wine");
    EXPECT_EQ(RegistryDisplayPath(L"\\Registry\\User\\S-1-5-21-1\\Software"), L"HKU\\S-1-5-21-1\\Software");
    EXPECT_EQ(RegistryDisplayPath(L"\\REGISTRY\\MACHINEX"), L"\\REGISTRY\\MACHINEX");
}

constexpr uint64_t OneSecond = 10'000'000;   // 100 ns units
constexpr unsigned MaxUnsigned = std::numeric_limits<unsigned>::max();
constexpr uint64_t Big = uint64_t{1} << 40;

TEST(CpuUsagePercent, ShareOfAllProcessorsRoundedClampedAndZeroWithoutAMeasurement) {
    struct Case { uint64_t before, after, interval; unsigned processors, percent; };
    const Case cases[] = {
        {0, OneSecond / 2, OneSecond, 1, 50},          {0, OneSecond / 2, OneSecond, 2, 25},
        {OneSecond, 2 * OneSecond, OneSecond, 1, 100}, {0, OneSecond / 1000 * 4, OneSecond, 1, 0},   // 0.4 %
        {0, OneSecond / 1000 * 6, OneSecond, 1, 1},    {0, 3 * OneSecond, OneSecond, 2, 100},        // clamped
        {0, OneSecond, 0, 4, 0},                       {0, OneSecond, OneSecond, 0, 0},   // no interval, no CPUs
        {OneSecond, OneSecond / 2, OneSecond, 1, 0},   // times went down
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CpuUsagePercent(c.before, c.after, c.interval, c.processors), c.percent)
            << c.before << " -> " << c.after << " in " << c.interval << " on " << c.processors;
    }
}

TEST(CounterArithmetic, DeltasAndRatesSaturateInsteadOfWrapping) {
    struct Case { uint64_t a, b; uint64_t delta; uint64_t rate; int signedDelta; };
    // delta: CounterDelta(a, b); rate: RatePerSecond(a, b ms); signedDelta: SignedDelta(a, b)
    const Case cases[] = {
        {1000, 5096, 4096, 196, 4096},    {7, 7, 0, 1000, 0},            {5096, 1000, 0, 5096, -4096},
        {4096, 500, 0, 8192, -3596},      {3000, 3000, 0, 1000, 0},      {1, 3, 2, 333, 2},   // rate truncated
        {4096, 1000, 0, 4096, -3096},     {4096, 0, 0, 0, -4096},   // a zero interval has no rate
        {0, Big, MaxUnsigned, 0, std::numeric_limits<int>::max()},
        {Big, 0, 0, 0, std::numeric_limits<int>::min()},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.a << ", " << c.b);
        EXPECT_EQ(CounterDelta(c.a, c.b), c.delta);
        EXPECT_EQ(RatePerSecond(c.a, c.b), c.rate);
        EXPECT_EQ(SignedDelta(c.a, c.b), c.signedDelta);
    }
    EXPECT_EQ(RatePerSecond(std::numeric_limits<uint64_t>::max(), 1), std::numeric_limits<uint64_t>::max());
}

// Every field of a time, the day of the week included.
auto Fields(const SYSTEMTIME& t) {
    return std::make_tuple(t.wYear, t.wMonth, t.wDayOfWeek, t.wDay, t.wHour, t.wMinute, t.wSecond, t.wMilliseconds);
}

TEST(PackDuration, SplitsIntoDaysHoursMinutesSecondsAndMillisecondsAndCapsTheDays) {
    const uint64_t duration = ((((2ull * 24 + 3) * 60 + 4) * 60 + 5) * 1000 + 678) * 10'000;
    EXPECT_EQ(Fields(PackDuration(duration)), Fields(SYSTEMTIME{0, 0, 0, 2, 3, 4, 5, 678}));
    EXPECT_EQ(PackDuration(std::numeric_limits<uint64_t>::max()).wDay, 0xFFFF);
}

TEST(PriorityClassFromBasePriority, MapsTheSixClassBasePriorities) {
    const std::pair<int, unsigned> cases[] = {
        {4, IDLE_PRIORITY_CLASS},          {6, BELOW_NORMAL_PRIORITY_CLASS}, {8, NORMAL_PRIORITY_CLASS},
        {10, ABOVE_NORMAL_PRIORITY_CLASS}, {13, HIGH_PRIORITY_CLASS},        {24, REALTIME_PRIORITY_CLASS},
        {9, 0},
    };
    for (const auto& [base, priorityClass] : cases) EXPECT_EQ(PriorityClassFromBasePriority(base), priorityClass) << base;
}

TEST(BuildTree, PlacesEachNodeOnceDepthFirstWithDistinctRanks) {
    struct Case {
        const char* what;
        std::vector<TreeNode> nodes;
        std::vector<uint32_t> walk;   // pids in the order of their positions
        std::vector<int> depths;      // in the order of the nodes
    };
    const Case cases[] = {
        {"children under their parents", {{30, 10, 300}, {10, 0, 100}, {20, 0, 200}, {40, 30, 400}, {50, 10, 500}},
         {10, 30, 40, 50, 20}, {1, 0, 0, 2, 1}},
        // Pid 10 ended and was reused by a process started after 20: 20 is a root.
        {"a parent created after its child", {{10, 0, 900}, {20, 10, 200}}, {20, 10}, {0, 0}},
        {"a missing parent makes a root", {{20, 999, 200}, {30, 20, 300}}, {20, 30}, {0, 1}},
        {"a self parent is a root", {{0, 0, 0}, {4, 0, 0}, {8, 4, 5}}, {0, 4, 8}, {0, 1, 2}},
        {"a cycle is cut", {{1, 3, 7}, {2, 1, 7}, {3, 2, 7}, {9, 0, 1}}, {9, 1, 2, 3}, {0, 1, 2, 0}},
        {"siblings by creation time, then pid", {{1, 0, 1}, {7, 1, 50}, {5, 1, 50}, {3, 1, 20}}, {1, 3, 5, 7},
         {0, 1, 1, 1}},
        {"empty", {}, {}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const std::vector<TreePlace> places = BuildTree(c.nodes);
        ASSERT_EQ(places.size(), c.nodes.size());
        std::vector<uint32_t> walk(c.nodes.size(), 0xFFFFFFFF);   // positions are the ranks 0, 1, 2, ...
        std::vector<int> depths;
        for (size_t i = 0; i < places.size(); ++i) {
            const size_t rank = static_cast<size_t>(places[i].position);
            ASSERT_TRUE(rank == places[i].position && rank < walk.size()) << places[i].position;
            walk[rank] = c.nodes[i].pid;
            depths.push_back(places[i].depth);
        }
        EXPECT_EQ(walk, c.walk);
        EXPECT_EQ(depths, c.depths);
    }
}

TEST(BuildTree, ADeepChainNeedsNoRecursion) {
    std::vector<TreeNode> nodes;
    const uint32_t length = 100000;
    for (uint32_t pid = 1; pid <= length; ++pid) nodes.push_back({pid, pid - 1, pid});
    EXPECT_EQ(BuildTree(nodes).back().depth, static_cast<int>(length - 1));
}

TEST(ThreadCpuAndPriority, CpuIsAShareOfAllProcessorsAndLevelsComeAbsoluteAsWindowsReportsThemOrRelativeAsWineDoes) {
    EXPECT_DOUBLE_EQ(50.0, ThreadCpuPercent(100, 600, 1000, 1));
    EXPECT_DOUBLE_EQ(12.5, ThreadCpuPercent(0, 500, 1000, 4));
    EXPECT_DOUBLE_EQ(100.0, ThreadCpuPercent(0, 1100, 1000, 1)) << "timer granularity never shows above 100";
    EXPECT_EQ(0.0, ThreadCpuPercent(600, 100, 1000, 1)) << "a reused id's smaller time";
    EXPECT_EQ(0.0, ThreadCpuPercent(0, 500, 0, 1)) << "nothing measured yet";
    const struct {
        long thread, process;
        int level;
    } cases[] = {
        {8, 8, 0},   {9, 8, 1},    {10, 8, 2},   {7, 8, -1}, {6, 8, -2},  {15, 8, 15}, {1, 8, -15},
        {4, 4, 0},   {1, 4, -15},  {15, 13, 15}, {11, 13, -2}, {24, 24, 0}, {31, 24, 15}, {16, 24, -15},
        {26, 24, 2}, {22, 24, -2},
        // Wine reports the relative level itself, with a class index as the process's priority.
        {0, 2, 0},   {-2, 2, -2},  {15, 2, 15},  {-15, 2, -15},
    };
    for (const auto& c : cases) EXPECT_EQ(c.level, ThreadPriorityLevel(c.thread, c.process)) << c.thread << "/" << c.process;
}

TEST(SuspendedByThreadStates, AnswersOnlyWhenTheStatesSaySomething) {
    const ThreadStateReading suspended{ThreadStateWaiting, WaitReasonSuspended}, sleeping{ThreadStateWaiting, 6},
        running{2, 0}, nothingKnown{0, 0};
    const std::pair<std::vector<ThreadStateReading>, std::optional<bool>> cases[] = {
        {{}, std::nullopt},           {{nothingKnown, nothingKnown}, std::nullopt}, {{suspended, suspended}, true},
        {{suspended, sleeping}, false}, {{running}, false}, {{suspended, nothingKnown}, false},
    };
    for (const auto& [threads, expected] : cases) EXPECT_EQ(SuspendedByThreadStates(threads), expected) << threads.size();
}

// The translation block name is language then code page in lower-case hex; a version joins four parts; link time
// stamps match the system's own conversion, from the first second to the last, a leap day among them.
TEST(VersionText, BlockNameVersionAndLinkTimeStamp) {
    EXPECT_EQ(TranslationBlockName(0x0409, 0x04B0), L"040904b0");
    EXPECT_EQ(FormatFileVersion(MAKELONG(2, 10), MAKELONG(4, 3)), L"10.2.3.4");
    for (DWORD seconds : {DWORD{0}, DWORD{86399}, DWORD{951827696}, DWORD{1234567890}, DWORD{4000000000u}, DWORD{0xFFFFFFFF}}) {
        const unsigned long long ticks = 116444736000000000ULL + seconds * 10000000ULL;
        FILETIME fileTime{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
        SYSTEMTIME expected{};
        ASSERT_TRUE(FileTimeToSystemTime(&fileTime, &expected));
        EXPECT_EQ(Fields(SystemTimeFromUnixSeconds(seconds)), Fields(expected)) << seconds;
    }
}

}  // namespace
