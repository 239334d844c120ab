// The image strings extraction over any bytes: every string has 3 to 255 characters, at least 3 changes,
// starts with a start character, and the strings appear in the file in order without overlapping.
#include <memory>

#include "fuzz_check.h"
#include "memory/image_string_scan.h"

namespace {

struct File {
    const uint8_t* bytes;
    size_t n;
    size_t total;
};

bool Check(void* context, const char16_t* text, size_t length) {
    File& file = *static_cast<File*>(context);
    FUZZ_CHECK(length >= lmvx::kImageMinUtf16Length && length <= lmvx::kImageMaxLength);
    size_t changes = 1;
    for (size_t k = 0; k < length; ++k) {
        FUZZ_CHECK(text[k] < 0x100);
        const uint8_t byte = static_cast<uint8_t>(text[k]);
        FUZZ_CHECK(k == 0 ? lmvx::IsImageStartChar(byte) : lmvx::IsImageContinueChar(byte));
        if (k > 0 && text[k] != text[k - 1]) ++changes;
    }
    FUZZ_CHECK(changes >= lmvx::kImageMinChanges);
    file.total += length;
    FUZZ_CHECK(file.total <= file.n);
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::unique_ptr<uint8_t[]> copy(new uint8_t[size]);
    for (size_t i = 0; i < size; ++i) copy[i] = data[i];
    File file{copy.get(), size, 0};
    FUZZ_CHECK(lmvx::ExtractImageStrings(copy.get(), size, {Check, &file}));
    return 0;
}
