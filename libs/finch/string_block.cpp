#include "string_block.h"

#include <cstring>

namespace finch {

StringBlock ParseStringBlock(const void* data, size_t byteLength) {
    StringBlock block;
    if (data == nullptr) return block;
    const auto* bytes = static_cast<const unsigned char*>(data);
    const size_t characterCount = byteLength / sizeof(wchar_t);
    size_t position = 0;
    for (std::wstring& text : block) {
        if (position >= characterCount) break;
        WORD length = 0;
        std::memcpy(&length, bytes + position * sizeof(wchar_t), sizeof(length));
        ++position;
        if (length > characterCount - position) break;
        text.resize(length);
        std::memcpy(text.data(), bytes + position * sizeof(wchar_t), length * sizeof(wchar_t));
        position += length;
    }
    return block;
}

}  // namespace finch
