// One registered application for the whole test program, in English, with the program's shared icons:
// linked into window tests whose cases need the language module and nothing else of their own.
#include <gtest/gtest.h>

#include <memory>

#include "app/shared_icons.h"
#include "test_host.h"

namespace lmvx_test {
namespace {

class ApplicationEnvironment : public ::testing::Environment {
public:
    void SetUp() override {
        application_ = std::make_unique<ScopedTestApplication>(L"LumivexWindowTest");
        lmvx::LoadSharedIcons(GetModuleHandleW(nullptr));
    }
    void TearDown() override { application_.reset(); }

private:
    std::unique_ptr<ScopedTestApplication> application_;
};

[[maybe_unused]] ::testing::Environment* const g_environment =
    ::testing::AddGlobalTestEnvironment(new ApplicationEnvironment);

}  // namespace
}  // namespace lmvx_test
