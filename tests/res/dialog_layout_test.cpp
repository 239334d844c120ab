// The program's dialogs, created hidden in both languages and read back: the shell font, controls inside
// their dialog, texts that fit their controls, the controls the program addresses by id, and German dialogs
// that match the English ones control for control.
#include <gtest/gtest.h>

#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "dialog_window.h"
#include "module_resources.h"
#include "resource.h"
#include "window_texts.h"

namespace lmvx::restest {
namespace {

std::string Narrow(const std::wstring& text) { return std::string(text.begin(), text.end()); }

std::wstring ClassOf(HWND window) {
    wchar_t name[64]{};
    GetClassNameW(window, name, 64);
    return name;
}

using lmvx_test::WindowText;

DWORD StyleOf(HWND window) { return static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)); }

// The controls of the template (the windows controls make of their own are their children, not the dialog's).
std::vector<HWND> ControlsOf(HWND dialog) {
    std::vector<HWND> controls;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) controls.push_back(child);
    return controls;
}

std::vector<int> SortedIds(HWND dialog) {
    std::vector<int> ids;
    for (HWND control : ControlsOf(dialog)) ids.push_back(GetDlgCtrlID(control));
    std::sort(ids.begin(), ids.end());
    return ids;
}

// Room a control needs beside its text, in pixels.
int DecorationWidth(const std::wstring& className, DWORD style) {
    if (lstrcmpiW(className.c_str(), L"Button") != 0) return 0;
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

void ExpectTextFits(HWND control, const std::string& where) {
    const std::wstring className = ClassOf(control), text = WindowText(control);
    const DWORD style = StyleOf(control);
    const DWORD staticType = style & SS_TYPEMASK;
    const bool wrapped = lstrcmpiW(className.c_str(), L"Static") == 0 &&
                         (staticType == SS_LEFT || staticType == SS_CENTER || staticType == SS_RIGHT);
    const bool singleLine = lstrcmpiW(className.c_str(), L"Button") == 0 && (style & BS_TYPEMASK) != BS_GROUPBOX;
    if (text.empty() || (!wrapped && !singleLine)) return;
    RECT client{};
    GetClientRect(control, &client);
    HDC dc = GetDC(nullptr);
    HGDIOBJ previous = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    const int room = client.right - DecorationWidth(className, style);
    RECT needed{0, 0, room, 0};
    UINT format = DT_CALCRECT | DT_EXPANDTABS | (wrapped ? DT_WORDBREAK : DT_SINGLELINE);
    if (wrapped && (style & SS_NOPREFIX)) format |= DT_NOPREFIX;
    DrawTextW(dc, text.c_str(), -1, &needed, format);
    SelectObject(dc, previous);
    ReleaseDC(nullptr, dc);
    EXPECT_LE(needed.right, room) << where << " \"" << Narrow(text) << "\"";
    EXPECT_LE(needed.bottom, client.bottom) << where << " \"" << Narrow(text) << "\"";
}

// Every dialog in both languages, created once for all tests here.
class Dialogs : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        InitControls();
        for (LANGID language : {kEnglish, kGerman}) {
            for (unsigned id : ResourceIds(RT_DIALOG, language)) windows_[{id, language}] = CreateDialogInLanguage(id, language);
        }
    }
    static void TearDownTestSuite() { windows_.clear(); }
    static HWND Dialog(unsigned id, LANGID language) {
        const auto found = windows_.find({id, language});
        return found == windows_.end() ? nullptr : found->second.dialog.get();
    }
    static inline std::map<std::pair<unsigned, LANGID>, DialogWindow> windows_;
};

TEST_F(Dialogs, UseTheShellFontKeepTheirControlsInsideAndTheirTextsFit) {
    HDC screen = GetDC(nullptr);
    const int eightPoints = -MulDiv(8, GetDeviceCaps(screen, LOGPIXELSY), 72);
    ReleaseDC(nullptr, screen);
    for (const auto& [key, window] : windows_) {
        HWND dialog = window.dialog.get();
        const std::string where = "dialog " + std::to_string(key.first) + " language " + std::to_string(key.second);
        ASSERT_TRUE(dialog) << where << " cannot be created";
        EXPECT_EQ(StyleOf(dialog) & DS_SHELLFONT, static_cast<DWORD>(DS_SHELLFONT)) << where;
        LOGFONTW font{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0)), sizeof font, &font);
        EXPECT_STREQ(font.lfFaceName, L"MS Shell Dlg") << where;
        EXPECT_EQ(font.lfHeight, eightPoints) << where;
        RECT inside{};
        GetClientRect(dialog, &inside);
        ASSERT_FALSE(ControlsOf(dialog).empty()) << where;
        for (HWND control : ControlsOf(dialog)) {
            const std::string which = where + " control " + std::to_string(GetDlgCtrlID(control));
            RECT rect{};
            GetWindowRect(control, &rect);
            MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
            EXPECT_GE(rect.left, 0) << which;
            EXPECT_GE(rect.top, 0) << which;
            EXPECT_LE(rect.right, inside.right) << which;
            EXPECT_LE(rect.bottom, inside.bottom) << which;
            ExpectTextFits(control, which);
        }
    }
}

TEST_F(Dialogs, GermanHasTheDialogsOfEnglishWithTheSameControlsStyleAndSize) {
    for (unsigned id : ResourceIds(RT_DIALOG, kEnglish)) {
        HWND english = Dialog(id, kEnglish), german = Dialog(id, kGerman);
        ASSERT_TRUE(english && german) << "dialog " << id;
        EXPECT_EQ(SortedIds(english), SortedIds(german)) << "dialog " << id;
        EXPECT_EQ(StyleOf(english), StyleOf(german)) << "dialog " << id;
        RECT englishSize{}, germanSize{};
        GetClientRect(english, &englishSize);
        GetClientRect(german, &germanSize);
        EXPECT_TRUE(EqualRect(&englishSize, &germanSize)) << "dialog " << id;
    }
}

TEST_F(Dialogs, CarryTheControlsTheProgramAddresses) {
    const struct {
        unsigned dialog;
        std::vector<int> controls;
    } expectations[] = {
        {IDD_WARNING, {IDC_WARNING_HEADLINE, IDC_WARNING_MESSAGE, IDC_WARNING_DONT_SHOW_AGAIN, IDOK}},
        {IDD_PERF_POPUP, {IDC_POPUP_VALUE_1, IDC_POPUP_VALUE_2, IDC_POPUP_LABEL_1, IDC_POPUP_LABEL_2, IDC_POPUP_GRAPH, IDC_STATIC}},
        {IDD_RUN, {IDC_RUN_COMMAND, IDC_RUN_AS_CURRENT_USER, IDC_RUN_AS_ADMINISTRATOR, IDC_RUN_BROWSE, IDOK, IDCANCEL}},
        {IDD_DETAILS_PANE, {IDC_PANE_SHOWN_PID, IDC_PANE_PROPERTIES, IDC_PANE_NAME, IDC_PANE_SECOND_LINE, IDC_PANE_ICON_1,
                            IDC_PANE_ICON_2, IDC_PANE_ICON_3, IDC_PANE_ICON_4, IDC_PANE_PRIORITY_LINK, IDC_PANE_PAUSE,
                            IDC_PANE_WINDOWS, IDC_PANE_ICON_BUTTON}},
    };
    std::vector<int> confirmIds{IDOK, IDCANCEL, IDC_CONFIRM_ICON, IDC_CONFIRM_NAME, IDC_CONFIRM_COMPANY,
                                IDC_CONFIRM_TEXT, IDC_CONFIRM_QUESTION};
    std::sort(confirmIds.begin(), confirmIds.end());
    for (LANGID language : {kEnglish, kGerman}) {
        SCOPED_TRACE(language);
        for (const auto& expectation : expectations) {
            for (int id : expectation.controls)
                EXPECT_NE(GetDlgItem(Dialog(expectation.dialog, language), id), nullptr) << "dialog " << expectation.dialog << " control " << id;
        }
        // The recent commands go to control 1003, which the Run dialog deliberately lacks.
        EXPECT_EQ(GetDlgItem(Dialog(IDD_RUN, language), IDC_RUN_RECENT_TARGET), nullptr);
        HWND box = GetDlgItem(Dialog(IDD_WARNING, language), IDC_WARNING_DONT_SHOW_AGAIN);
        EXPECT_EQ(StyleOf(box) & BS_TYPEMASK, static_cast<DWORD>(BS_AUTOCHECKBOX));
        for (unsigned id : {IDD_CONFIRM_TERMINATE, IDD_CONFIRM_SUSPEND, IDD_CONFIRM_PAGE_OUT})
            EXPECT_EQ(SortedIds(Dialog(id, language)), confirmIds) << "dialog " << id;

        // The main window: a resizable dialog around a real report list view.
        HWND main = Dialog(IDD_MAIN, language);
        const DWORD frame = WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX | WS_SYSMENU;
        EXPECT_EQ(StyleOf(main) & frame, frame);
        ASSERT_EQ(SortedIds(main), std::vector<int>{IDC_PROCESS_LIST});
        HWND list = GetDlgItem(main, IDC_PROCESS_LIST);
        EXPECT_EQ(ClassOf(list), WC_LISTVIEWW);
        EXPECT_EQ(StyleOf(list) & LVS_TYPEMASK, static_cast<DWORD>(LVS_REPORT));
        EXPECT_TRUE(StyleOf(list) & LVS_SHOWSELALWAYS);
        LVCOLUMNW column{LVCF_TEXT | LVCF_WIDTH, 0, 100, const_cast<wchar_t*>(L"Process")};
        EXPECT_EQ(SendMessageW(list, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column)), 0);
    }
    HWND warning = Dialog(IDD_WARNING, kEnglish);
    EXPECT_EQ(WindowText(GetDlgItem(warning, IDC_WARNING_HEADLINE)), L"Lumivex has encountered a problem.");
    EXPECT_EQ(WindowText(GetDlgItem(warning, IDC_WARNING_DONT_SHOW_AGAIN)), L"&Do not show this warning again.");
}

}  // namespace
}  // namespace lmvx::restest
