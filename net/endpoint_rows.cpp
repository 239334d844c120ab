#include "net/endpoint_rows.h"

#include <commctrl.h>

#include <algorithm>
#include <unordered_map>

#include "finch.h"
#include "resource.h"
#include "wren.h"

namespace lmvx::net {
namespace {

constexpr int kTextColumns = 3;   // Local Host, Remote Host, Status follow the type column

int FindRow(HWND list, unsigned id) {
    LVFINDINFOW find{};
    find.flags = LVFI_PARAM;
    find.lParam = static_cast<LPARAM>(id);
    return static_cast<int>(SendMessageW(list, LVM_FINDITEMW, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&find)));
}

void InsertTopRow(HWND list, unsigned id, const std::wstring& typeText) {
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_PARAM | LVIF_IMAGE;
    item.iItem = 0;
    item.iImage = 0;
    item.lParam = static_cast<LPARAM>(id);
    item.pszText = const_cast<wchar_t*>(typeText.c_str());
    SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

}  // namespace

unsigned EndpointIdOfRow(HWND list, int row) {
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    SendMessageW(list, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    return static_cast<unsigned>(item.lParam);
}

namespace {

void SetCellIfChanged(HWND list, int row, int column, const std::wstring& text) {
    wchar_t present[512] = {};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = present;
    item.cchTextMax = static_cast<int>(std::size(present));
    SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    if (text != present) wren::ListViewSetItemText(list, row, column, text.c_str());
}

}  // namespace

EndpointFields FieldsOf(const heron::_CONNECTIONOBJECT& endpoint) {
    EndpointFields fields;
    fields.protocol = endpoint.GetProtocol();
    fields.localAddress = endpoint.GetLocalAddress();
    fields.remoteAddress = endpoint.GetRemoteAddress();
    std::copy_n(endpoint.GetLocalIP6Address(), 16, fields.localIP6.begin());
    std::copy_n(endpoint.GetRemoteIP6Address(), 16, fields.remoteIP6.begin());
    fields.localPort = endpoint.GetLocalPort();
    fields.remotePort = endpoint.GetRemotePort();
    fields.localHostname = endpoint.GetLocalHostname();
    fields.remoteHostname = endpoint.GetRemoteHostname();
    fields.state = endpoint.GetState();
    fields.stateText = endpoint.GetStateStr();
    fields.protocolText = endpoint.GetProtocolStr();
    return fields;
}

void RefreshEndpointRows(HWND list, const heron::_CONNECTIONLIST& endpoints, const EndpointRowTexts& texts) {
    std::unordered_map<unsigned, EndpointFields> current;
    const unsigned count = endpoints.GetItemCount();
    for (unsigned index = 0; index < count; ++index) {
        const heron::_CONNECTIONOBJECT endpoint = endpoints.GetItem(index);
        EndpointFields& fields = current[endpoint.GetGenericID()] = FieldsOf(endpoint);
        if (FindRow(list, endpoint.GetGenericID()) < 0) InsertTopRow(list, endpoint.GetGenericID(), texts.typeText(fields));
    }
    for (int row = 0; row < ListView_GetItemCount(list);) {
        const auto found = current.find(EndpointIdOfRow(list, row));
        if (found == current.end()) {
            ListView_DeleteItem(list, row);   // the same index holds the next row now
            continue;
        }
        const EndpointColumns columns = texts.columns(found->second);
        const std::wstring* cells[kTextColumns] = {&columns.localHost, &columns.remoteHost, &columns.status};
        for (int column = 0; column < kTextColumns; ++column) SetCellIfChanged(list, row, column + 1, *cells[column]);
        ++row;
    }
}

std::optional<heron::_CONNECTIONOBJECT> FindEndpoint(const heron::_CONNECTIONLIST& endpoints, unsigned id) {
    const unsigned count = endpoints.GetItemCount();
    for (unsigned index = 0; index < count; ++index) {
        heron::_CONNECTIONOBJECT endpoint = endpoints.GetItem(index);
        if (endpoint.GetGenericID() == id) return endpoint;
    }
    return std::nullopt;
}

void AddEndpointColumns(HWND list, const int (&widths)[4]) {
    const UINT headers[4] = {IDS_COLUMN_TYPE, IDS_COLUMN_LOCAL_HOST, IDS_COLUMN_REMOTE_HOST, IDS_COLUMN_STATUS};
    for (int column = 0; column < 4; ++column) {
        UIP_ListViewAddColumn(list, column, UIL_LangModule.GetLangString(headers[column]), widths[column], 0);
    }
}

}  // namespace lmvx::net
