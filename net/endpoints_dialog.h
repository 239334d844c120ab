// The "Network Endpoints for Process %d" dialog: the endpoints of one process, refreshed at the list's
// update rate, with the details of the selected one. It runs on a thread of its own.
#pragma once
#include <windows.h>

#include "common/record_tag.h"
#include "heron.h"

namespace lmvx::net {

inline constexpr DWORD kEndpointsDialogTag = 0x54564957;   // "TVIW"
inline constexpr DWORD kEndpointsRecordSize = 8328;        // the size this record announces in its tag

// Made by the opener and kept by it across dialogs; only the thread running the dialog touches the list.
struct EndpointsDialogRecord {
    DWORD signature = kRecordSignature;
    DWORD typeTag = kEndpointsDialogTag;
    const void* creator = nullptr;
    DWORD size = kEndpointsRecordSize;

    HWND dialog = nullptr;
    HWND parent = nullptr;
    DWORD processId = 0;
    heron::_CONNECTIONLIST endpoints;
    // The list's current update interval in ms (0 runs as 100), asked again at every tick; without it the
    // stored interval is used.
    unsigned (*currentInterval)() = nullptr;
    HICON rowIcon = nullptr;   // the picture of every row; the opener keeps it alive
    // The program's painter of owner-drawn controls (WM_DRAWITEM); none: the dialog leaves them unpainted.
    int (*drawOwnerButton)(HWND window, const DRAWITEMSTRUCT* item) = nullptr;

    EndpointsDialogRecord();
};

bool IsEndpointsRecord(const EndpointsDialogRecord* record);
// A record whose tag does not match is treated as none: its list is deleted, the record cleared and
// tagged again, and the list set up anew.
void PrepareEndpointsRecord(EndpointsDialogRecord& record);

// Shows the dialog for processId owned by parent and dispatches the caller's messages until it is closed.
// Returns 1 when the dialog's thread has ended, 0 when it could not start.
int ShowEndpointsDialog(EndpointsDialogRecord& record, DWORD processId, HWND parent);
// The list of the dialog, brought up to date with a new query.
void RefreshEndpointList(EndpointsDialogRecord& record);
// The details below the list, for the row of the selection mark (the first row when there is none).
void ShowEndpointDetails(EndpointsDialogRecord& record);

INT_PTR CALLBACK EndpointsDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace lmvx::net
