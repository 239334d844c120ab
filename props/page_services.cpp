#include "props/page_services.h"

namespace lmvx {
namespace {
// Written once at start-up, before any page thread exists; read by the pages' threads afterwards.
PageServices g_pageServices;
}  // namespace

void SetPageServices(const PageServices& services) { g_pageServices = services; }
const PageServices& CurrentPageServices() { return g_pageServices; }

}  // namespace lmvx
