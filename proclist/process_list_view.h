// The process list of the main window: binds the report list view (control 5001) to the process data.
//
// Use from the main window, on the UI thread:
//   set-up:   list.Attach(GetDlgItem(main, IDC_PROCESS_LIST), provider); list.RestoreState();
//   WM_NOTIFY LVN_COLUMNCLICK from 5001:  list.OnHeaderClick(nmListView->iSubItem);
//   WM_COMMAND: if (list.OnSortCommand(id)) return;   (sort modes and "Reverse Sort Order")
//   close:    list.SaveSortState(); ... list.SaveColumnOrder();
// The refresh cycle finds the object through the control: ProcessListView::FromControl(list)->Refresh().
#pragma once
#include <windows.h>

#include <atomic>
#include <memory>
#include <optional>

#include "kestrel.h"
#include "process_source.h"
#include "refresh_gate.h"
#include "row_shadow.h"
#include "sort_commands.h"

namespace proclist {

class ProcessListView {
public:
    ProcessListView() = default;
    ~ProcessListView();
    ProcessListView(const ProcessListView&) = delete;
    ProcessListView& operator=(const ProcessListView&) = delete;

    // Sets up the list view: clears the sort mode, sets full-row select and header drag-and-drop, the
    // provider's small icons and the thirteen columns, and stores this object in the control's user data.
    // The control draws from a copy of the provider's image list: the provider adds icons on the refresh
    // thread while the control draws on its own. The copy is taken again, on the control's thread, by the
    // refresh that finds the provider holding more icons; the refresh holds the gate, so the provider
    // (which updates only under the gate) holds still while it is copied. Indexes are the provider's.
    bool Attach(HWND listView, const kestrel::TL_PROCESSLIST& provider);
    bool Attach(HWND listView, std::unique_ptr<ProcessSource> source);
    // The object attached to a list view, or null.
    static ProcessListView* FromControl(HWND listView);

    // Main-window set-up: restores the column order (TaskListColumns, only a block of exactly 52 bytes),
    // the sort mode and direction (TaskListSortMode, TaskListSortReverse), refreshes the list once and
    // puts the check marks of the sort submenu in place.
    void RestoreState();

    // Brings the rows up to date with the current snapshot and re-sorts when a neighbouring pair is out of
    // order. Runs on the UI thread or, while the main window is in the foreground, on the refresh thread.
    int Refresh();

    // A click on the header of the column with this data index.
    void OnHeaderClick(int column);
    // Handles the sort commands and the reverse command; false for any other command.
    bool OnSortCommand(unsigned commandId);
    // Rebuilds the Sort Process List submenu of the main menu (the menu of the list view's parent) with the
    // current mode and reverse flag checked.
    void UpdateSortMenu() const;

    void SaveSortState() const;    // TaskListSortMode, TaskListSortReverse
    void SaveColumnOrder() const;  // TaskListColumns, from the list view's current display order
    void ResetColumnOrder();       // the columns back in their table order, at once

    SortState GetSortState() const;
    void SetSortState(SortState state);
    HWND GetListView() const { return listView_; }
    // The PID of the selected row, none when no row is selected. On the control's own thread it is read
    // from the control, which nothing else changes meanwhile; elsewhere the rows are held still first and
    // the PID comes from the copy of the rows, unless their order is not known for certain.
    std::optional<unsigned> SelectedPid();
    // The same for the row at the selection mark, which is first set to the last row when there is none.
    std::optional<unsigned> MarkedPid();
    // Held by every refresh; the refresh thread also holds it while the provider switches snapshots, so
    // the rows' keys cannot change in the middle of a refresh. The UI thread never waits for it.
    RefreshGate& GetRefreshGate() { return refreshGate_; }

private:
    // Notes rows inserted, deleted or sorted by anyone but this object, so that the next refresh reads the
    // control's rows again instead of asking it for its row count every time.
    static LRESULT CALLBACK ListViewProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    // Runs change (a message that adds, removes or reorders rows) as this object's own change.
    template <typename Change>
    auto OwnRowChange(Change change);
    static int CALLBACK ComparePidsCallback(LPARAM pidA, LPARAM pidB, LPARAM self);
    bool OnControlThread() const;
    template <typename FindRow>
    std::optional<unsigned> PidOfRowFoundBy(FindRow findRow);
    int CompareRows(int rowA, int rowB) const;
    int ComparePids(unsigned pidA, unsigned pidB) const;
    SortKey KeyOfPid(unsigned pid, SortField field) const;
    void RestoreColumnOrder();
    void SyncShadowWithControl();
    std::vector<unsigned> ReadControlPids() const;
    int CountNewRows(int count) const;   // provider items without a row yet
    void RemoveEndedRows();
    int FindOrInsertRow(int index);
    void UpdateRowLayout(int row, int index, bool treeMode);
    void WriteRowCells(int row, int index, bool blankZero, const wchar_t* startTimeFormat);
    void SortIfMisplaced();
    void FollowControlSort();
    // Refresh, holding the gate: has the control's thread copy the provider's icons when it holds more.
    void KeepIconsInStep();
    // On the control's thread only: the copy of the provider's image list replaces the control's.
    void CopyProviderIcons();

    // Written by the UI thread's commands as one value; each refresh orders its rows by the value it read
    // at its start (activeSort_, touched only by the refresh holding the gate), so one refresh never mixes
    // two orders.
    std::atomic<SortState> sortState_{SortState{}};
    SortState activeSort_;
    std::unique_ptr<ProcessSource> source_;
    HWND listView_ = nullptr;
    // What the rows were last given, so unchanged cells and row look-ups cost no message to the control.
    RowShadow shadow_;
    RefreshGate refreshGate_;
    // The control's small icons; replaced only on the control's thread. copiedIcons_ is their count.
    UniqueImageList icons_;
    std::atomic<int> copiedIcons_{0};
    WNDPROC previousListProc_ = nullptr;
    // Set by the control's thread when rows change by another hand (and at first); cleared by the refresh
    // that reads the rows back. The flag of an own change is set around each such message.
    std::atomic<bool> rowsChangedElsewhere_{true};
    std::atomic<bool> changingRows_{false};
};

}  // namespace proclist
