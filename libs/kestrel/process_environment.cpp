// The environment block of another process, read from its process parameters.
#include "platform/kestrel.h"

#include <algorithm>
#include <vector>

#include "nt_api.h"
#include "process_static.h"

namespace kestrel {

namespace {

// Far beyond any real environment (each variable is limited to 32767 characters); guards against a
// corrupt size field.
constexpr SIZE_T kLargestBlockBytes = 16u << 20;

detail::UniqueHandle OpenForReading(unsigned pid) {
    detail::UniqueHandle process(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, pid));
    if (!process) process.Reset(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | PROCESS_VM_READ, FALSE, pid));
    return process;
}

// Characters up to and including the empty string that ends the block; all of them when it has none.
size_t BlockLength(const std::vector<wchar_t>& block) {
    for (size_t i = 1; i < block.size(); ++i) {
        if (block[i] == L'\0' && block[i - 1] == L'\0') return i + 1;
    }
    return block.size();
}

// The block as it lies in the process now. The size the system records is trusted only within the memory
// region that holds the block; without one (older systems, Wine) the rest of that region is read and cut at
// the block's end.
std::vector<wchar_t> ReadEnvironmentBlock(unsigned pid) {
    const detail::UniqueHandle process = OpenForReading(pid);
    if (!process) return {};
    const ULONG_PTR parameters = detail::ProcessParametersAddress(process.Get());
    ULONG_PTR environment = 0;
    SIZE_T recordedBytes = 0;
    if (!parameters ||
        !detail::ReadRemote(process.Get(), parameters + nt::ParametersEnvironmentOffset, &environment,
                            sizeof environment) ||
        !environment)
        return {};
    if (!detail::ReadRemote(process.Get(), parameters + nt::ParametersEnvironmentSizeOffset, &recordedBytes,
                            sizeof recordedBytes))
        recordedBytes = 0;
    MEMORY_BASIC_INFORMATION region{};
    if (!VirtualQueryEx(process.Get(), reinterpret_cast<const void*>(environment), &region, sizeof region) ||
        region.State != MEM_COMMIT)
        return {};
    const SIZE_T regionBytes = reinterpret_cast<ULONG_PTR>(region.BaseAddress) + region.RegionSize - environment;
    SIZE_T bytes = recordedBytes > 0 && recordedBytes <= regionBytes ? recordedBytes : regionBytes;
    bytes = std::min(bytes, kLargestBlockBytes) & ~static_cast<SIZE_T>(1);
    std::vector<wchar_t> block(bytes / sizeof(wchar_t));
    if (block.empty() || !detail::ReadRemote(process.Get(), environment, block.data(), bytes)) return {};
    block.resize(BlockLength(block));
    return block;
}

}  // namespace

int PDM_GetProcessEnvironmentBlock(unsigned pid, wchar_t* buffer, unsigned* size) {
    if (!size) return 0;
    const std::vector<wchar_t> block = ReadEnvironmentBlock(pid);
    if (block.empty()) return 0;
    if (!buffer) {
        *size = static_cast<unsigned>(block.size());
        return 1;
    }
    // The block may have grown since the size was asked for: the caller gets what fits.
    const size_t copied = std::min<size_t>(*size, block.size());
    std::copy_n(block.begin(), copied, buffer);
    *size = static_cast<unsigned>(copied);
    return 1;
}

}  // namespace kestrel
