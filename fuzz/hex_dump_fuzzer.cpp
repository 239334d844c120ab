// Both dump variants over any bytes, with the exact buffer, a larger and a smaller one. The buffers are
// heap blocks of exactly their size, so AddressSanitizer sees any write past them.
#include <cstring>
#include <memory>

#include "fuzz_check.h"
#include "memory/hex_dump.h"

namespace {

void DumpInto(const uint8_t* bytes, size_t n, size_t size, uint32_t address, bool colon) {
    std::unique_ptr<char[]> out(new char[size]);
    const auto format = colon ? lmvx::FormatHexDumpColon : lmvx::FormatHexDump;
    const size_t length = format(bytes, n, out.get(), size, address);
    if (n == 0 || size < lmvx::HexDumpBufferSize(n)) {
        FUZZ_CHECK(length == 0);
        for (size_t i = 0; i < size; ++i) FUZZ_CHECK(out[i] == '\0');
        return;
    }
    FUZZ_CHECK(length < size && out[length] == '\0' && std::strlen(out.get()) == length);
    const size_t lineLength = colon ? 62 : 61;
    const size_t lines = (n + 15) / 16;
    const size_t whole = lines * lineLength;
    FUZZ_CHECK(length == (whole < size ? whole : size - 1));
    for (size_t k = 0; k < n && (k / 16 + 1) * lineLength <= length; ++k) {
        const size_t at = (k / 16) * lineLength + (colon ? 1 : 0) + 43 + k % 16;
        FUZZ_CHECK(out[at] == lmvx::HexDumpChar(bytes[k]));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 5) return 0;
    uint32_t address;
    std::memcpy(&address, data, 4);
    const int slack = static_cast<int8_t>(data[4]) % 64;
    const uint8_t* bytes = data + 5;
    const size_t n = size - 5;
    const size_t exact = lmvx::HexDumpBufferSize(n);
    const size_t other = slack < 0 && exact < static_cast<size_t>(-slack) ? 1 : exact + slack;
    for (bool colon : {false, true}) {
        DumpInto(bytes, n, exact, address, colon);
        if (other > 0) DumpInto(bytes, n, other, address, colon);
    }
    return 0;
}
