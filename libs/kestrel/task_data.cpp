// Getters of the per-process records. The records are made by the provider as the derived types of
// snapshot.h, so the downcasts here are always to the real type.
#include "kestrel.h"

#include "snapshot.h"

namespace kestrel {

namespace {
const detail::DynamicRecord& Of(const _TASKDATADYNAMIC* record) { return *static_cast<const detail::DynamicRecord*>(record); }
const detail::StaticRecord& Of(const _TASKDATASTATIC* record) { return *static_cast<const detail::StaticRecord*>(record); }
}  // namespace

unsigned _TASKDATADYNAMIC::GetIOReadTransferDelta() const { return Of(this).ioReadDelta; }
unsigned _TASKDATADYNAMIC::GetIOWriteTransferDelta() const { return Of(this).ioWriteDelta; }
unsigned _TASKDATADYNAMIC::GetIOOtherTransferDelta() const { return Of(this).ioOtherDelta; }
unsigned long long _TASKDATADYNAMIC::GetIOReadTransferBytes() const { return Of(this).ioReadBytes; }
unsigned long long _TASKDATADYNAMIC::GetIOWriteTransferBytes() const { return Of(this).ioWriteBytes; }
unsigned long long _TASKDATADYNAMIC::GetIOOtherTransferBytes() const { return Of(this).ioOtherBytes; }
unsigned long long _TASKDATADYNAMIC::GetIOReadOperationCount() const { return Of(this).ioReadOperations; }
unsigned long long _TASKDATADYNAMIC::GetIOWriteOperationCount() const { return Of(this).ioWriteOperations; }
unsigned long long _TASKDATADYNAMIC::GetIOOtherOperationCount() const { return Of(this).ioOtherOperations; }
unsigned long long _TASKDATADYNAMIC::GetIOTransferRate() const { return Of(this).ioTransferRate; }
unsigned _TASKDATADYNAMIC::GetGDIObjectCount() const { return Of(this).gdiObjects; }
unsigned _TASKDATADYNAMIC::GetUserObjectCount() const { return Of(this).userObjects; }
unsigned _TASKDATADYNAMIC::GetPagefaultCount() const { return Of(this).pageFaults; }
unsigned _TASKDATADYNAMIC::GetPhysicalMemoryBytes() const { return Of(this).workingSet; }
unsigned _TASKDATADYNAMIC::GetPhysicalMemoryPeak() const { return Of(this).workingSetPeak; }
int _TASKDATADYNAMIC::GetPhysicalMemoryDelta() const { return Of(this).workingSetDelta; }
unsigned _TASKDATADYNAMIC::GetPagefileBytes() const { return Of(this).pagefile; }
unsigned _TASKDATADYNAMIC::GetPagefilePeak() const { return Of(this).pagefilePeak; }
int _TASKDATADYNAMIC::GetPagefileDelta() const { return Of(this).pagefileDelta; }
unsigned _TASKDATADYNAMIC::GetTotalMemoryBytes() const { return Of(this).totalMemory; }
unsigned _TASKDATADYNAMIC::GetTotalMemoryPeak() const { return Of(this).totalMemoryPeak; }
int _TASKDATADYNAMIC::GetTotalMemoryDelta() const { return Of(this).totalMemoryDelta; }
unsigned _TASKDATADYNAMIC::GetPrivateBytes() const { return Of(this).privateBytes; }
SYSTEMTIME _TASKDATADYNAMIC::GetCPUTime() const { return Of(this).cpuTime; }

const wchar_t* _TASKDATASTATIC::GetUsername() const { return Of(this).userName.c_str(); }
const wchar_t* _TASKDATASTATIC::GetCommandLineW() const { return Of(this).commandLine.c_str(); }

}  // namespace kestrel
