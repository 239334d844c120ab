// The application's identity, registered once at start-up and read by everyone afterwards.
#include "wren.h"

#include <string>

#include "stored_value.h"

namespace wren {
namespace {

// Written once on the primary thread before any other thread exists, read-only afterwards.
struct AppIdentity {
    std::wstring fullName;
    std::wstring name;
    std::wstring versionText;
    unsigned versionNumber = 0;
    std::wstring appCode;
    std::wstring buildDate;
    std::wstring buildTime;
    unsigned buildNumber = 0;
    HINSTANCE instance = nullptr;
    std::wstring settingsKeyPath;
};

AppIdentity& Identity() {
    static AppIdentity identity;
    return identity;
}

std::wstring TextOrEmpty(const wchar_t* text) { return text ? std::wstring(text) : std::wstring(); }

}  // namespace

int SetAppInfo(const wchar_t* fullName, const wchar_t* name, const wchar_t* versionText, unsigned versionNumber,
               const wchar_t* appCode) {
    AppIdentity& identity = Identity();
    identity.fullName = TextOrEmpty(fullName);
    identity.name = TextOrEmpty(name);
    identity.versionText = TextOrEmpty(versionText);
    identity.versionNumber = versionNumber;
    identity.appCode = TextOrEmpty(appCode);
    return identity.name.empty() ? 0 : 1;
}

int SetBuildInfo(const wchar_t* date, const wchar_t* time, unsigned buildNumber) {
    AppIdentity& identity = Identity();
    identity.buildDate = TextOrEmpty(date);
    identity.buildTime = TextOrEmpty(time);
    identity.buildNumber = buildNumber;
    return 1;
}

const wchar_t* GetAppNameFull() { return Identity().fullName.c_str(); }
const wchar_t* GetAppName() { return Identity().name.c_str(); }
const wchar_t* GetAppCode() { return Identity().appCode.c_str(); }
const wchar_t* GetAppVersionText() { return Identity().versionText.c_str(); }
unsigned GetAppVersionNumber() { return Identity().versionNumber; }
unsigned GetBuildNumber() { return Identity().buildNumber; }
const wchar_t* GetBuildDate() { return Identity().buildDate.c_str(); }
const wchar_t* GetBuildTime() { return Identity().buildTime.c_str(); }

void SetStoredInstance(HINSTANCE instance) { Identity().instance = instance; }
HINSTANCE GetStoredInstance() { return Identity().instance; }

int PostInit() {
    AppIdentity& identity = Identity();
    identity.settingsKeyPath = SettingsKeyPath(identity.name);
    return identity.settingsKeyPath.empty() ? 0 : 1;
}

const wchar_t* GetSettingsKeyPath() { return Identity().settingsKeyPath.c_str(); }

int IsProcessInWow64() {
    BOOL wow64 = FALSE;
    if (!IsWow64Process(GetCurrentProcess(), &wow64)) return 0;
    return wow64 ? 1 : 0;
}

}  // namespace wren
