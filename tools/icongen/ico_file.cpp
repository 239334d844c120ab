#include "ico_file.h"

namespace icongen {
namespace {

constexpr uint32_t kDirectoryHeaderLength = 6;
constexpr uint32_t kDirectoryEntryLength = 16;
constexpr uint32_t kInfoHeaderLength = 40;

void Put16(std::vector<uint8_t>& out, uint32_t v) {
    out.push_back(static_cast<uint8_t>(v));
    out.push_back(static_cast<uint8_t>(v >> 8));
}

void Put32(std::vector<uint8_t>& out, uint32_t v) {
    Put16(out, v & 0xFFFF);
    Put16(out, v >> 16);
}

// Mask rows are padded to whole 32-bit words.
uint32_t MaskRowLength(int size) { return static_cast<uint32_t>((size + 31) / 32 * 4); }

uint32_t EntryLength(const Image& image) {
    const auto size = static_cast<uint32_t>(image.size);
    return kInfoHeaderLength + size * size * 4 + MaskRowLength(image.size) * size;
}

void PutEntry(std::vector<uint8_t>& out, const Image& image) {
    const auto size = static_cast<uint32_t>(image.size);
    Put32(out, kInfoHeaderLength);
    Put32(out, size);
    Put32(out, size * 2);  // colour rows plus mask rows
    Put16(out, 1);         // planes
    Put16(out, 32);        // bits per pixel
    Put32(out, 0);         // BI_RGB
    Put32(out, EntryLength(image) - kInfoHeaderLength);
    Put32(out, 0);
    Put32(out, 0);
    Put32(out, 0);
    Put32(out, 0);
    for (int y = image.size - 1; y >= 0; --y) {
        const uint8_t* row = &image.bgra[static_cast<size_t>(y) * image.size * 4];
        out.insert(out.end(), row, row + image.size * 4);
    }
    // AND mask: a set bit marks a fully transparent pixel, for readers that ignore alpha.
    for (int y = image.size - 1; y >= 0; --y) {
        std::vector<uint8_t> maskRow(MaskRowLength(image.size), 0);
        for (int x = 0; x < image.size; ++x) {
            if (image.bgra[(static_cast<size_t>(y) * image.size + x) * 4 + 3] == 0)
                maskRow[x / 8] |= static_cast<uint8_t>(0x80 >> (x % 8));
        }
        out.insert(out.end(), maskRow.begin(), maskRow.end());
    }
}

}  // namespace

std::vector<uint8_t> EncodeIco(const std::vector<Image>& images) {
    std::vector<uint8_t> out;
    Put16(out, 0);  // reserved
    Put16(out, 1);  // type: icon
    Put16(out, static_cast<uint32_t>(images.size()));
    uint32_t offset = kDirectoryHeaderLength + kDirectoryEntryLength * static_cast<uint32_t>(images.size());
    for (const Image& image : images) {
        out.push_back(static_cast<uint8_t>(image.size >= 256 ? 0 : image.size));
        out.push_back(static_cast<uint8_t>(image.size >= 256 ? 0 : image.size));
        out.push_back(0);  // no palette
        out.push_back(0);
        Put16(out, 1);
        Put16(out, 32);
        Put32(out, EntryLength(image));
        Put32(out, offset);
        offset += EntryLength(image);
    }
    for (const Image& image : images)
        PutEntry(out, image);
    return out;
}

}  // namespace icongen
