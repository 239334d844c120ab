// The endpoint list views refresh in place: rows carry the endpoint's identity as item data, new endpoints
// get a row at the top, rows of vanished endpoints go, and a cell is written only when its text changed.
#pragma once
#include <windows.h>

#include <functional>
#include <optional>
#include <string>

#include "heron.h"
#include "net/endpoint_text.h"

namespace lmvx::net {

EndpointFields FieldsOf(const heron::_CONNECTIONOBJECT& endpoint);

struct EndpointRowTexts {
    std::function<std::wstring(const EndpointFields&)> typeText;   // column 0, set when the row is made
    std::function<EndpointColumns(const EndpointFields&)> columns;  // columns 1 to 3, each refresh
};

// Brings the list view's rows up to date with the endpoints as last queried.
void RefreshEndpointRows(HWND list, const heron::_CONNECTIONLIST& endpoints, const EndpointRowTexts& texts);

// The identity a row carries as item data.
unsigned EndpointIdOfRow(HWND list, int row);

// The endpoint whose identity is id; none when it has gone.
std::optional<heron::_CONNECTIONOBJECT> FindEndpoint(const heron::_CONNECTIONLIST& endpoints, unsigned id);

// The four columns both views show: Type, Local Host, Remote Host, Status, with the given widths.
void AddEndpointColumns(HWND list, const int (&widths)[4]);

// The period of a view's refresh timer 4000 for an update interval: 0 runs as 100 ms.
inline unsigned RefreshTimerPeriod(unsigned intervalMs) { return intervalMs == 0 ? 100 : intervalMs; }

}  // namespace lmvx::net
