// The endpoints dialog and the Network page against a child that holds a TCP listener, a connection to it and
// a UDP socket on 127.0.0.1 (it makes the call after which Wine reports it as their owner).
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <thread>

#include "app/option_keys.h"
#include "child_process.h"
#include "finch.h"
#include "message_counter.h"
#include "net/endpoints_dialog.h"
#include "net/network_page.h"
#include "pane_test_environment.h"
#include "resource.h"
#include "test_host.h"
#include "window_texts.h"
#include "wren.h"

namespace {

using pane_test::PumpUntil;

// Its local texts ("127.0.0.1:port") once it has written its ports.
class SocketChild {
public:
    SocketChild() : name_(L"lmvx_net_test_" + std::to_wstring(GetCurrentProcessId()) + L"_" + std::to_wstring(++serial_)),
                    file_(pane_test::TestTempFolder() + name_ + L".txt"),
                    event_(CreateEventW(nullptr, TRUE, FALSE, name_.c_str())),
                    child_(L"sockets \"" + file_ + L"\" " + name_) {}
    ~SocketChild() {
        child_.End();
        CloseHandle(event_);
        DeleteFileW(file_.c_str());
    }
    bool ReadPorts() {
        std::wstring text;
        if (!PumpUntil([&] { return !(text = pane_test::ReadWholeFile(file_)).empty(); }, 20000)) return false;
        unsigned listenerPort = 0, clientPort = 0, udpPort = 0;
        std::wistringstream(text) >> listenerPort >> clientPort >> udpPort;
        const auto local = [](unsigned port) { return L"127.0.0.1:" + std::to_wstring(port); };
        listener = local(listenerPort);
        client = local(clientPort);
        udp = local(udpPort);
        return udpPort != 0;
    }
    void CloseUdp() const { SetEvent(event_); }
    DWORD Pid() const { return child_.Pid(); }

    std::wstring listener, client, udp;

private:
    static inline int serial_ = 0;
    std::wstring name_, file_;
    HANDLE event_;
    lmvx_test::ChildProcess child_;
};

using lmvx_test::CellText;

// The row whose Local Host column is local; -1 when none.
int RowOf(HWND list, const std::wstring& local) {
    for (int row = 0; row < ListView_GetItemCount(list); ++row) {
        if (CellText(list, row, 1) == local) return row;
    }
    return -1;
}

void ExpectRow(HWND list, const std::wstring& local, const wchar_t* type, const std::wstring& remote, const wchar_t* status) {
    const int row = RowOf(list, local);
    ASSERT_GE(row, 0) << "no row for " << testing::PrintToString(local);
    EXPECT_EQ(CellText(list, row, 0), type);
    EXPECT_EQ(CellText(list, row, 2), remote);
    EXPECT_EQ(CellText(list, row, 3), status);
}

// The child's three sockets, as both views show them with numeric addresses.
void ExpectChildRows(HWND list, const SocketChild& child) {
    ExpectRow(list, child.listener, L"TCP", L"0.0.0.0:0", L"LISTEN");
    ExpectRow(list, child.client, L"TCP", child.listener, L"ESTABLISHED");
    ExpectRow(list, child.udp, L"UDP", L"", L"");
}

bool HasAllRows(HWND list, const SocketChild& child) {
    return RowOf(list, child.listener) >= 0 && RowOf(list, child.client) >= 0 && RowOf(list, child.udp) >= 0;
}

void Select(HWND list, int row) {
    ListView_SetSelectionMark(list, row);
    ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

std::wstring Text(HWND dialog, int id) {
    wchar_t text[256] = {};
    GetDlgItemTextW(dialog, id, text, 256);
    return text;
}
bool Shown(HWND dialog, int id) { return IsWindowVisible(GetDlgItem(dialog, id)) != FALSE; }

std::wstring CaptionFor(DWORD pid) {
    wchar_t caption[256] = {};
    APIP_FormatString(caption, sizeof caption, UIL_LangModule.GetLangString(IDS_ENDPOINTS_CAPTION), static_cast<int>(pid));
    return caption;
}

// Runs the endpoints dialog for pid here while drive(dialog) runs on another thread and closes it.
void RunEndpointsDialog(DWORD pid, const std::function<void(HWND)>& drive) {
    pane_test::HostWindow host;
    lmvx::net::EndpointsDialogRecord record;
    record.currentInterval = [] { return 0u; };   // runs at 100 ms
    bool found = false;
    std::thread driver([&] {
        found = pane_test::WaitForOwnWindow(CaptionFor(pid), 20000, [&](HWND dialog) {
            drive(dialog);
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        });
    });
    EXPECT_EQ(lmvx::net::ShowEndpointsDialog(record, pid, host.Get()), 1);
    driver.join();
    EXPECT_TRUE(found);
}

TEST(EndpointsDialog, ListsTheSocketsWithTheirDetailsAndDropsOneThatCloses) {
    SocketChild child;
    ASSERT_TRUE(child.ReadPorts());
    RunEndpointsDialog(child.Pid(), [&](HWND dialog) {
        HWND list = GetDlgItem(dialog, IDC_ENDPOINT_LIST);
        ASSERT_TRUE(PumpUntil([&] { return HasAllRows(list, child); }, 20000));
        ExpectChildRows(list, child);

        Select(list, RowOf(list, child.udp));
        EXPECT_EQ(Text(dialog, IDC_ENDPOINT_HEADING), UIL_LangModule.GetLangString(IDS_UDP_ENDPOINT));
        EXPECT_EQ(Text(dialog, IDC_ENDPOINT_LOCAL_ADDRESS) + L":" + Text(dialog, IDC_ENDPOINT_LOCAL_PORT), child.udp);
        EXPECT_FALSE(Shown(dialog, IDC_ENDPOINT_REMOTE_ADDRESS) || Shown(dialog, IDC_ENDPOINT_REMOTE_PORT_LABEL));

        Select(list, RowOf(list, child.client));
        EXPECT_EQ(Text(dialog, IDC_ENDPOINT_HEADING), UIL_LangModule.GetLangString(IDS_TCP_ENDPOINT));
        EXPECT_TRUE(Shown(dialog, IDC_ENDPOINT_REMOTE_ADDRESS));
        EXPECT_EQ(Text(dialog, IDC_ENDPOINT_REMOTE_ADDRESS) + L":" + Text(dialog, IDC_ENDPOINT_REMOTE_PORT), child.listener);

        child.CloseUdp();
        EXPECT_TRUE(PumpUntil([&] { return RowOf(list, child.udp) < 0; }, 20000));
    });
}

TEST(EndpointsDialog, AProcessWithoutEndpointsShowsTheNoticeAndNoFields) {
    lmvx_test::ChildProcess child(L"sleep 60000");
    ASSERT_TRUE(child.Started());
    RunEndpointsDialog(child.Pid(), [](HWND dialog) {
        const std::wstring notice = UIL_LangModule.GetLangString(IDS_NO_NETWORK_CONNECTIONS);
        EXPECT_TRUE(PumpUntil([&] { return Text(dialog, IDC_ENDPOINT_HEADING) == notice; }, 20000));
        EXPECT_EQ(ListView_GetItemCount(GetDlgItem(dialog, IDC_ENDPOINT_LIST)), 0);
        for (int id : {IDC_ENDPOINT_TIME, IDC_ENDPOINT_LOCAL_ADDRESS, IDC_ENDPOINT_LOCAL_PORT_LABEL,
                       IDC_ENDPOINT_REMOTE_ADDRESS, IDC_ENDPOINT_REMOTE_PORT}) {
            EXPECT_FALSE(Shown(dialog, id)) << id;
        }
    });
}

using lmvx_test::ClipboardText;
TEST(NetworkPage, RefreshesOnlyWhileShownAndCopiesThroughTheClipboard) {
    SocketChild child;
    ASSERT_TRUE(child.ReadPorts());
    const auto& resolve = lmvx::options::ResolveHostnames;
    wren::regOptions.SetOptionBOOL(resolve.name, 0);   // addresses as numbers, whatever the host resolves
    lmvx::ProcessPropertiesContext context;
    context.pid = child.Pid();
    context.refreshInterval = 0;   // 100 ms
    pane_test::HostWindow host;
    ShowWindow(host.Get(), SW_SHOWNOACTIVATE);   // a page counts as shown only inside a shown window
    HWND page = UIL_LangModule.LoadDialogParam(IDD_PAGE_NETWORK, host.Get(), lmvx::net::NetworkPageProc,
                                               reinterpret_cast<LPARAM>(&context));
    ASSERT_NE(page, nullptr);
    HWND list = GetDlgItem(page, IDC_ENDPOINT_LIST);
    {   // hidden: the timer ticks, nothing is refreshed
        MessageCounter ticks(page, WM_TIMER);
        MessageCounter refreshes(page, lmvx::net::kNetworkPageRefresh);
        ASSERT_TRUE(PumpUntil([&] { return ticks.Seen() >= 2; }, 20000));
        EXPECT_EQ(refreshes.Seen(), 0);
        EXPECT_EQ(ListView_GetItemCount(list), 0);
    }
    ShowWindow(page, SW_SHOW);
    ASSERT_TRUE(PumpUntil([&] { return HasAllRows(list, child); }, 20000));
    ExpectChildRows(list, child);

    ListView_SetItemState(list, RowOf(list, child.client), LVIS_SELECTED, LVIS_SELECTED);
    SendMessageW(page, WM_COMMAND, IDM_COPY_REMOTE_HOSTNAME, 0);
    EXPECT_EQ(ClipboardText(), child.listener);
    SendMessageW(page, WM_COMMAND, IDM_COPY_LOCAL_HOSTNAME, 0);
    EXPECT_EQ(ClipboardText(), child.client);

    child.CloseUdp();
    EXPECT_TRUE(PumpUntil([&] { return RowOf(list, child.udp) < 0; }, 20000));
    SendMessageW(page, WM_COMMAND, IDM_RESOLVE_HOSTNAMES, 0);
    EXPECT_EQ(wren::regOptions.GetOptionBOOL(resolve.name, resolve.defaultValue), 1);
    DestroyWindow(page);
}

}  // namespace
