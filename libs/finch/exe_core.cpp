// The executable's identity: copies of what start-up hands over, read back by the rest of the program.
#include "platform/finch.h"
#include "wide_text.h"

#include <iterator>

FINCH_API APIP_EXECORE APIP_ExeCore;

int APIP_EXECORE::Init(HINSTANCE instance, const wchar_t* commandLine, int showCommand, const wchar_t* fullName,
                       const wchar_t* name, const wchar_t* appCode, const wchar_t* versionText,
                       unsigned versionNumber) {
    instance_ = instance;
    showCommand_ = showCommand;
    versionNumber_ = versionNumber;
    finch::CopyBounded(commandLine_, std::size(commandLine_), commandLine);
    finch::CopyBounded(fullName_, std::size(fullName_), fullName);
    finch::CopyBounded(name_, std::size(name_), name);
    finch::CopyBounded(appCode_, std::size(appCode_), appCode);
    finch::CopyBounded(versionText_, std::size(versionText_), versionText);
    return 1;
}

int APIP_EXECORE::SetBuildInfo(unsigned buildNumber, int flags, const wchar_t* date, const wchar_t* time) {
    buildNumber_ = buildNumber;
    buildFlags_ = flags;
    finch::CopyBounded(buildDate_, std::size(buildDate_), date);
    finch::CopyBounded(buildTime_, std::size(buildTime_), time);
    return 1;
}

HINSTANCE APIP_EXECORE::GetInstance() const { return instance_; }
const wchar_t* APIP_EXECORE::GetCommandLine() const { return commandLine_; }
int APIP_EXECORE::GetShowCommand() const { return showCommand_; }
const wchar_t* APIP_EXECORE::GetAppNameFull() const { return fullName_; }
const wchar_t* APIP_EXECORE::GetAppName() const { return name_; }
const wchar_t* APIP_EXECORE::GetAppCode() const { return appCode_; }
const wchar_t* APIP_EXECORE::GetVersionText() const { return versionText_; }
unsigned APIP_EXECORE::GetVersionNumber() const { return versionNumber_; }
unsigned APIP_EXECORE::GetBuildNumber() const { return buildNumber_; }
const wchar_t* APIP_EXECORE::GetBuildDate() const { return buildDate_; }
const wchar_t* APIP_EXECORE::GetBuildTime() const { return buildTime_; }
