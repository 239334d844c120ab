// Dialog templates: the controls the program addresses by id, the shell font, controls
// inside their dialog, and texts that fit their controls in both languages.
#include <gtest/gtest.h>

#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <string>
#include <vector>

#include "dialog_window.h"
#include "module_resources.h"
#include "resource.h"
#include "resource_templates.h"

namespace lmvx::restest {
namespace {

std::string Narrow(const std::wstring& text) {
    std::string narrow;
    for (wchar_t c : text) narrow.push_back(c < 128 ? static_cast<char>(c) : '?');
    return narrow;
}

DialogTemplate LoadDialog(unsigned id, LANGID language) {
    ResourceBytes bytes = FindResourceBytes(RT_DIALOG, id, language);
    return ParseDialogTemplateEx(bytes.data, bytes.size).value_or(DialogTemplate{});
}

const DialogControl* FindControl(const DialogTemplate& dialog, std::int32_t id) {
    auto it = std::find_if(dialog.controls.begin(), dialog.controls.end(),
                           [id](const DialogControl& control) { return control.id == id; });
    return it == dialog.controls.end() ? nullptr : &*it;
}

class DialogsInLanguage : public ::testing::TestWithParam<LANGID> {
protected:
    static void SetUpTestSuite() { InitControls(); }
    std::set<unsigned> AllDialogs() const { return ResourceIds(RT_DIALOG, GetParam()); }
};

TEST_P(DialogsInLanguage, UseTheShellFont) {
    for (unsigned id : AllDialogs()) {
        DialogTemplate dialog = LoadDialog(id, GetParam());
        EXPECT_EQ(dialog.style & DS_SHELLFONT, static_cast<DWORD>(DS_SHELLFONT)) << "dialog " << id;
        EXPECT_EQ(dialog.fontName, L"MS Shell Dlg") << "dialog " << id;
        EXPECT_EQ(dialog.fontPointSize, 8) << "dialog " << id;
    }
}

TEST_P(DialogsInLanguage, ControlsLieInsideTheirDialog) {
    for (unsigned id : AllDialogs()) {
        DialogTemplate dialog = LoadDialog(id, GetParam());
        ASSERT_FALSE(dialog.controls.empty()) << "dialog " << id;
        for (const DialogControl& control : dialog.controls) {
            EXPECT_GE(control.x, 0) << "dialog " << id << " control " << control.id;
            EXPECT_GE(control.y, 0) << "dialog " << id << " control " << control.id;
            EXPECT_LE(control.x + control.cx, dialog.cx) << "dialog " << id << " control " << control.id;
            // A combo box's height includes its drop-down list.
            if (control.className != L"ComboBox") {
                EXPECT_LE(control.y + control.cy, dialog.cy) << "dialog " << id << " control " << control.id;
            }
        }
    }
}

TEST_P(DialogsInLanguage, WarningDialogHasHeadlineMessageCheckBoxAndOk) {
    DialogTemplate dialog = LoadDialog(IDD_WARNING, GetParam());
    for (int id : {IDC_WARNING_HEADLINE, IDC_WARNING_MESSAGE, IDC_WARNING_DONT_SHOW_AGAIN, IDOK})
        EXPECT_NE(FindControl(dialog, id), nullptr) << "control " << id;
    const DialogControl* box = FindControl(dialog, IDC_WARNING_DONT_SHOW_AGAIN);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->style & BS_TYPEMASK, static_cast<DWORD>(BS_AUTOCHECKBOX));
    if (GetParam() == kEnglish) {
        EXPECT_EQ(FindControl(dialog, IDC_WARNING_HEADLINE)->text, L"Lumivex has encountered a problem.");
        EXPECT_EQ(box->text, L"&Do not show this warning again.");
    }
}

TEST_P(DialogsInLanguage, MainWindowIsAResizableDialogAroundTheProcessList) {
    DialogTemplate dialog = LoadDialog(IDD_MAIN, GetParam());
    DWORD frame = WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX | WS_SYSMENU;
    EXPECT_EQ(dialog.style & frame, frame);
    ASSERT_EQ(dialog.controls.size(), 1u);
    const DialogControl& list = dialog.controls[0];
    EXPECT_EQ(list.id, IDC_PROCESS_LIST);
    EXPECT_EQ(lstrcmpiW(list.className.c_str(), WC_LISTVIEWW), 0);  // the resource compiler upper-cases class names
    EXPECT_EQ(list.style & LVS_TYPEMASK, static_cast<DWORD>(LVS_REPORT));
    EXPECT_TRUE(list.style & LVS_SHOWSELALWAYS);
}

TEST_P(DialogsInLanguage, ConfirmationDialogsShareOneLayoutOfIds) {
    std::vector<std::int32_t> expected{IDOK, IDCANCEL, IDC_CONFIRM_ICON, IDC_CONFIRM_NAME, IDC_CONFIRM_COMPANY,
                                       IDC_CONFIRM_TEXT, IDC_CONFIRM_QUESTION};
    std::sort(expected.begin(), expected.end());
    for (unsigned id : {IDD_CONFIRM_TERMINATE, IDD_CONFIRM_SUSPEND, IDD_CONFIRM_PAGE_OUT}) {
        std::vector<std::int32_t> ids;
        for (const DialogControl& control : LoadDialog(id, GetParam()).controls) ids.push_back(control.id);
        std::sort(ids.begin(), ids.end());
        EXPECT_EQ(ids, expected) << "dialog " << id;
    }
}

TEST_P(DialogsInLanguage, PopupRunAndDetailsPaneCarryTheirControls) {
    struct Expectation {
        unsigned dialog;
        std::vector<int> controls;
    };
    const Expectation expectations[] = {
        {IDD_PERF_POPUP, {IDC_POPUP_VALUE_1, IDC_POPUP_VALUE_2, IDC_POPUP_LABEL_1, IDC_POPUP_LABEL_2, IDC_POPUP_GRAPH, IDC_STATIC}},
        {IDD_RUN, {IDC_RUN_COMMAND, IDC_RUN_AS_CURRENT_USER, IDC_RUN_AS_ADMINISTRATOR, IDC_RUN_BROWSE, IDOK, IDCANCEL}},
        {IDD_DETAILS_PANE, {IDC_PANE_SHOWN_PID, IDC_PANE_PROPERTIES, IDC_PANE_NAME, IDC_PANE_SECOND_LINE, IDC_PANE_ICON_1,
                            IDC_PANE_ICON_2, IDC_PANE_ICON_3, IDC_PANE_ICON_4, IDC_PANE_PRIORITY_LINK, IDC_PANE_PAUSE,
                            IDC_PANE_WINDOWS, IDC_PANE_ICON_BUTTON}},
    };
    for (const Expectation& expectation : expectations) {
        DialogTemplate dialog = LoadDialog(expectation.dialog, GetParam());
        for (int id : expectation.controls)
            EXPECT_NE(FindControl(dialog, id), nullptr) << "dialog " << expectation.dialog << " control " << id;
    }
    // The recent commands go to control 1003, which the Run dialog deliberately lacks.
    EXPECT_EQ(FindControl(LoadDialog(IDD_RUN, GetParam()), IDC_RUN_RECENT_TARGET), nullptr);
}

// Room a control needs beside its text, in pixels.
int DecorationWidth(const wchar_t* className, DWORD style) {
    if (lstrcmpiW(className, L"Button") != 0) return 0;
    switch (style & BS_TYPEMASK) {
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
    case BS_3STATE:
    case BS_AUTO3STATE: return GetSystemMetrics(SM_CXMENUCHECK) + 4;
    case BS_OWNERDRAW: return 21 + 6 + 6;  // icon and margins of the owner-drawn button painter
    default: return 2 * GetSystemMetrics(SM_CXEDGE) + 6;
    }
}

bool ShowsWrappedText(const wchar_t* className, DWORD style) {
    if (lstrcmpiW(className, L"Static") != 0) return false;
    DWORD type = style & SS_TYPEMASK;
    return type == SS_LEFT || type == SS_CENTER || type == SS_RIGHT;
}

bool ShowsSingleLineText(const wchar_t* className, DWORD style) {
    return lstrcmpiW(className, L"Button") == 0 && (style & BS_TYPEMASK) != BS_GROUPBOX;
}

struct ScreenDc {
    HDC dc = GetDC(nullptr);
    ~ScreenDc() { ReleaseDC(nullptr, dc); }
};

struct FontSelection {
    HDC dc;
    HGDIOBJ previous;
    FontSelection(HDC target, HFONT font) : dc(target), previous(SelectObject(target, font)) {}
    ~FontSelection() { SelectObject(dc, previous); }
};

void ExpectTextsFit(HWND dialog, unsigned dialogId) {
    ScreenDc screen;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        wchar_t className[64]{};
        GetClassNameW(child, className, 64);
        DWORD style = static_cast<DWORD>(GetWindowLongPtrW(child, GWL_STYLE));
        int length = GetWindowTextLengthW(child);
        if (length == 0) continue;
        std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
        text.resize(static_cast<std::size_t>(GetWindowTextW(child, text.data(), length + 1)));
        bool wrapped = ShowsWrappedText(className, style);
        if (!wrapped && !ShowsSingleLineText(className, style)) continue;

        RECT client{};
        GetClientRect(child, &client);
        FontSelection font(screen.dc, reinterpret_cast<HFONT>(SendMessageW(child, WM_GETFONT, 0, 0)));
        int room = client.right - DecorationWidth(className, style);
        RECT needed{0, 0, room, 0};
        UINT format = DT_CALCRECT | DT_EXPANDTABS | (wrapped ? DT_WORDBREAK : DT_SINGLELINE);
        if (wrapped && (style & SS_NOPREFIX)) format |= DT_NOPREFIX;
        DrawTextW(screen.dc, text.c_str(), -1, &needed, format);
        std::string where = "dialog " + std::to_string(dialogId) + " control " +
                            std::to_string(GetDlgCtrlID(child)) + " \"" + Narrow(text) + "\"";
        EXPECT_LE(needed.right, room) << where;
        EXPECT_LE(needed.bottom, client.bottom) << where;
    }
}

TEST_P(DialogsInLanguage, TextsFitTheirControls) {
    for (unsigned id : AllDialogs()) {
        DialogWindow window = CreateDialogInLanguage(id, GetParam());
        EXPECT_TRUE(window.dialog) << "dialog " << id << " error " << GetLastError();
        if (window.dialog) ExpectTextsFit(window.dialog.get(), id);
    }
}

TEST_P(DialogsInLanguage, MainWindowCreatesARealListView) {
    DialogWindow window = CreateDialogInLanguage(IDD_MAIN, GetParam());
    ASSERT_TRUE(window.dialog);
    HWND list = GetDlgItem(window.dialog.get(), IDC_PROCESS_LIST);
    ASSERT_NE(list, nullptr);
    wchar_t className[64]{};
    GetClassNameW(list, className, 64);
    EXPECT_STREQ(className, WC_LISTVIEWW);
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = const_cast<wchar_t*>(L"Process");
    column.cx = 100;
    EXPECT_EQ(SendMessageW(list, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column)), 0);
}

INSTANTIATE_TEST_SUITE_P(BothLanguages, DialogsInLanguage, ::testing::Values(kEnglish, kGerman));

}  // namespace
}  // namespace lmvx::restest
