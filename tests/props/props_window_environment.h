// What the page tests share: the program's resources and icons, a host window for pages, a context for one
// process, and reading list views back.
#pragma once
#include <windows.h>
#include <commctrl.h>

#include <memory>
#include <string>

#include "props/properties_context.h"

namespace props_test {

// Language module, common controls and the shared icons, as start-up sets them up.
void SetUpApplication(LANGID language);

// A visible top-level window on the calling thread with one page created on it.
class HostedPage {
public:
    HostedPage(unsigned dialogId, DLGPROC procedure, unsigned pid);
    ~HostedPage();
    HostedPage(const HostedPage&) = delete;
    HostedPage& operator=(const HostedPage&) = delete;

    HWND Page() const { return page_; }
    HWND Host() const { return host_; }
    lmvx::ProcessPropertiesContext& Context() { return *context_; }

private:
    std::unique_ptr<lmvx::ProcessPropertiesContext> context_;
    HWND host_ = nullptr;
    HWND page_ = nullptr;
};

// The first row whose cell in the column contains the text; -1 when there is none.
int FindRowWithText(HWND list, int column, const std::wstring& part);
// Selects the row and puts the selection mark on it, as a click does.
void SelectRow(HWND list, int row);
// Tells the list's parent of a click (NM_CLICK, NM_RCLICK, NM_DBLCLK) on the list.
void Notify(HWND list, UINT code);

}  // namespace props_test
