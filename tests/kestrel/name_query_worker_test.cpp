// The name worker with a query that blocks until the test lets it go: Wine answers name queries of pipes
// with a pending read at once, so the time limit is shown here, where a query can really hang.
#include "name_query_worker.h"

#include <gtest/gtest.h>

#include "message_pump.h"

namespace {

using kestrel::detail::NameQueryWorker;

// The "object" is an event the worker closes: the query waits for it, as a name query waits for a held file object.
bool WaitingQuery(HANDLE object, std::wstring& name) {
    WaitForSingleObject(object, INFINITE);
    name = L"released";
    return true;
}

HANDLE Copy(HANDLE event) {
    HANDLE copy = nullptr;
    DuplicateHandle(GetCurrentProcess(), event, GetCurrentProcess(), &copy, 0, FALSE, DUPLICATE_SAME_ACCESS);
    return copy;
}

TEST(NameQueryWorker, AHangingQueryIsLeftBehindAndTheNextOneRunsOnANewWorker) {
    HANDLE blocked = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    NameQueryWorker worker(WaitingQuery);
    std::wstring name;
    std::shared_ptr<kestrel::detail::NameQueryJob> stuck;
    EXPECT_EQ(worker.Query(CreateEventW(nullptr, TRUE, TRUE, nullptr), 5000, name, stuck), NameQueryWorker::Outcome::Named);
    EXPECT_EQ(name, L"released");

    name.clear();
    EXPECT_EQ(worker.Query(Copy(blocked), 50, name, stuck), NameQueryWorker::Outcome::TimedOut);
    EXPECT_TRUE(name.empty());
    ASSERT_TRUE(stuck);
    EXPECT_FALSE(kestrel::detail::QueryFinished(*stuck));
    // The worker is free again at once, while the first one still hangs.
    EXPECT_EQ(worker.Query(CreateEventW(nullptr, TRUE, TRUE, nullptr), 5000, name, stuck), NameQueryWorker::Outcome::Named);

    SetEvent(blocked);   // the hanging query returns; its worker closes its handle and ends
    EXPECT_TRUE(lmvx_test::PollUntil([&] { return kestrel::detail::QueryFinished(*stuck); }));
    CloseHandle(blocked);
}

}  // namespace
