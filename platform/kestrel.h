// kestrel64.dll: the process-data library. The process list provider (TL_PROCESSLIST) with its per-process
// records, and image version data. The program delay-loads this library, so it exports functions and
// methods only, never data, and the provider object can be constructed before the library is loaded.
#pragma once
#include <windows.h>
#include <commctrl.h>

#ifdef KESTREL_BUILD
#define KESTREL_API __declspec(dllexport)
#else
#define KESTREL_API __declspec(dllimport)
#endif

namespace kestrel {

namespace detail {
class ProcessListImpl;
struct ImageInfoData;
}

// Durations (kernel time, user time, run time, CPU time) are packed into a SYSTEMTIME as follows:
// wYear = wMonth = wDayOfWeek = 0, wDay = whole days (at most 65535), wHour, wMinute, wSecond,
// wMilliseconds = the rest. Points in time (creation time) are ordinary local SYSTEMTIMEs; a year of 0
// or 1601 means unknown.

// Counters of one process that change with every update. Owned by the provider; valid until the next
// Update(). Memory figures are bytes, saturated at 0xFFFFFFFF; deltas are changes since the previous update.
class _TASKDATADYNAMIC {
public:
    KESTREL_API unsigned GetIOReadTransferDelta() const;
    KESTREL_API unsigned GetIOWriteTransferDelta() const;
    KESTREL_API unsigned GetIOOtherTransferDelta() const;
    KESTREL_API unsigned long long GetIOReadTransferBytes() const;
    KESTREL_API unsigned long long GetIOWriteTransferBytes() const;
    KESTREL_API unsigned long long GetIOOtherTransferBytes() const;
    KESTREL_API unsigned long long GetIOReadOperationCount() const;
    KESTREL_API unsigned long long GetIOWriteOperationCount() const;
    KESTREL_API unsigned long long GetIOOtherOperationCount() const;
    // Bytes of all three kinds per second, over the time actually measured between the last two updates.
    KESTREL_API unsigned long long GetIOTransferRate() const;
    KESTREL_API unsigned GetGDIObjectCount() const;
    KESTREL_API unsigned GetUserObjectCount() const;
    KESTREL_API unsigned GetPagefaultCount() const;
    KESTREL_API unsigned GetPhysicalMemoryBytes() const;
    KESTREL_API unsigned GetPhysicalMemoryPeak() const;
    KESTREL_API int GetPhysicalMemoryDelta() const;
    KESTREL_API unsigned GetPagefileBytes() const;
    KESTREL_API unsigned GetPagefilePeak() const;
    KESTREL_API int GetPagefileDelta() const;
    KESTREL_API unsigned GetTotalMemoryBytes() const;   // working set plus page-file usage
    KESTREL_API unsigned GetTotalMemoryPeak() const;
    KESTREL_API int GetTotalMemoryDelta() const;
    KESTREL_API unsigned GetPrivateBytes() const;
    KESTREL_API SYSTEMTIME GetCPUTime() const;          // kernel plus user time, packed as a duration

protected:
    _TASKDATADYNAMIC() = default;   // records are made by the provider only
};

// Data fixed for a process's life. Owned by the provider; valid until the next Update(). Never null strings.
class _TASKDATASTATIC {
public:
    KESTREL_API const wchar_t* GetUsername() const;      // "DOMAIN\user"; "" when the token cannot be read
    KESTREL_API const wchar_t* GetCommandLineW() const;  // "" when the process cannot be read

protected:
    _TASKDATASTATIC() = default;
};

// Version data of one image file; the caller keeps it on its own stack.
class _IMAGEINFO {
public:
    constexpr _IMAGEINFO() noexcept = default;
    KESTREL_API ~_IMAGEINFO();
    _IMAGEINFO(const _IMAGEINFO&) = delete;
    _IMAGEINFO& operator=(const _IMAGEINFO&) = delete;

    // Reads the version resource and the link time stamp of the file; non-zero on success.
    KESTREL_API int LoadVersionInfo(const wchar_t* path);
    // File description, or the file name when the file has none.
    KESTREL_API const wchar_t* GetDisplayName() const;
    KESTREL_API const wchar_t* GetCompanyName() const;
    KESTREL_API const wchar_t* GetProductName() const;
    // Buffer forms: copy the text (cut to length - 1 characters, always terminated) and return buffer.
    KESTREL_API wchar_t* GetProductName(wchar_t* buffer, unsigned length) const;
    KESTREL_API wchar_t* GetFileVersion(wchar_t* buffer, unsigned length) const;
    KESTREL_API wchar_t* GetProductVersion(wchar_t* buffer, unsigned length) const;
    KESTREL_API wchar_t* GetCopyright(wchar_t* buffer, unsigned length) const;
    KESTREL_API unsigned GetVersionHigh() const;   // dwFileVersionMS
    KESTREL_API unsigned GetVersionLow() const;    // dwFileVersionLS
    KESTREL_API SYSTEMTIME GetTimeStamp() const;   // link time of the image, UTC; zeroed when unknown

private:
    detail::ImageInfoData* data_ = nullptr;
};

// The process list provider. One writer (Update, on the refresh thread) builds each new snapshot while
// readers on other threads keep reading the previous one; Update() switches between them. Item indexes are
// valid until the next Update(); strings and handles too. Every method is safe before Init() and after
// Delete(): it then returns 0, -1, "" or null.
class TL_PROCESSLIST {
public:
    // Inline and trivial on purpose: the program constructs its provider statically, before this library
    // is loaded.
    constexpr TL_PROCESSLIST() noexcept = default;
    // Does not call into the library (it may never have been loaded): a provider that was initialised
    // lives until process exit unless Delete() is called.
    ~TL_PROCESSLIST() = default;
    TL_PROCESSLIST(const TL_PROCESSLIST&) = delete;
    TL_PROCESSLIST& operator=(const TL_PROCESSLIST&) = delete;

    KESTREL_API int Init();     // 1 on success (also when already initialised)
    KESTREL_API int Delete();   // frees what Init() and Update() created; 1 when there was something to free
    KESTREL_API int Update();   // takes a new snapshot; 1 on success
    KESTREL_API int SetUpdateInterval(unsigned milliseconds);
    KESTREL_API unsigned GetUpdateCount() const;   // snapshots taken since Init(); changes at each switch

    KESTREL_API int GetItemCount() const;
    KESTREL_API int GetItemByPID(unsigned pid) const;   // -1 when the process is not in the snapshot
    KESTREL_API unsigned GetItemPID(int i) const;
    KESTREL_API unsigned GetItemParentPID(int i) const;
    // Depth in the parent tree, 0 for a root. A parent created after its child is not its parent.
    KESTREL_API int GetItemParentCount(int i, unsigned reserved) const;
    // Position in a depth-first walk of the parent tree (children follow their parent, by creation time).
    KESTREL_API double GetItemTreePos(int i, unsigned reserved) const;
    KESTREL_API unsigned GetItemCPUUsage(int i) const;        // whole percent, 0 to 100
    KESTREL_API unsigned GetItemRAMUsage(int i) const;        // working set, bytes
    KESTREL_API unsigned GetItemHandleCount(int i) const;
    KESTREL_API unsigned GetItemGDIObjectCount(int i) const;
    KESTREL_API unsigned GetItemUserObjectCount(int i) const;
    KESTREL_API unsigned GetItemProcessPriority(int i) const; // priority class value, 0 when unknown
    KESTREL_API SYSTEMTIME GetItemCreationTime(int i) const;  // local time
    KESTREL_API SYSTEMTIME GetItemKernelTime(int i) const;    // durations, packed as described above
    KESTREL_API SYSTEMTIME GetItemUserTime(int i) const;
    KESTREL_API SYSTEMTIME GetItemRuntime(int i) const;
    KESTREL_API const wchar_t* GetItemImageName(int i) const;
    // The file description of the image, or its image name when there is none.
    KESTREL_API const wchar_t* GetItemDisplayName(int i) const;
    KESTREL_API const wchar_t* GetItemPathName(int i) const;
    KESTREL_API const wchar_t* GetItemInfoDescription(int i) const;
    KESTREL_API const wchar_t* GetItemInfoCompanyName(int i) const;
    KESTREL_API const wchar_t* GetItemInfoProductName(int i) const;
    KESTREL_API const wchar_t* GetItemInfoFileVersion(int i) const;
    KESTREL_API const wchar_t* GetItemInfoCopyright(int i) const;
    KESTREL_API HICON GetItemIcon(int i) const;        // 32 x 32; the system's application icon when none
    KESTREL_API HICON GetItemIconSmall(int i) const;   // 16 x 16
    KESTREL_API int GetItemImageListIndex(int i) const;
    KESTREL_API HIMAGELIST GetImageList() const;       // small icons; lives until Delete()
    KESTREL_API _TASKDATADYNAMIC* GetItemDynamicData(int i) const;
    KESTREL_API _TASKDATASTATIC* GetItemStaticData(int i) const;

private:
    detail::ProcessListImpl* impl_ = nullptr;
};

}  // namespace kestrel

// ---- System performance counters ----
// The library's side of the performance displays: the system counters object the sampler updates once
// per cycle, the library-wide performance source the status bar and the tray icon read, and the history
// graph of each process. Like the provider, the program may construct _SYSPERFINFO statically, before
// this library is loaded: its constructor is inline and does not call into the library.

namespace wren {
class PERFGRAPH;
}

namespace kestrel {

namespace detail {
struct SysPerfState;
struct PerfMonSourceState;
}

// Whole-system counters, as measured over the interval between the last two Update() calls. Safe to read
// from any thread while another calls Update(): each getter returns a figure of one complete sample.
class _SYSPERFINFO {
public:
    constexpr _SYSPERFINFO() noexcept = default;
    ~_SYSPERFINFO() = default;   // see TL_PROCESSLIST: Delete() frees, the destructor never calls in
    _SYSPERFINFO(const _SYSPERFINFO&) = delete;
    _SYSPERFINFO& operator=(const _SYSPERFINFO&) = delete;

    KESTREL_API int Init();     // takes the first reading; 1 on success (also when already initialised)
    KESTREL_API int Update();   // takes a new reading; usage and deltas cover the time since the last one
    KESTREL_API int Delete();

    KESTREL_API double GetCPUUsage() const;          // total processor usage, percent 0 to 100
    KESTREL_API double GetSystemCPUUsage() const;    // kernel share of the processors, percent 0 to 100
    KESTREL_API unsigned GetContextSwitchDelta() const;   // context switches per second
    KESTREL_API unsigned GetPhysicalMemoryAvailableKB() const;
    KESTREL_API unsigned GetPhysicalMemoryTotalKB() const;
    KESTREL_API unsigned GetCommitChargeTotalKB() const;
    KESTREL_API unsigned GetCommitChargeLimitKB() const;
    KESTREL_API unsigned GetPhysicalMemorySystemCacheKB() const;
    KESTREL_API unsigned GetProcessCount() const;

private:
    detail::SysPerfState* state_ = nullptr;
};

// The library-wide performance source. It measures on demand: a read takes a new reading when the last
// one is at least the minimum age old (half the update period by default), so any number of readers
// share one reading per cycle. Owned by the library; never deleted by the program.
class PM_PERFMONSOURCE {
public:
    // period: the refresh period in ms; minimumAge: how old a reading may get before a read renews it.
    KESTREL_API int SetUpdateInterval(unsigned periodMs, unsigned minimumAgeMs);
    KESTREL_API unsigned GetSystemProcessorUsage();        // whole percent, 0 to 100
    KESTREL_API unsigned GetSystemProcessCount();
    KESTREL_API unsigned GetSystemCommitChargeTotalKB();

    PM_PERFMONSOURCE(const PM_PERFMONSOURCE&) = delete;
    PM_PERFMONSOURCE& operator=(const PM_PERFMONSOURCE&) = delete;

private:
    friend struct detail::PerfMonSourceState;
    PM_PERFMONSOURCE() = default;
    detail::PerfMonSourceState* state_ = nullptr;
};

// The one performance source of the library; never null.
KESTREL_API PM_PERFMONSOURCE* GetGlobalPerfMonSourcePtr();

// ---- Per-process history ----
// Each process in the provider's list has a history graph with two series, fed once per cycle:
//   series 0: CPU usage in whole percent (scale 0 to 100),
//   series 1: memory (working set plus page-file usage) in KB, scaled to its own peak.
// The sampler feeds it right after the provider's Update(), on the same thread.
KESTREL_API int UpdateProcessHistories(const TL_PROCESSLIST& list);
// The history graph of a process record from the current or the previous snapshot; null for any other
// record. Valid as long as the record.
KESTREL_API wren::PERFGRAPH* GetHistoryGraph(const _TASKDATADYNAMIC* record);
// The same by process id; null when the process was not in the last fed snapshot.
KESTREL_API wren::PERFGRAPH* GetProcessHistoryGraph(unsigned pid);

}  // namespace kestrel

// ---- Process actions ----
// Each takes a process id and returns non-zero on success. A process that has already ended, or that
// refuses the access an action needs, fails with 0 (GetLastError tells which).
namespace kestrel {

// Exit code a terminated process is given.
inline constexpr unsigned PRM_TerminatedExitCode = 1;

KESTREL_API int PRM_TerminateProcess(unsigned pid);
// Suspends every thread of the process (one more suspension each).
KESTREL_API int PRM_SuspendProcess(unsigned pid);
// Undoes one suspension of every thread of the process.
KESTREL_API int PRM_ResumeProcess(unsigned pid);
// Non-zero when every thread of the process is suspended. Never true for the calling process.
KESTREL_API int PRM_IsProcessSuspended(unsigned pid);
// Resumes every suspended process once; non-zero when all of them could be resumed.
KESTREL_API int PRM_ResumeAll();
// Sets the working-set limits; both all ones trims the working set (pages the process out).
KESTREL_API int PRM_SetProcessWorkingSetSize(unsigned pid, unsigned long long minimum, unsigned long long maximum);
// priorityClass: one of the Windows priority class values (IDLE_PRIORITY_CLASS ... REALTIME_PRIORITY_CLASS).
KESTREL_API int PRM_SetProcessPriority(unsigned pid, unsigned priorityClass);

}  // namespace kestrel

// ---- Process environment ----
namespace kestrel {

// The environment block of a process: null-terminated "name=value" strings ended by an empty string, in
// UTF-16 characters. With a null buffer, stores the block's length (its final empty string included) in
// *size; with a buffer of *size characters, copies as much of the block as fits and stores the number
// copied. Non-zero when the block could be read.
KESTREL_API int PDM_GetProcessEnvironmentBlock(unsigned pid, wchar_t* buffer, unsigned* size);

}  // namespace kestrel

// ---- Threads of a process ----
// PD_THREADLIST takes the threads of one process from one system-wide process query per refresh: times,
// priorities and creation times come from that query. What the query does not carry (the start address and
// the location of the thread's environment block) is read once per thread and kept while the thread lives.
// The last error and the last status are read from the thread's environment block when asked for.
namespace kestrel {

namespace detail {
class ThreadListImpl;
}

class PD_THREADENTRY {
public:
    KESTREL_API unsigned GetThreadID() const;
    KESTREL_API double GetCPUUsage() const;          // percent of the machine since the previous query
    KESTREL_API double GetAverageCPUUsage() const;   // percent of the machine over the thread's life
    KESTREL_API ULONG_PTR GetStartAddress() const;   // 0 when it cannot be read
    KESTREL_API const wchar_t* GetModuleName() const;   // file name of the module holding the start address, or ""
    KESTREL_API unsigned GetModuleBaseAddress() const;  // low 32 bits of that module's base
    KESTREL_API const wchar_t* GetStartAddressText() const;   // "" unless the library has a text of its own
    KESTREL_API int GetPriority() const;   // THREAD_PRIORITY_IDLE (-15) ... THREAD_PRIORITY_TIME_CRITICAL (15)
    KESTREL_API unsigned GetThreadLastError() const;    // read now from the thread; 0 when it cannot be read
    KESTREL_API unsigned GetThreadLastStatus() const;
    // Local creation time; year 0 when unknown.
    KESTREL_API SYSTEMTIME GetCreationSystemTime() const;
    // Durations: whole days plus one in wDay (day 1 means less than a day), the rest in the time fields.
    // Month and year count on from January 1601 and carry no meaning.
    KESTREL_API SYSTEMTIME GetRuntimeSystemTime() const;
    KESTREL_API SYSTEMTIME GetKernelSystemTime() const;
    KESTREL_API SYSTEMTIME GetUserSystemTime() const;
    KESTREL_API SYSTEMTIME GetCPUSystemTime() const;   // kernel plus user

private:
    friend class detail::ThreadListImpl;
    unsigned threadId_ = 0;
    int priority_ = 0;
    double cpuUsage_ = 0;
    double averageCpuUsage_ = 0;
    ULONG_PTR startAddress_ = 0;
    ULONG_PTR moduleBase_ = 0;
    ULONG_PTR environmentBlock_ = 0;
    HANDLE process_ = nullptr;   // the list's handle, opened for reading memory; null when that was refused
    unsigned long long creationTime_ = 0;   // FILETIME value, UTC
    unsigned long long kernelTime_ = 0;     // 100 ns units
    unsigned long long userTime_ = 0;
    unsigned long long runTime_ = 0;
    wchar_t moduleName_[MAX_PATH] = {};
    wchar_t startAddressText_[MAX_PATH] = {};
};

class PD_THREADLIST {
public:
    constexpr PD_THREADLIST() noexcept = default;
    KESTREL_API ~PD_THREADLIST();
    PD_THREADLIST(const PD_THREADLIST&) = delete;
    PD_THREADLIST& operator=(const PD_THREADLIST&) = delete;

    // Replaces the entries with the threads the process has now; non-zero on success. 0 when the process is
    // not running (the list is then empty).
    KESTREL_API int QueryThreadList(unsigned pid);
    KESTREL_API unsigned GetThreadCount() const;
    // Entries stay valid until the next query.
    KESTREL_API PD_THREADENTRY* GetThread(unsigned index);
    KESTREL_API PD_THREADENTRY* FindThread(unsigned threadId);

private:
    detail::ThreadListImpl* impl_ = nullptr;
};

// Thread actions: each takes a thread id and returns non-zero on success. The calling thread itself is
// refused by all three actions (suspending it would never return).
KESTREL_API int PRM_IsThreadSuspended(unsigned threadId);
KESTREL_API int PRM_SuspendThread(unsigned threadId);
KESTREL_API int PRM_ResumeThread(unsigned threadId);   // undoes one suspension
KESTREL_API int PRM_TerminateThread(unsigned threadId);

}  // namespace kestrel

// ---- Call stacks ----
// The stack of one thread of another process, walked with the system's debug help library (loaded from the
// system folder). Addresses are kept in full in the 64-bit fields; the 32-bit fields hold their low halves.
namespace kestrel {

namespace detail {
struct StackFrames;
}

struct _SI_STACKFRAME {
    unsigned functionAddress;          // low 32 bits of the frame's function start; 0 when unknown
    unsigned returnAddress;            // low 32 bits of the return address
    wchar_t callText[512];             // "module!function+0x1a", "module+0x1a20" or the bare address
    unsigned functionValid;            // non-zero when functionText holds a symbol name
    wchar_t moduleName[512];           // file name of the module, "" when the address lies in none
    wchar_t functionText[260];         // the symbol name, with "+0x..." when the address is inside it
    wchar_t modulePath[260];           // full path of the module
    wchar_t sourceText[512];           // "file(line)" when line information exists, else ""
    unsigned long long programCounter; // the frame's instruction address, in full
    unsigned long long functionAddress64;
    unsigned long long returnAddress64;
};

class _SI_STACKDUMP {
public:
    unsigned frameCount = 0;   // read directly after a successful walk

    constexpr _SI_STACKDUMP() noexcept = default;
    KESTREL_API ~_SI_STACKDUMP();
    _SI_STACKDUMP(const _SI_STACKDUMP&) = delete;
    _SI_STACKDUMP& operator=(const _SI_STACKDUMP&) = delete;

    // Walks the thread's stack: the thread is suspended only while its registers and stack are read, and is
    // always resumed. process needs PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, thread THREAD_SUSPEND_RESUME |
    // THREAD_GET_CONTEXT | THREAD_QUERY_INFORMATION. text is reserved (null). Non-zero on success; the calling
    // thread cannot be walked.
    KESTREL_API int CreateStackDump(HANDLE process, HANDLE thread, const wchar_t* text);
    // Frame 0 is the innermost (the current instruction). An index out of range gives a zeroed frame.
    KESTREL_API _SI_STACKFRAME GetFrame(unsigned index) const;

private:
    detail::StackFrames* frames_ = nullptr;
};

}  // namespace kestrel

// ---- Handles of a process ----
// The handle table of one process, read on demand: each entry has the object's type, its name and a display
// form of the name (a DOS path for files on a drive). Name queries that could block (file objects, where a
// pending synchronous read holds the object) run on a worker with a short time-out: such a handle is listed
// without a name rather than stalling the caller.
namespace kestrel {

namespace detail {
struct HandleObjectData;
struct HandleListState;
}

// One handle of a remote process. Copies are independent; the list's own entries live until its next query.
class _HANDLEOBJECT {
public:
    KESTREL_API _HANDLEOBJECT();
    KESTREL_API ~_HANDLEOBJECT();
    KESTREL_API _HANDLEOBJECT(const _HANDLEOBJECT& other);
    KESTREL_API _HANDLEOBJECT& operator=(const _HANDLEOBJECT& other);

    KESTREL_API void* GetRemoteHandle() const;            // the handle value inside the remote process
    KESTREL_API const wchar_t* GetObjectTypeStr() const;  // "File", "Process", ...; "" when unknown
    KESTREL_API const wchar_t* GetObjectName() const;     // native name; "" when unnamed
    KESTREL_API const wchar_t* GetObjectPrintStr() const; // display name: DOS path of a file; "" when unnamed
    KESTREL_API unsigned long GetReferenceCount() const;
    KESTREL_API unsigned long GetDesiredAccess() const;   // granted access mask
    KESTREL_API unsigned long GetPagedPoolQuota() const;
    KESTREL_API unsigned long GetNonPagedPoolQuota() const;
    // Non-zero for a file or folder on a drive (the display name is then a DOS path such as C:\dir\file).
    KESTREL_API int IsDosFile() const;
    // Closes the handle inside the remote process; non-zero when it was closed.
    KESTREL_API int CloseRemoteHandle() const;

    detail::HandleObjectData* Data() const { return data_; }

private:
    detail::HandleObjectData* data_;
};

class _HANDLELIST {
public:
    constexpr _HANDLELIST() noexcept = default;
    // Inline so that a list that was never initialised does not load the library to be destroyed.
    ~_HANDLELIST() {
        if (state_) Delete();
    }
    _HANDLELIST(const _HANDLELIST&) = delete;
    _HANDLELIST& operator=(const _HANDLELIST&) = delete;

    KESTREL_API int Init();     // non-zero when ready (also when already initialised)
    KESTREL_API int Delete();   // frees the entries and the name worker
    // Re-reads the whole handle table of the process and replaces the entries; 0 (and an empty list) when
    // the process is gone or refuses PROCESS_DUP_HANDLE.
    KESTREL_API int QueryHandlesProcess(unsigned long pid);
    KESTREL_API unsigned long GetHandleCount() const;
    // A copy of entry index; an empty entry when index is out of range.
    KESTREL_API _HANDLEOBJECT GetHandle(unsigned index) const;
    // The list's own entry, valid until the next query; null when index is out of range.
    KESTREL_API _HANDLEOBJECT* GetHandlePtr(unsigned index) const;

private:
    detail::HandleListState* state_ = nullptr;
};

}  // namespace kestrel
