#include "process_list_view.h"

#include <commctrl.h>

#include "app/option_keys.h"
#include "column_table.h"
#include "command_ids.h"
#include "finch.h"
#include "kestrel_process_source.h"
#include "menu_builder.h"
#include "sort_check.h"
#include "string_ids.h"
#include "text_compare.h"
#include "wren.h"

namespace proclist {
namespace {

namespace options = lmvx::options;

bool ReadRowPid(HWND listView, int row, unsigned* pid) {
    LVITEMW item = {};
    item.mask = LVIF_PARAM;
    item.iItem = row;
    if (!ListView_GetItem(listView, &item)) return false;
    *pid = static_cast<unsigned>(item.lParam);
    return true;
}

const wchar_t* HeaderText(const ColumnSpec& column) {
    if (column.headerStringId == 0) return wren::HardcodeLangString(L"I/O", L"E/A");
    return UIL_LangModule.GetLangString(column.headerStringId);
}

// Posted to the control by the gate's holder when a refresh of the UI thread had to give way to it.
constexpr UINT kRetryRefreshMessage = WM_APP + 0x101;
// Sent to the control by a refresh holding the gate: copy the provider's icons on the control's thread.
constexpr UINT kCopyIconsMessage = WM_APP + 0x102;

// Rows a refresh must add before the control stops drawing until the refresh is done.
constexpr int kRowsWorthARedrawPause = 16;

// WM_SETREDRAW off for its life when asked to, then on again and the whole control repainted once.
class RedrawPause {
public:
    RedrawPause(HWND control, bool pause) : control_(pause ? control : nullptr) {
        if (control_) SendMessageW(control_, WM_SETREDRAW, FALSE, 0);
    }
    ~RedrawPause() {
        if (!control_) return;
        SendMessageW(control_, WM_SETREDRAW, TRUE, 0);
        RedrawWindow(control_, nullptr, nullptr, RDW_ERASE | RDW_FRAME | RDW_INVALIDATE | RDW_ALLCHILDREN);
    }
    RedrawPause(const RedrawPause&) = delete;
    RedrawPause& operator=(const RedrawPause&) = delete;

private:
    HWND control_;
};

}  // namespace

ProcessListView::~ProcessListView() {
    if (listView_ && IsWindow(listView_) && FromControl(listView_) == this) {
        if (previousListProc_) {
            SetWindowLongPtrW(listView_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previousListProc_));
        }
        SetWindowLongPtrW(listView_, GWLP_USERDATA, 0);
        ListView_SetImageList(listView_, nullptr, LVSIL_SMALL);   // the icons below go with this object
    }
}

LRESULT CALLBACK ProcessListView::ListViewProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    ProcessListView* self = FromControl(window);
    if (!self || !self->previousListProc_) return DefWindowProcW(window, message, wParam, lParam);
    switch (message) {
    case kRetryRefreshMessage:
        self->Refresh();
        return 0;
    case kCopyIconsMessage:
        self->CopyProviderIcons();
        return 0;
    case LVM_INSERTITEMA:
    case LVM_INSERTITEMW:
    case LVM_DELETEITEM:
    case LVM_DELETEALLITEMS:
    case LVM_SORTITEMS:
    case LVM_SORTITEMSEX:
        if (!self->changingRows_) self->rowsChangedElsewhere_ = true;
        break;
    default:
        break;
    }
    return CallWindowProcW(self->previousListProc_, window, message, wParam, lParam);
}

template <typename Change>
auto ProcessListView::OwnRowChange(Change change) {
    changingRows_ = true;
    const auto result = change();
    changingRows_ = false;
    return result;
}

bool ProcessListView::OnControlThread() const {
    return GetWindowThreadProcessId(listView_, nullptr) == GetCurrentThreadId();
}

template <typename FindRow>
std::optional<unsigned> ProcessListView::PidOfRowFoundBy(FindRow findRow) {
    if (!listView_) return std::nullopt;
    std::optional<RefreshGate::Pass> pass;
    // Elsewhere, the rows hold still first, so that the row number and its PID belong together.
    if (!OnControlThread()) pass.emplace(refreshGate_);
    const int row = findRow();
    if (row < 0) return std::nullopt;
    if (pass && !rowsChangedElsewhere_ && row < shadow_.Count()) return shadow_.PidAt(row);
    unsigned pid = 0;
    if (!ReadRowPid(listView_, row, &pid)) return std::nullopt;
    return pid;
}

std::optional<unsigned> ProcessListView::SelectedPid() {
    return PidOfRowFoundBy([this] { return ListView_GetNextItem(listView_, -1, LVNI_SELECTED); });
}

std::optional<unsigned> ProcessListView::MarkedPid() {
    return PidOfRowFoundBy([this] {
        int mark = ListView_GetSelectionMark(listView_);
        if (mark < 0) {
            mark = ListView_GetItemCount(listView_) - 1;
            if (mark >= 0) ListView_SetSelectionMark(listView_, mark);
        }
        return mark;
    });
}

bool ProcessListView::Attach(HWND listView, const kestrel::TL_PROCESSLIST& provider) {
    return Attach(listView, std::make_unique<KestrelProcessSource>(provider));
}

bool ProcessListView::Attach(HWND listView, std::unique_ptr<ProcessSource> source) {
    if (!listView || !source) return false;
    sortState_ = SortState{};
    listView_ = listView;
    source_ = std::move(source);
    refreshGate_.SetUiWindow(listView_, kRetryRefreshMessage);
    SetWindowLongPtrW(listView_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    rowsChangedElsewhere_ = true;
    if (!previousListProc_) {
        previousListProc_ = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(listView_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(ListViewProc)));
    }

    ListView_SetExtendedListViewStyle(listView_, LVS_EX_FULLROWSELECT | LVS_EX_HEADERDRAGDROP);
    // This object owns the icons; the control must not destroy them with itself.
    const LONG_PTR style = GetWindowLongPtrW(listView_, GWL_STYLE);
    SetWindowLongPtrW(listView_, GWL_STYLE, style | LVS_SHAREIMAGELISTS);
    CopyProviderIcons();

    const auto& columns = ProcessListColumns();
    for (int index = 0; index < kColumnCount; ++index) {
        const ColumnSpec& column = columns[index];
        UIP_ListViewAddColumn(listView_, index, HeaderText(column), column.width, static_cast<int>(column.alignment));
    }
    return true;
}

ProcessListView* ProcessListView::FromControl(HWND listView) {
    if (!listView) return nullptr;
    return reinterpret_cast<ProcessListView*>(GetWindowLongPtrW(listView, GWLP_USERDATA));
}

void ProcessListView::RestoreState() {
    RestoreColumnOrder();
    SortState stored;
    stored.mode = wren::regOptions.GetOptionDWORD(options::TaskListSortMode.name, options::TaskListSortMode.defaultValue);
    stored.reverse = wren::regOptions.GetOptionBOOL(options::TaskListSortReverse.name,
                                                    options::TaskListSortReverse.defaultValue) != 0;
    sortState_ = stored;
    Refresh();
    UpdateSortMenu();
}

void ProcessListView::RestoreColumnOrder() {
    int order[kColumnCount] = {};
    unsigned bytesRead = 0;
    wren::regOptions.GetOptionBINARY(options::TaskListColumns.name, order, sizeof(order), &bytesRead);
    // Decided by the size read, never by the result: a block of any other size is ignored.
    if (bytesRead != options::TaskListColumns.requiredSize) return;
    ListView_SetColumnOrderArray(listView_, kColumnCount, order);
}

void ProcessListView::ResetColumnOrder() {
    int order[kColumnCount] = {};
    for (int index = 0; index < kColumnCount; ++index) order[index] = index;
    ListView_SetColumnOrderArray(listView_, kColumnCount, order);
    InvalidateRect(listView_, nullptr, TRUE);
}

void ProcessListView::SaveColumnOrder() const {
    int order[kColumnCount] = {};
    ListView_GetColumnOrderArray(listView_, kColumnCount, order);
    wren::regOptions.SetOptionBINARY(options::TaskListColumns.name, order, sizeof(order));
}

void ProcessListView::SaveSortState() const {
    const SortState state = sortState_;
    wren::regOptions.SetOptionDWORD(options::TaskListSortMode.name, state.mode);
    wren::regOptions.SetOptionBOOL(options::TaskListSortReverse.name, state.reverse ? 1 : 0);
}

SortState ProcessListView::GetSortState() const {
    return sortState_;
}

void ProcessListView::SetSortState(SortState state) {
    sortState_ = state;
}

int ProcessListView::Refresh() {
    if (!listView_ || !source_) return 0;
    const RefreshGate::Pass pass(refreshGate_);
    if (!pass.Held()) return 0;
    activeSort_ = sortState_;
    const bool blankZero = wren::regOptions.GetOptionBOOL(options::BlankZero.name, options::BlankZero.defaultValue);
    // Read like every other option of the list; memory is shown in KB whatever it says.
    wren::regOptions.GetOptionBOOL(options::PreferMB.name, options::PreferMB.defaultValue);
    const wchar_t* startTimeFormat = UIL_LangModule.GetLangString(IDS_START_TIME_FORMAT);
    const bool treeMode = activeSort_.mode == kSortProcessTree;

    SyncShadowWithControl();
    KeepIconsInStep();
    const int count = source_->GetItemCount();
    // Many new rows at once (the first refresh, a burst of new processes): the control would repaint after
    // each of the hundreds of messages that fill them, so it draws once at the end instead.
    const RedrawPause pause(listView_, CountNewRows(count) >= kRowsWorthARedrawPause);
    RemoveEndedRows();
    for (int index = 0; index < count; ++index) {
        const int row = FindOrInsertRow(index);
        if (row < 0) continue;
        UpdateRowLayout(row, index, treeMode);
        WriteRowCells(row, index, blankZero, startTimeFormat);
    }
    SortIfMisplaced();
    return 1;
}

void ProcessListView::KeepIconsInStep() {
    // The provider only ever adds icons, so a copy with as many holds every index the rows can name.
    if (ImageList_GetImageCount(source_->GetImageList()) != copiedIcons_) {
        SendMessageW(listView_, kCopyIconsMessage, 0, 0);
    }
}

void ProcessListView::CopyProviderIcons() {
    HIMAGELIST provider = source_->GetImageList();
    UniqueImageList copy(provider ? ImageList_Duplicate(provider) : nullptr);
    if (!copy) return;
    ListView_SetImageList(listView_, copy.Get(), LVSIL_SMALL);
    copiedIcons_ = ImageList_GetImageCount(copy.Get());
    icons_ = std::move(copy);   // the old copy goes only now that the control no longer draws from it
}

int ProcessListView::CountNewRows(int count) const {
    int fresh = 0;
    for (int index = 0; index < count; ++index) {
        if (shadow_.FindRow(source_->GetItemPid(index)) < 0) ++fresh;
    }
    return fresh;
}

void ProcessListView::SyncShadowWithControl() {
    // Rows added, removed or sorted by anyone else make the copy start again from the control's PIDs,
    // with every cell unknown.
    if (rowsChangedElsewhere_.exchange(false)) shadow_.ResetToPids(ReadControlPids());
}

std::vector<unsigned> ProcessListView::ReadControlPids() const {
    const int rowCount = ListView_GetItemCount(listView_);
    std::vector<unsigned> pids;
    pids.reserve(static_cast<size_t>(rowCount > 0 ? rowCount : 0));
    for (int row = 0; row < rowCount; ++row) {
        unsigned pid = 0;
        ReadRowPid(listView_, row, &pid);
        pids.push_back(pid);
    }
    return pids;
}

void ProcessListView::RemoveEndedRows() {
    // Intended: one forward pass that always advances, so the row moving up into a deleted row's place
    // waits for the next refresh.
    for (int row = 0; row < shadow_.Count(); ++row) {
        if (source_->GetItemByPid(shadow_.PidAt(row)) == -1 &&
            OwnRowChange([&] { return ListView_DeleteItem(listView_, row); })) {
            shadow_.Erase(row);
        }
    }
}

int ProcessListView::FindOrInsertRow(int index) {
    const unsigned pid = source_->GetItemPid(index);
    const int row = shadow_.FindRow(pid);
    if (row >= 0) return row;

    // New processes start at the top; the order check moves them to their place.
    const std::wstring imageName = source_->GetItemRowValues(index).imageName;
    LVITEMW item = {};
    item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
    item.iItem = 0;
    item.pszText = const_cast<wchar_t*>(imageName.c_str());
    item.iImage = source_->GetItemImageListIndex(index);
    item.lParam = static_cast<LPARAM>(pid);
    const int inserted = OwnRowChange([&] { return ListView_InsertItem(listView_, &item); });
    if (inserted >= 0) shadow_.Insert(inserted, pid, item.iImage, imageName);
    return inserted;
}

void ProcessListView::UpdateRowLayout(int row, int index, bool treeMode) {
    const int wantedIndent = treeMode ? source_->GetItemTreeDepth(index) : 0;
    if (shadow_.IsIndentDifferent(row, wantedIndent)) {
        LVITEMW indent = {};
        indent.mask = LVIF_INDENT;
        indent.iItem = row;
        indent.iIndent = wantedIndent;
        if (ListView_SetItem(listView_, &indent)) shadow_.RecordIndent(row, wantedIndent);
    }
    const int wantedImage = source_->GetItemImageListIndex(index);
    if (shadow_.IsImageDifferent(row, wantedImage)) {
        LVITEMW image = {};
        image.mask = LVIF_IMAGE;
        image.iItem = row;
        image.iImage = wantedImage;
        if (ListView_SetItem(listView_, &image)) shadow_.RecordImage(row, wantedImage);
    }
}

void ProcessListView::WriteRowCells(int row, int index, bool blankZero, const wchar_t* startTimeFormat) {
    const auto cells = FormatRowCells(source_->GetItemRowValues(index), blankZero, startTimeFormat);
    for (int column = 0; column < kColumnCount; ++column) {
        if (!shadow_.IsCellDifferent(row, column, cells[column])) continue;
        if (wren::ListViewSetItemText(listView_, row, column, cells[column].c_str())) {
            shadow_.RecordCell(row, column, cells[column]);
        } else {
            shadow_.ForgetCell(row, column);
        }
    }
}

void ProcessListView::SortIfMisplaced() {
    const int rowCount = shadow_.Count();
    const int misplaced = FindMisplacedPair(rowCount, [this](int a, int b) { return CompareRows(a, b); });
    if (misplaced >= 0) {
        // The sort hands the callback the rows' PIDs rather than positions: Wine's LVM_SORTITEMSEX passes
        // positions of the unsorted list while it merges moved rows, which sorts wrongly.
        OwnRowChange(
            [&] { return ListView_SortItems(listView_, ComparePidsCallback, reinterpret_cast<LPARAM>(this)); });
        FollowControlSort();
    }
}

void ProcessListView::FollowControlSort() {
    // When no two rows compare equal there is only one sorted order, so the copy sorts itself to it;
    // otherwise the control's order among equal rows is its own and is read back.
    const unsigned mode = activeSort_.mode;
    const bool reverse = activeSort_.reverse;
    const SortField field = SortFieldOfMode(mode);
    std::vector<SortKey> keys;
    keys.reserve(static_cast<size_t>(shadow_.Count()));
    for (int row = 0; row < shadow_.Count(); ++row) keys.push_back(KeyOfPid(shadow_.PidAt(row), field));
    bool unique = false;
    const std::vector<int> order = SortedRowOrder(
        keys,
        [mode, reverse](const SortKey& a, const SortKey& b) {
            return CompareSortKeys(mode, reverse, a, b, CompareTextDefaultLocale);
        },
        &unique);
    if (unique) {
        shadow_.Permute(order);
    } else {
        shadow_.Reorder(ReadControlPids());
    }
}

int CALLBACK ProcessListView::ComparePidsCallback(LPARAM pidA, LPARAM pidB, LPARAM self) {
    return reinterpret_cast<const ProcessListView*>(self)->ComparePids(static_cast<unsigned>(pidA),
                                                                        static_cast<unsigned>(pidB));
}

int ProcessListView::CompareRows(int rowA, int rowB) const {
    return ComparePids(shadow_.PidAt(rowA), shadow_.PidAt(rowB));
}

int ProcessListView::ComparePids(unsigned pidA, unsigned pidB) const {
    const unsigned mode = activeSort_.mode;
    const SortField field = SortFieldOfMode(mode);
    return CompareSortKeys(mode, activeSort_.reverse, KeyOfPid(pidA, field), KeyOfPid(pidB, field),
                           CompareTextDefaultLocale);
}

SortKey ProcessListView::KeyOfPid(unsigned pid, SortField field) const {
    SortKey key;
    key.pid = pid;
    key.itemIndex = source_->GetItemByPid(pid);
    // A process that has just ended keeps the empty key; its row leaves at the next refresh.
    if (key.itemIndex >= 0) source_->FillSortKey(key.itemIndex, field, key);
    return key;
}

void ProcessListView::OnHeaderClick(int column) {
    SetSortState(ApplyHeaderClick(GetSortState(), column));
    Refresh();
    UpdateSortMenu();
}

bool ProcessListView::OnSortCommand(unsigned commandId) {
    const auto state = ApplySortCommand(GetSortState(), commandId);
    if (!state) return false;
    SetSortState(*state);
    Refresh();
    UpdateSortMenu();
    return true;
}

void ProcessListView::UpdateSortMenu() const {
    HMENU mainMenu = GetMenu(GetParent(listView_));
    HMENU parent = nullptr;
    UINT position = 0;
    if (!mainMenu || !FindPopupHolding(mainMenu, IDM_SORT_PROCESS_TREE, &parent, &position)) return;
    wchar_t title[256] = {};
    GetMenuStringW(parent, position, title, static_cast<int>(std::size(title)), MF_BYPOSITION);
    ReplacePopupAt(parent, position, CreatePopupFromItems(SortMenuItems(GetSortState())), title);
}

}  // namespace proclist
