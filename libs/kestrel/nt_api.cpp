#include "nt_api.h"

namespace kestrel::nt {

namespace {
FARPROC NtdllProcedure(const char* name) {
    HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
    return ntdll ? GetProcAddress(ntdll, name) : nullptr;
}
}  // namespace

QuerySystemInformationFn QuerySystemInformation() {
    static const auto function = reinterpret_cast<QuerySystemInformationFn>(NtdllProcedure("NtQuerySystemInformation"));
    return function;
}

QueryInformationProcessFn QueryInformationProcess() {
    static const auto function =
        reinterpret_cast<QueryInformationProcessFn>(NtdllProcedure("NtQueryInformationProcess"));
    return function;
}

QueryInformationThreadFn QueryInformationThread() {
    static const auto function = reinterpret_cast<QueryInformationThreadFn>(NtdllProcedure("NtQueryInformationThread"));
    return function;
}

}  // namespace kestrel::nt
