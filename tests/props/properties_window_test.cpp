// The process properties window opened from the real main window: its tree, page switching, the exit
// notice, and its end together with the main window.
#include <gtest/gtest.h>
#include <windows.h>
#include <commctrl.h>
#include <aclapi.h>
#include <sddl.h>
#include <tlhelp32.h>

#include <algorithm>
#include <memory>

#include "app/lmvx.h"
#include "child_process.h"
#include "hosted_main_window.h"
#include "mainwnd/main_window_state.h"
#include "resource.h"
#include "window_texts.h"

namespace {

using lmvx_test::ChildProcess;
using lmvx_test::PumpUntil;

constexpr DWORD kLimitMs = 20000;

// The open properties windows of this test program for pid (their captions end in "(Process <pid>)").
std::vector<HWND> PropertiesFramesOf(unsigned pid) {
    std::vector<HWND> found;
    const std::wstring suffix = L"(Process " + std::to_wstring(pid) + L")";
    for (HWND window = GetTopWindow(nullptr); window; window = GetWindow(window, GW_HWNDNEXT)) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == GetCurrentProcessId() && lmvx_test::WindowText(window).ends_with(suffix)) found.push_back(window);
    }
    return found;
}

struct TreeItemSeen {
    std::wstring text;
    HWND page = nullptr;   // item data: the page window, null for the root
    HTREEITEM item = nullptr;
    int image = -1;
};

// The root item, then its children in order.
std::vector<TreeItemSeen> ReadPageTree(HWND tree) {
    std::vector<TreeItemSeen> items;
    const HTREEITEM root = TreeView_GetRoot(tree);
    for (HTREEITEM item = root; item; item = item == root ? TreeView_GetChild(tree, root) : TreeView_GetNextSibling(tree, item)) {
        wchar_t text[256] = {};
        TVITEMW data{TVIF_TEXT | TVIF_PARAM | TVIF_IMAGE | TVIF_HANDLE, item};
        data.pszText = text;
        data.cchTextMax = 256;
        TreeView_GetItem(tree, &data);
        items.push_back({text, reinterpret_cast<HWND>(data.lParam), item, data.iImage});
    }
    return items;
}

// The pages of the frame that are visible now.
std::vector<HWND> VisiblePages(HWND frame) {
    std::vector<HWND> visible;
    for (HWND child = GetWindow(frame, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        wchar_t className[32] = {};
        GetClassNameW(child, className, 32);
        if (std::wstring(className) == L"#32770" && IsWindowVisible(child)) visible.push_back(child);
    }
    return visible;
}

class PropertiesWindowTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { program_ = std::make_unique<mainwnd_test::ScopedHostedProgram>(L"LumivexPropsTest"); }
    static void TearDownTestSuite() { program_.reset(); }

    void SetUp() override {
        main_ = std::make_unique<mainwnd_test::HostedMainWindow>();
        ASSERT_TRUE(child_.Started());
        ASSERT_TRUE(main_->SelectProcess(child_.Pid(), kLimitMs));
    }

    // Sends the properties command as the menus do and waits for one more window for the child.
    HWND OpenProperties() {
        const std::vector<HWND> before = PropertiesFramesOf(child_.Pid());
        SendMessageW(main_->Get(), WM_COMMAND, IDM_PROPERTIES, 0);
        HWND frame = nullptr;
        PumpUntil([&] {
            for (HWND seen : PropertiesFramesOf(child_.Pid())) {
                if (std::find(before.begin(), before.end(), seen) == before.end()) frame = seen;
            }
            return frame != nullptr;
        }, kLimitMs);
        if (!frame) return nullptr;
        // Built completely once the timer runs: the tree is filled before it starts.
        PumpUntil([&] { return TreeView_GetCount(GetDlgItem(frame, IDC_PROPERTIES_TREE)) > 0; }, kLimitMs);
        return frame;
    }

    size_t RegisteredWindows() const {
        auto* state = reinterpret_cast<lmvx::MainWindowState*>(GetWindowLongPtrW(main_->Get(), GWLP_USERDATA));
        return state ? state->propertiesWindows.Count() : 0;
    }

    static std::unique_ptr<mainwnd_test::ScopedHostedProgram> program_;
    ChildProcess child_{L"sleep 120000"};
    std::unique_ptr<mainwnd_test::HostedMainWindow> main_;
};

std::unique_ptr<mainwnd_test::ScopedHostedProgram> PropertiesWindowTest::program_;

std::vector<std::wstring> PageLabels(HWND frame) {
    std::vector<std::wstring> labels;
    const auto items = ReadPageTree(GetDlgItem(frame, IDC_PROPERTIES_TREE));
    for (size_t i = 1; i < items.size(); ++i) labels.push_back(items[i].text);
    return labels;
}

// Gives the process a DACL that refuses PROCESS_QUERY_INFORMATION to everyone and allows the rest.
bool RefuseQueryInformation(HANDLE process) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    BOOL present = FALSE, defaulted = FALSE;
    PACL dacl = nullptr;
    const bool refused = ConvertStringSecurityDescriptorToSecurityDescriptorW(
                             L"D:(D;;0x400;;;WD)(A;;0x1FFFFF;;;WD)", SDDL_REVISION_1, &descriptor, nullptr) &&
                         GetSecurityDescriptorDacl(descriptor, &present, &dacl, &defaulted) &&
                         SetSecurityInfo(process, SE_KERNEL_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                                         dacl, nullptr) == ERROR_SUCCESS;
    LocalFree(descriptor);
    return refused;
}

TEST_F(PropertiesWindowTest, ListsThePagesShowsOnlyTheSelectedOneTellsTheExitCodeAndEndsWithTheMainWindow) {
    HWND frame = OpenProperties();
    ASSERT_NE(frame, nullptr);
    EXPECT_TRUE(PumpUntil([&] { return IsWindowEnabled(main_->Get()) != FALSE; }, kLimitMs));
    EXPECT_NE(lmvx_test::WindowText(frame).find(L"lmvx_test_child.exe"), std::wstring::npos);

    EXPECT_EQ(PageLabels(frame), (std::vector<std::wstring>{L"General", L"Start", L"Performance", L"Memory",
                                                            L"Virtual Memory", L"Handles", L"Files", L"Network",
                                                            L"Modules", L"Strings", L"Threads", L"Token"}));
    HWND tree = GetDlgItem(frame, IDC_PROPERTIES_TREE);
    const auto items = ReadPageTree(tree);
    ASSERT_FALSE(items.empty());
    EXPECT_EQ(items[0].text, L"lmvx_test_child.exe");
    EXPECT_EQ(items[0].page, nullptr);
    // Image 0 the process's icon, then one per tree position; the Handles page has one per handle type.
    EXPECT_EQ(ImageList_GetImageCount(TreeView_GetImageList(tree, TVSIL_NORMAL)), 13);
    EXPECT_EQ(ImageList_GetBkColor(TreeView_GetImageList(tree, TVSIL_NORMAL)), RGB(255, 255, 255));
    for (size_t i = 0; i < items.size(); ++i) {
        EXPECT_EQ(items[i].image, static_cast<int>(i)) << "item " << i;
        if (i == 0) continue;
        if (items[i].text == L"Handles") {
            HWND list = GetDlgItem(items[i].page, IDC_HPAGE_LIST);
            EXPECT_EQ(ImageList_GetImageCount(ListView_GetImageList(list, LVSIL_SMALL)), 11);
        }
        EXPECT_EQ(GetParent(items[i].page), frame);
        TreeView_SelectItem(tree, items[i].item);
        const auto visible = VisiblePages(frame);
        ASSERT_EQ(visible.size(), 1u) << "item " << i;
        EXPECT_EQ(visible[0], items[i].page);
    }
    if (items.size() > 1) {
        TreeView_SelectItem(tree, items[0].item);   // the root holds no page: the last one stays
        EXPECT_EQ(VisiblePages(frame), std::vector<HWND>{items.back().page});
    }

    // Two more windows, for the same process; the main window keeps all three.
    std::vector<HANDLE> threads{OpenThread(SYNCHRONIZE, FALSE, GetWindowThreadProcessId(frame, nullptr))};
    for (int i = 0; i < 2; ++i) {
        HWND another = OpenProperties();
        ASSERT_NE(another, nullptr);
        threads.push_back(OpenThread(SYNCHRONIZE, FALSE, GetWindowThreadProcessId(another, nullptr)));
        // Each window owns its image list: one window's end leaves the others' pictures.
        HIMAGELIST images = TreeView_GetImageList(GetDlgItem(another, IDC_PROPERTIES_TREE), TVSIL_NORMAL);
        EXPECT_NE(images, TreeView_GetImageList(tree, TVSIL_NORMAL));
        EXPECT_EQ(ImageList_GetImageCount(images), 13);
    }
    EXPECT_TRUE(PumpUntil([&] { return RegisteredWindows() == 3; }, kLimitMs));

    // Once the process has ended the window tells its exit code.
    HWND notice = GetDlgItem(frame, IDC_PROPERTIES_EXIT_TEXT);
    EXPECT_FALSE(IsWindowVisible(notice));
    TerminateProcess(child_.Handle(), 0xC0000005);
    ASSERT_TRUE(PumpUntil([&] { return IsWindowVisible(notice) != FALSE; }, kLimitMs));
    EXPECT_EQ(lmvx_test::WindowText(notice), L"The process has exited with code -1073741819 (0xC0000005).");
    EXPECT_TRUE(IsWindowVisible(GetDlgItem(frame, IDC_PROPERTIES_EXIT_ICON)));

    // Every window and its thread end with the main window.
    main_.reset();
    EXPECT_TRUE(PumpUntil([&] { return PropertiesFramesOf(child_.Pid()).empty(); }, kLimitMs));
    for (HANDLE thread : threads) {
        EXPECT_TRUE(PumpUntil([&] { return WaitForSingleObject(thread, 0) == WAIT_OBJECT_0; }, kLimitMs));
        CloseHandle(thread);
    }
}

TEST_F(PropertiesWindowTest, LeavesOutThePagesThatNeedQueryAccessWhenTheProcessRefusesIt) {
    ASSERT_TRUE(RefuseQueryInformation(child_.Handle()));
    ASSERT_EQ(OpenProcess(PROCESS_QUERY_INFORMATION, FALSE, child_.Pid()), nullptr) << "query access still granted";
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, child_.Pid());
    const bool modules = snapshot != INVALID_HANDLE_VALUE;
    if (modules) CloseHandle(snapshot);

    HWND frame = OpenProperties();
    ASSERT_NE(frame, nullptr);
    std::vector<std::wstring> expected{L"General", L"Start", L"Performance", L"Memory", L"Network", L"Threads"};
    if (modules) expected.insert(expected.end() - 1, L"Modules");
    EXPECT_EQ(PageLabels(frame), expected);
}

}  // namespace
