// The memory viewer, the Virtual Memory page and the Strings page as real dialogs with the program's
// resources, on a child process that holds known strings.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "finch.h"
#include "memory/image_string_scan.h"
#include "memory/memory_viewer.h"
#include "memory/memory_viewer_context.h"
#include "memory/region_text.h"
#include "memory/string_set.h"
#include "memory/strings_page.h"
#include "memory/virtual_memory_page.h"
#include "memory_child.h"
#include "props/properties_context.h"
#include "resource.h"
#include "window_texts.h"
#include "wren.h"

namespace {

class MemoryWindows : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        wren::SetAppInfo(L"Lumivex Memory Test", L"LumivexMemoryTest", L"1.0", 1000, L"test");
        UIL_LangModule.Init(GetModuleHandleW(nullptr), L"LumivexMemoryTest", L"test", UIL_LANGMODULE::English);
        INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_LISTVIEW_CLASSES | ICC_PROGRESS_CLASS | ICC_STANDARD_CLASSES};
        InitCommonControlsEx(&controls);
    }
    void SetUp() override { ASSERT_TRUE(child.Ready()); }

    static std::wstring Text(HWND dialog, int id) {
        HWND control = GetDlgItem(dialog, id);
        std::vector<wchar_t> text(static_cast<size_t>(GetWindowTextLengthW(control)) + 1);
        GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
        return text.data();
    }
    static void Read(HWND dialog, const std::wstring& address) {
        SetDlgItemTextW(dialog, IDC_MEM_ADDRESS, address.c_str());
        SendMessageW(dialog, WM_COMMAND, IDOK, 0);
    }
    static std::wstring Hex(uint64_t value) {
        wchar_t text[32];
        swprintf(text, 32, L"%llX", static_cast<unsigned long long>(value));
        return text;
    }

    memory_test::MemoryChild child;
};

TEST_F(MemoryWindows, ViewerDumpsTheBytesAtAnAddressAndDescribesItsRegion) {
    lmvx::MemoryViewerContext context;
    context.processId = child.Pid();
    lmvx::UniqueWindow viewer(UIL_LangModule.LoadDialogParam(IDD_MEMORY_VIEWER, nullptr, lmvx::MemoryViewerProc,
                                                             reinterpret_cast<LPARAM>(&context)));
    ASSERT_TRUE(viewer);
    HWND dialog = viewer.Get();
    EXPECT_EQ(Text(dialog, IDC_MEM_ADDRESS), L"0x00400000");
    Read(dialog, L"0x" + Hex(child.Ascii()) + L"  [Private: 65536 Bytes]");
    const unsigned low = static_cast<unsigned>(child.Ascii());
    const std::wstring dump = Text(dialog, IDC_MEM_DUMP);
    wchar_t firstLine[80];
    swprintf(firstLine, 80, L"%.8X 4C756D6976657841 736369694D61726B LumivexAsciiMark\r\n", low);
    EXPECT_EQ(dump.substr(0, 61), firstLine);
    EXPECT_EQ(dump.size(), (0x10000u - 0x100) / 16 * 61);
    EXPECT_EQ(Text(dialog, IDC_MEM_STATE), L"MEM_COMMIT");
    EXPECT_EQ(Text(dialog, IDC_MEM_TYPE), L"MEM_PRIVATE");
    EXPECT_EQ(Text(dialog, IDC_MEM_PROTECT), L"PAGE_READWRITE");
    EXPECT_EQ(Text(dialog, IDC_MEM_BASE_ADDRESS), lmvx::Hex32Text(child.Committed()));

    // A reserved region: no bytes, the region's own fields; the allocation base link reads it back.
    Read(dialog, Hex(child.Reserved() + 0x20));
    EXPECT_EQ(Text(dialog, IDC_MEM_STATE), L"MEM_RESERVE");
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDC_MEM_ALLOCATION_BASE, STN_CLICKED), 0);
    EXPECT_EQ(Text(dialog, IDC_MEM_ADDRESS), lmvx::Hex32Text(child.Reserved()));

    // Text that does not parse is address 0, which is free.
    Read(dialog, L"nothing");
    EXPECT_EQ(Text(dialog, IDC_MEM_ADDRESS), L"0x00000000");
    EXPECT_EQ(Text(dialog, IDC_MEM_STATE), L"MEM_FREE");
    EXPECT_EQ(Text(dialog, IDC_MEM_TYPE), L"Undefined");
    EXPECT_EQ(Text(dialog, IDC_MEM_PROTECT), L"Undefined");
}

class PropertyPages : public MemoryWindows {
protected:
    void SetUp() override {
        MemoryWindows::SetUp();
        ASSERT_EQ(processList.Init(), 1);
        ASSERT_TRUE(lmvx_test::PumpUntil([this] { return processList.Update() && processList.GetItemByPID(child.Pid()) >= 0; }, 20000));
        context.pid = child.Pid();
        context.processList = &processList;
        context.refreshInterval = 60000;
        host.Reset(CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW, 0, 0, 700, 500, nullptr, nullptr,
                                   nullptr, nullptr));
    }
    void TearDown() override { processList.Delete(); }

    HWND CreatePage(unsigned dialogId, DLGPROC procedure) {
        page.Reset(UIL_LangModule.LoadDialogParam(dialogId, host.Get(), procedure, reinterpret_cast<LPARAM>(&context)));
        return page.Get();
    }

    kestrel::TL_PROCESSLIST processList;
    lmvx::ProcessPropertiesContext context;
    lmvx::UniqueWindow host;
    lmvx::UniqueWindow page;
};

TEST_F(PropertyPages, VirtualMemoryPageDumpsOnePageAndStepsOverUncommittedMemory) {
    HWND vm = CreatePage(IDD_PAGE_VIRTUAL_MEMORY, lmvx::VirtualMemoryPageProc);
    ASSERT_TRUE(vm);
    EXPECT_EQ(context.virtualMemoryPage, vm);
    Read(vm, Hex(child.Ascii()));
    const std::wstring description = Text(vm, IDC_MEM_ADDRESS);
    EXPECT_EQ(description, L"0x" + std::wstring(16 - Hex(child.Ascii()).size(), L'0') + Hex(child.Ascii()) + L" (MEM_PRIVATE)");
    const std::wstring dump = Text(vm, IDC_MEM_DUMP);
    EXPECT_EQ(dump.substr(0, 9), L":" + lmvx::Hex32Text(child.Ascii()).substr(2));
    EXPECT_EQ(dump.substr(44, 16), L"LumivexAsciiMark");
    EXPECT_EQ(dump.size(), 4096u / 16 * 62);
    // The described address reads again as the same address.
    SendMessageW(vm, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(Text(vm, IDC_MEM_ADDRESS), description);

    // From the reserved region "»" goes on to the start of the committed one.
    SetDlgItemTextW(vm, IDC_MEM_ADDRESS, Hex(child.Reserved()).c_str());
    SendMessageW(vm, WM_COMMAND, IDC_VM_NEXT_PAGE, 0);
    EXPECT_EQ(lmvx::ParseHexAddress(Text(vm, IDC_MEM_ADDRESS)), child.Committed());
    SendMessageW(vm, WM_COMMAND, IDC_VM_NEXT_PAGE, 0);
    EXPECT_EQ(lmvx::ParseHexAddress(Text(vm, IDC_MEM_ADDRESS)), child.Committed() + 4096);
    // "«" into the reserved region lands one page before the base the query gives there: its own page.
    SetDlgItemTextW(vm, IDC_MEM_ADDRESS, Hex(child.Committed()).c_str());
    SendMessageW(vm, WM_COMMAND, IDC_VM_PREVIOUS_PAGE, 0);
    EXPECT_EQ(lmvx::ParseHexAddress(Text(vm, IDC_MEM_ADDRESS)), child.Committed() - 8192);

    child.Process().End();
    SendMessageW(vm, WM_COMMAND, IDOK, 0);
    // Whether the ended process can still be opened or not, the dump field says why nothing shows.
    EXPECT_EQ(Text(vm, IDC_MEM_DUMP).rfind(L"Unable to read memory from the ", 0), 0u);
}

TEST_F(PropertyPages, StringsPageListsTheImageStringsAndFilters) {
    const std::wstring path = processList.GetItemPathName(processList.GetItemByPID(child.Pid()));
    lmvx::StringSet* expected = lmvx::StringSetCreate();
    ASSERT_EQ(lmvx::LoadImageStrings(expected, path.c_str()), 1);
    const int count = lmvx::StringSetCount(expected);
    ASSERT_GT(count, 100);

    HWND strings = CreatePage(IDD_PAGE_STRINGS, lmvx::StringsPageProc);
    ASSERT_TRUE(strings);
    HWND list = GetDlgItem(strings, IDC_STRINGS_LIST);
    ShowWindow(strings, SW_SHOW);
    ASSERT_TRUE(lmvx_test::PumpUntil([&] { return IsWindowEnabled(GetDlgItem(strings, IDOK)) != FALSE; }, 240000));
    ASSERT_EQ(ListView_GetItemCount(list), count);
    wchar_t text[300];
    for (int i : {0, count / 2, count - 1}) {
        ListView_GetItemText(list, i, 0, text, 300);
        EXPECT_STREQ(text, lmvx::StringSetItem(expected, i)) << i;
    }
    EXPECT_FALSE(GetWindowLongPtrW(GetDlgItem(strings, IDC_STRINGS_STATUS), GWL_STYLE) & WS_VISIBLE);

    // Typing filters once the text rests for 500 ms; a text without a match empties the list.
    SetDlgItemTextW(strings, IDC_STRINGS_FILTER, L"no string holds this");
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return ListView_GetItemCount(list) == 0; }, 10000));
    SetDlgItemTextW(strings, IDC_STRINGS_FILTER, L"");
    EXPECT_TRUE(lmvx_test::PumpUntil([&] { return ListView_GetItemCount(list) == count; }, 10000));
    lmvx::StringSetFree(expected);
}

TEST(ImageStringsFile, UnreadableAndEmptyFiles) {
    lmvx::StringSet* set = lmvx::StringSetCreate();
    EXPECT_EQ(lmvx::LoadImageStrings(set, L"C:\\no such folder\\no such file.exe"), 0);
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    const std::wstring empty = std::wstring(folder) + L"lmvx_empty_image.bin";
    CloseHandle(CreateFileW(empty.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    EXPECT_EQ(lmvx::LoadImageStrings(set, empty.c_str()), 1);
    EXPECT_EQ(lmvx::StringSetCount(set), 0);
    DeleteFileW(empty.c_str());
    lmvx::StringSetDestroy(set);
    EXPECT_EQ(set->magic, lmvx::kStringSetDestroyed);
    EXPECT_EQ(lmvx::StringSetAdd(set, L"late"), 0);
    lmvx::StringSetFree(set);
}

}  // namespace
