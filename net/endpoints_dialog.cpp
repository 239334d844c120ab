#include "net/endpoints_dialog.h"

#include <commctrl.h>

#include <cstring>

#include "app/option_keys.h"
#include "common/dialog_thread.h"
#include "common/unique_resource.h"
#include "finch.h"
#include "net/endpoint_rows.h"
#include "resource.h"
#include "wren.h"

namespace lmvx::net {
namespace {

constexpr UINT_PTR kRefreshTimer = 4000;
constexpr int kProtocolTcp = 0;
constexpr int kProtocolUdp = 16;

constexpr int kTimeFields[] = {IDC_ENDPOINT_TIME_LABEL, IDC_ENDPOINT_TIME};
constexpr int kLocalFields[] = {IDC_ENDPOINT_LOCAL_ADDRESS_LABEL, IDC_ENDPOINT_LOCAL_ADDRESS,
                                IDC_ENDPOINT_LOCAL_PORT_LABEL, IDC_ENDPOINT_LOCAL_PORT};
constexpr int kRemoteFields[] = {IDC_ENDPOINT_REMOTE_ADDRESS_LABEL, IDC_ENDPOINT_REMOTE_ADDRESS,
                                 IDC_ENDPOINT_REMOTE_PORT_LABEL, IDC_ENDPOINT_REMOTE_PORT};

EndpointsDialogRecord* RecordOf(HWND dialog) {
    auto* record = reinterpret_cast<EndpointsDialogRecord*>(GetWindowLongPtrW(dialog, GWLP_USERDATA));
    return IsEndpointsRecord(record) ? record : nullptr;
}

template <size_t Count>
void ShowFields(HWND dialog, const int (&ids)[Count], bool show) {
    for (int id : ids) ShowWindow(GetDlgItem(dialog, id), show ? SW_SHOW : SW_HIDE);
}

void SetText(HWND dialog, int id, const std::wstring& text) { wren::SetWindowTextIfChanged(GetDlgItem(dialog, id), text.c_str()); }

unsigned CurrentInterval(const EndpointsDialogRecord& record) {
    if (record.currentInterval) return record.currentInterval();
    return wren::regOptions.GetOptionDWORD(options::UpdateInterval.name, options::UpdateInterval.defaultValue);
}

void StartRefreshTimer(const EndpointsDialogRecord& record) {
    SetTimer(record.dialog, kRefreshTimer, RefreshTimerPeriod(CurrentInterval(record)), nullptr);
}

void SetUpList(HWND list, HICON rowIcon) {
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT);
    const int widths[4] = {70, 165, 165, 100};
    AddEndpointColumns(list, widths);
    ListView_SetColumnWidth(list, 3, LVSCW_AUTOSIZE_USEHEADER);
    ListView_SetColumnWidth(list, 3, ListView_GetColumnWidth(list, 3) - 20);
    // The list view owns the image list and destroys it with itself.
    HIMAGELIST images = ImageList_Create(16, 16, ILC_COLOR32, 1, 1);
    if (rowIcon) ImageList_AddIcon(images, rowIcon);
    ListView_SetImageList(list, images, LVSIL_SMALL);
}

INT_PTR OnInitDialog(HWND dialog, LPARAM lParam) {
    auto* record = reinterpret_cast<EndpointsDialogRecord*>(lParam);
    if (!IsEndpointsRecord(record)) {
        EndDialog(dialog, IDCANCEL);
        return TRUE;
    }
    SetWindowLongPtrW(dialog, GWLP_USERDATA, lParam);
    record->dialog = dialog;
    wchar_t caption[256] = {};
    APIP_FormatString(caption, sizeof caption, UIL_LangModule.GetLangString(IDS_ENDPOINTS_CAPTION),
                      static_cast<int>(record->processId));
    SetWindowTextW(dialog, caption);
    wren::Embold(dialog, IDC_ENDPOINT_HEADING);
    SetUpList(GetDlgItem(dialog, IDC_ENDPOINT_LIST), record->rowIcon);
    ShowWindow(dialog, SW_SHOW);
    UpdateWindow(dialog);
    RefreshEndpointList(*record);
    ShowEndpointDetails(*record);
    StartRefreshTimer(*record);
    return TRUE;
}

// Timer 4000 refreshes and is started again; any other (4004) is only stopped.
void OnTimer(HWND dialog, UINT_PTR timer) {
    EndpointsDialogRecord* record = RecordOf(dialog);
    KillTimer(dialog, timer);
    if (!record || timer != kRefreshTimer) return;
    RefreshEndpointList(*record);
    StartRefreshTimer(*record);   // asks for the interval again, so a changed rate applies from the next tick
}

void OnListNotify(HWND dialog) {
    EndpointsDialogRecord* record = RecordOf(dialog);
    if (!record) return;
    HWND list = GetDlgItem(dialog, IDC_ENDPOINT_LIST);
    const int mark = ListView_GetSelectionMark(list);
    if (mark >= 0 && EndpointIdOfRow(list, mark) != 0) ShowEndpointDetails(*record);
}

void ShowDetailsOf(HWND dialog, const heron::_CONNECTIONOBJECT& endpoint) {
    const int protocol = endpoint.GetProtocol();
    const UINT heading = protocol == kProtocolUdp ? IDS_UDP_ENDPOINT : protocol == kProtocolTcp ? IDS_TCP_ENDPOINT : IDS_ENDPOINT;
    SetText(dialog, IDC_ENDPOINT_HEADING, UIL_LangModule.GetLangString(heading));

    const bool timeKnown = endpoint.GetCreationTimeLi() != 0;
    if (timeKnown) {
        SYSTEMTIME today{};
        GetLocalTime(&today);
        SetText(dialog, IDC_ENDPOINT_TIME,
                CreationTimeText(endpoint.GetCreationTime(), today, UIL_LangModule.GetLangString(IDS_TODAY_TIME_MS),
                                 UIL_LangModule.GetLangString(IDS_START_TIME_FORMAT)));
    }
    ShowFields(dialog, kTimeFields, timeKnown);

    SetText(dialog, IDC_ENDPOINT_LOCAL_ADDRESS, IPv4Text(endpoint.GetLocalAddress()));
    SetText(dialog, IDC_ENDPOINT_LOCAL_PORT, PortText(endpoint.GetLocalPort()));
    ShowFields(dialog, kLocalFields, true);

    const bool hasRemote = protocol != kProtocolUdp;
    if (hasRemote) {
        SetText(dialog, IDC_ENDPOINT_REMOTE_ADDRESS, IPv4Text(endpoint.GetRemoteAddress()));
        SetText(dialog, IDC_ENDPOINT_REMOTE_PORT, PortText(endpoint.GetRemotePort()));
    }
    ShowFields(dialog, kRemoteFields, hasRemote);
}

DWORD WINAPI EndpointsDialogThread(void* parameter) {
    auto* record = static_cast<EndpointsDialogRecord*>(parameter);
    UIL_LangModule.ShowDialogParam(IDD_NETWORK_ENDPOINTS, record->parent, EndpointsDialogProc,
                                   reinterpret_cast<LPARAM>(record));
    return 0;
}

}  // namespace

EndpointsDialogRecord::EndpointsDialogRecord() {
    creator = reinterpret_cast<const void*>(&ShowEndpointsDialog);
    endpoints.Init();
}

bool IsEndpointsRecord(const EndpointsDialogRecord* record) {
    return record && record->signature == kRecordSignature && record->typeTag == kEndpointsDialogTag &&
           record->size == kEndpointsRecordSize;
}

void PrepareEndpointsRecord(EndpointsDialogRecord& record) {
    if (IsEndpointsRecord(&record)) return;
    record.endpoints.Delete();
    record.signature = kRecordSignature;
    record.typeTag = kEndpointsDialogTag;
    record.creator = reinterpret_cast<const void*>(&ShowEndpointsDialog);
    record.size = kEndpointsRecordSize;
    record.dialog = nullptr;
    record.parent = nullptr;
    record.processId = 0;
    record.currentInterval = nullptr;
    record.rowIcon = nullptr;
    record.drawOwnerButton = nullptr;
    record.endpoints.Init();
}

int ShowEndpointsDialog(EndpointsDialogRecord& record, DWORD processId, HWND parent) {
    PrepareEndpointsRecord(record);
    record.parent = parent;
    record.processId = processId;
    return RunDialogThread(EndpointsDialogThread, &record) ? 1 : 0;
}

void RefreshEndpointList(EndpointsDialogRecord& record) {
    record.endpoints.QueryProcessList(record.processId);
    // No name lookups here: a name shows only once the library has one.
    const std::wstring unknown = UIL_LangModule.GetLangString(IDS_UNKNOWN);
    RefreshEndpointRows(GetDlgItem(record.dialog, IDC_ENDPOINT_LIST), record.endpoints,
                        {[&unknown](const EndpointFields& fields) { return DialogTypeText(fields.protocol, unknown); },
                         DialogColumns});
}

void ShowEndpointDetails(EndpointsDialogRecord& record) {
    HWND dialog = record.dialog;
    HWND list = GetDlgItem(dialog, IDC_ENDPOINT_LIST);
    int mark = ListView_GetSelectionMark(list);
    if (mark < 0) {
        mark = 0;
        ListView_SetSelectionMark(list, mark);
    }
    if (record.endpoints.GetItemCount() == 0) {
        SetText(dialog, IDC_ENDPOINT_HEADING, UIL_LangModule.GetLangString(IDS_NO_NETWORK_CONNECTIONS));
        ShowFields(dialog, kTimeFields, false);
        ShowFields(dialog, kLocalFields, false);
        ShowFields(dialog, kRemoteFields, false);
        return;
    }
    if (const auto endpoint = FindEndpoint(record.endpoints, EndpointIdOfRow(list, mark))) ShowDetailsOf(dialog, *endpoint);
}

INT_PTR CALLBACK EndpointsDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: return OnInitDialog(dialog, lParam);
    case WM_TIMER: OnTimer(dialog, wParam); return TRUE;
    case WM_NOTIFY:
        if (reinterpret_cast<const NMHDR*>(lParam)->idFrom == IDC_ENDPOINT_LIST) OnListNotify(dialog);
        return FALSE;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) EndDialog(dialog, LOWORD(wParam));
        return TRUE;
    case WM_DRAWITEM:
        if (EndpointsDialogRecord* record = RecordOf(dialog); record && record->drawOwnerButton) {
            return record->drawOwnerButton(dialog, reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        }
        return FALSE;
    case WM_DESTROY:
        KillTimer(dialog, kRefreshTimer);
        if (EndpointsDialogRecord* record = RecordOf(dialog)) record->dialog = nullptr;
        return FALSE;
    }
    return FALSE;
}

}  // namespace lmvx::net
