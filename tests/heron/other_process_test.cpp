// Endpoints belong to the process that owns them: a helper process's listener shows in its list, not ours.
#include "test_sockets.h"

#include <gtest/gtest.h>

#include <string>

#include "child_process.h"
#include "heron.h"
#include "list_helpers.h"
#include "message_pump.h"
#include "test_files.h"

namespace heron::test {
namespace {

// The test child holding a loopback listener; the port it writes to a file once the listener is open.
unsigned ListenerPort(const std::wstring& portFile, const lmvx_test::ChildProcess& child) {
    std::wstring text;
    lmvx_test::PumpUntil([&] { return !(text = lmvx_test::ReadWholeFile(portFile)).empty() || !child.IsRunning(); },
                         20000);
    return text.empty() ? 0 : static_cast<unsigned>(std::stoul(text));
}

TEST(OtherProcess, ItsListenerIsInItsListAndNotInOurs) {
    const std::wstring portFile =
        lmvx_test::TestTempFolder() + L"lmvx_listener_" + std::to_wstring(GetCurrentProcessId()) + L".txt";
    DeleteFileW(portFile.c_str());
    lmvx_test::ChildProcess holder(L"listen \"" + portFile + L"\"");
    ASSERT_TRUE(holder.Started()) << "cannot start the test child: " << GetLastError();
    const unsigned port = ListenerPort(portFile, holder);
    ASSERT_NE(0u, port) << "the test child opened no listener";

    if (!OwnerOf(kProtocolTcp, port).ownersReported) GTEST_SKIP() << kNoOwnersReason;

    _CONNECTIONLIST theirs;
    ASSERT_EQ(1, theirs.Init());
    ASSERT_EQ(1, theirs.QueryProcessList(holder.Pid()));
    const auto listener = FindByPorts(theirs, kProtocolTcp, port, 0);
    ASSERT_TRUE(listener.has_value()) << "the holder's listener on port " << port << " is not in its list";
    EXPECT_EQ(std::wstring(L"LISTEN"), listener->GetStateStr());

    _CONNECTIONLIST ours;
    ASSERT_EQ(1, ours.Init());
    ASSERT_EQ(1, ours.QueryProcessList(GetCurrentProcessId()));
    EXPECT_FALSE(FindByPorts(ours, kProtocolTcp, port, 0).has_value());
    DeleteFileW(portFile.c_str());
}

}  // namespace
}  // namespace heron::test
