#include "mainwnd/properties_pages.h"

#include "memory/strings_page.h"
#include "memory/virtual_memory_page.h"
#include "resource.h"

namespace lmvx {
namespace {

using Ctx = ProcessPropertiesContext;
using enum PageCondition;

// Creation order. A row whose procedure is null is neither created nor listed in the tree.
const PropertyPage kPages[] = {
    {IDD_PAGE_GENERAL, {IDS_PAGE_GENERAL}, 1, Always, nullptr, &Ctx::generalPage},
    {IDD_PAGE_START, {IDS_PAGE_START}, 2, Always, nullptr, &Ctx::startPage},
    {IDD_PAGE_PERFORMANCE, {IDS_PAGE_PERFORMANCE}, 3, Always, nullptr, &Ctx::performancePage},
    {IDD_PAGE_MEMORY, {IDS_PAGE_MEMORY}, 4, Always, nullptr, &Ctx::memoryPage},
    {IDD_PAGE_MODULES, {IDS_PAGE_MODULES}, 9, ModuleSnapshot, nullptr, &Ctx::modulesPage},
    {IDD_PAGE_HANDLES, {0, L"Handles", L"Handles"}, 6, QueryAccess, nullptr, &Ctx::handlesPage},
    {IDD_PAGE_FILES, {0, L"Files", L"Dateien"}, 7, QueryAccess, nullptr, &Ctx::filesPage},
    {IDD_PAGE_NETWORK, {0, L"Network", L"Netzwerk"}, 8, Always, nullptr, &Ctx::networkPage},
    {IDD_PAGE_STRINGS, {IDS_PAGE_STRINGS}, 10, QueryAccess, StringsPageProc, &Ctx::stringsPage},
    {IDD_PAGE_THREADS, {IDS_PAGE_THREADS}, 11, Always, nullptr, &Ctx::threadsPage},
    {IDD_PAGE_TOKEN, {IDS_PAGE_TOKEN}, 12, TokenQuery, nullptr, &Ctx::tokenPage},
    {IDD_PAGE_VIRTUAL_MEMORY, {0, L"Virtual Memory", L"Virtueller Speicher"}, 5, QueryAccess,
     VirtualMemoryPageProc, &Ctx::virtualMemoryPage},
};

}  // namespace

PropertyPageTable ProgramPropertyPages() { return kPages; }

}  // namespace lmvx
