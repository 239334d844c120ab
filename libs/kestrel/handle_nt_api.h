// The native handle-table and object queries, with their documented x64 layouts (MinGW's headers lack them).
#pragma once
#include "nt_api.h"

namespace kestrel::nt {

constexpr ULONG SystemExtendedHandleInformationClass = 64;
constexpr ULONG ProcessHandleInformationClass = 51;   // Windows 8 and later

constexpr ULONG ObjectBasicInformationClass = 0;
constexpr ULONG ObjectNameInformationClass = 1;
constexpr ULONG ObjectTypeInformationClass = 2;

struct SystemHandleEntryEx {
    void* Object;
    ULONG_PTR UniqueProcessId;
    ULONG_PTR HandleValue;
    ULONG GrantedAccess;
    USHORT CreatorBackTraceIndex;
    USHORT ObjectTypeIndex;
    ULONG HandleAttributes;
    ULONG Reserved;
};
static_assert(sizeof(SystemHandleEntryEx) == 40, "x64 layout of SYSTEM_HANDLE_TABLE_ENTRY_INFO_EX");

struct SystemHandleInformationEx {
    ULONG_PTR NumberOfHandles;
    ULONG_PTR Reserved;
    SystemHandleEntryEx Handles[1];
};

struct ProcessHandleEntry {
    HANDLE HandleValue;
    ULONG_PTR HandleCount;
    ULONG_PTR PointerCount;
    ULONG GrantedAccess;
    ULONG ObjectTypeIndex;
    ULONG HandleAttributes;
    ULONG Reserved;
};
static_assert(sizeof(ProcessHandleEntry) == 40, "x64 layout of PROCESS_HANDLE_TABLE_ENTRY_INFO");

struct ProcessHandleSnapshot {
    ULONG_PTR NumberOfHandles;
    ULONG_PTR Reserved;
    ProcessHandleEntry Handles[1];
};

struct ObjectBasicInfo {
    ULONG Attributes;
    ACCESS_MASK GrantedAccess;
    ULONG HandleCount;
    ULONG PointerCount;
    ULONG PagedPoolCharge;
    ULONG NonPagedPoolCharge;
    ULONG Reserved[3];
    ULONG NameInfoSize;
    ULONG TypeInfoSize;
    ULONG SecurityDescriptorSize;
    LARGE_INTEGER CreationTime;
};
static_assert(sizeof(ObjectBasicInfo) == 56, "x64 layout of OBJECT_BASIC_INFORMATION");

using QueryObjectFn = NTSTATUS(NTAPI*)(HANDLE, ULONG, void*, ULONG, ULONG*);
QueryObjectFn QueryObject();

}  // namespace kestrel::nt
