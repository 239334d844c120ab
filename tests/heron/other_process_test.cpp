// Endpoints belong to the process that owns them: a helper process's listener shows in its list, not ours.
#include "test_sockets.h"

#include <gtest/gtest.h>

#include <string>

#include "common/unique_resource.h"
#include "heron.h"
#include "list_helpers.h"

namespace heron::test {
namespace {

using lmvx::UniqueHandle;

// The endpoint holder beside this test program; it holds a listener until its input closes.
class EndpointHolder {
public:
    bool Start() {
        SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        UniqueHandle childInput, childOutput;
        if (!CreatePipe(childInput.Put(), input_.Put(), &inheritable, 0)) return false;
        if (!CreatePipe(output_.Put(), childOutput.Put(), &inheritable, 0)) return false;
        // Our ends stay here.
        SetHandleInformation(input_.Get(), HANDLE_FLAG_INHERIT, 0);
        SetHandleInformation(output_.Get(), HANDLE_FLAG_INHERIT, 0);

        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdInput = childInput.Get();
        startup.hStdOutput = childOutput.Get();
        startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
        std::wstring commandLine = L"\"" + HolderPath() + L"\"";
        PROCESS_INFORMATION info{};
        if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                            &info)) {
            return false;
        }
        *process_.Put() = info.hProcess;
        CloseHandle(info.hThread);
        processId_ = info.dwProcessId;
        return true;
    }

    // The port the holder writes once its listener is open; 0 when it ended without one.
    unsigned ReadPort() {
        std::string line;
        char c = 0;
        DWORD read = 0;
        while (ReadFile(output_.Get(), &c, 1, &read, nullptr) && read == 1 && c != '\n') line += c;
        return line.empty() ? 0 : static_cast<unsigned>(std::stoul(line));
    }

    DWORD ProcessId() const { return processId_; }

    ~EndpointHolder() {
        input_.Reset();   // tells the holder to end
        if (process_.Get() != nullptr && WaitForSingleObject(process_.Get(), 10000) != WAIT_OBJECT_0) {
            TerminateProcess(process_.Get(), 1);
        }
    }

private:
    static std::wstring HolderPath() {
        wchar_t path[MAX_PATH] = {};
        const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
        std::wstring folder(path, length);
        return folder.substr(0, folder.find_last_of(L"\\/") + 1) + L"heron_endpoint_holder.exe";
    }

    UniqueHandle input_, output_, process_;
    DWORD processId_ = 0;
};

TEST(OtherProcess, ItsListenerIsInItsListAndNotInOurs) {
    EndpointHolder holder;
    ASSERT_TRUE(holder.Start()) << "cannot start the endpoint holder: " << GetLastError();
    const unsigned port = holder.ReadPort();
    ASSERT_NE(0u, port) << "the endpoint holder opened no listener";

    if (!OwnerOf(kProtocolTcp, port).ownersReported) GTEST_SKIP() << kNoOwnersReason;

    _CONNECTIONLIST theirs;
    ASSERT_EQ(1, theirs.Init());
    ASSERT_EQ(1, theirs.QueryProcessList(holder.ProcessId()));
    const auto listener = FindByPorts(theirs, kProtocolTcp, port, 0);
    ASSERT_TRUE(listener.has_value()) << "the holder's listener on port " << port << " is not in its list";
    EXPECT_EQ(std::wstring(L"LISTEN"), listener->GetStateStr());

    _CONNECTIONLIST ours;
    ASSERT_EQ(1, ours.Init());
    ASSERT_EQ(1, ours.QueryProcessList(GetCurrentProcessId()));
    EXPECT_FALSE(FindByPorts(ours, kProtocolTcp, port, 0).has_value());
}

}  // namespace
}  // namespace heron::test
