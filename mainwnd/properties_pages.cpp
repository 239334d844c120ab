#include "mainwnd/properties_pages.h"

#include "mainwnd/details_pane_notes.h"
#include "common/owner_button.h"
#include "mainwnd/priority_names.h"
#include "common/shell_open.h"
#include "props/page_services.h"
#include "props/process_info_pages.h"
#include "net/network_page.h"
#include "props/modules_page.h"
#include "props/threads_page.h"
#include "kobj/files_page.h"
#include "kobj/handles_page.h"
#include "memory/strings_page.h"
#include "memory/virtual_memory_page.h"
#include "resource.h"

namespace lmvx {
namespace {

using Ctx = ProcessPropertiesContext;
using enum PageCondition;

// Creation order. A row whose procedure is null is neither created nor listed in the tree.
const PropertyPage kPages[] = {
    {IDD_PAGE_GENERAL, {IDS_PAGE_GENERAL}, 1, Always, GeneralPageProc, &Ctx::generalPage},
    {IDD_PAGE_START, {IDS_PAGE_START}, 2, Always, StartPageProc, &Ctx::startPage},
    {IDD_PAGE_PERFORMANCE, {IDS_PAGE_PERFORMANCE}, 3, Always, PerformancePageProc, &Ctx::performancePage},
    {IDD_PAGE_MEMORY, {IDS_PAGE_MEMORY}, 4, Always, MemoryPageProc, &Ctx::memoryPage},
    {IDD_PAGE_MODULES, {IDS_PAGE_MODULES}, 9, ModuleSnapshot, ModulesPageProc, &Ctx::modulesPage},
    {IDD_PAGE_HANDLES, {0, L"Handles", L"Handles"}, 6, QueryAccess, kobj::HandlesPageProc, &Ctx::handlesPage},
    {IDD_PAGE_FILES, {0, L"Files", L"Dateien"}, 7, QueryAccess, kobj::FilesPageProc, &Ctx::filesPage},
    {IDD_PAGE_NETWORK, {0, L"Network", L"Netzwerk"}, 8, Always, net::NetworkPageProc, &Ctx::networkPage},
    {IDD_PAGE_STRINGS, {IDS_PAGE_STRINGS}, 10, QueryAccess, StringsPageProc, &Ctx::stringsPage},
    {IDD_PAGE_THREADS, {IDS_PAGE_THREADS}, 11, Always, ThreadsPageProc, &Ctx::threadsPage},
    {IDD_PAGE_TOKEN, {IDS_PAGE_TOKEN}, 12, TokenQuery, TokenPageProc, &Ctx::tokenPage},
    {IDD_PAGE_VIRTUAL_MEMORY, {0, L"Virtual Memory", L"Virtueller Speicher"}, 5, QueryAccess,
     VirtualMemoryPageProc, &Ctx::virtualMemoryPage},
};

constexpr PageServices kPageServices{DrawOwnerButton, OpenInShell, PriorityClassName, LoadNote, SaveNote,
                                     AnnounceNoteSaved};

}  // namespace

PropertyPageTable ProgramPropertyPages() {
    // The pages reach the program's painter, shell opener, priority names and notes through these.
    SetPageServices(kPageServices);
    return kPages;
}

}  // namespace lmvx
