#include "resource_templates.h"

#include <cwctype>

namespace lmvx::restest {
namespace {

// Bounds-checked reader over a resource's bytes; any overrun marks the reader failed.
class ByteReader {
public:
    ByteReader(const void* data, std::size_t size)
        : bytes_(static_cast<const unsigned char*>(data)), size_(size) {}

    bool Failed() const { return failed_; }
    std::size_t Offset() const { return offset_; }

    std::uint16_t Word() {
        if (!Require(2)) return 0;
        std::uint16_t value = static_cast<std::uint16_t>(bytes_[offset_] | (bytes_[offset_ + 1] << 8));
        offset_ += 2;
        return value;
    }
    std::uint32_t Dword() {
        std::uint32_t low = Word();
        std::uint32_t high = Word();
        return low | (high << 16);
    }
    std::uint8_t Byte() {
        if (!Require(1)) return 0;
        return bytes_[offset_++];
    }
    std::wstring String() {
        std::wstring text;
        for (std::uint16_t c = Word(); c != 0 && !failed_; c = Word()) text.push_back(static_cast<wchar_t>(c));
        return text;
    }
    // A name field of a dialog template: nothing, an ordinal, or a string.
    std::wstring NameOrOrdinal(std::uint16_t* ordinal) {
        *ordinal = 0;
        std::uint16_t first = Word();
        if (first == 0) return {};
        if (first == 0xFFFF) {
            *ordinal = Word();
            return {};
        }
        offset_ -= 2;
        return String();
    }
    void AlignDword() { offset_ = (offset_ + 3) & ~static_cast<std::size_t>(3); }
    void Skip(std::size_t count) {
        if (Require(count)) offset_ += count;
    }
    bool AtEnd() const { return offset_ >= size_; }

private:
    bool Require(std::size_t count) {
        if (failed_ || size_ - offset_ < count || offset_ > size_) {
            failed_ = true;
            return false;
        }
        return true;
    }

    const unsigned char* bytes_;
    std::size_t size_;
    std::size_t offset_ = 0;
    bool failed_ = false;
};

std::wstring PredefinedClassName(std::uint16_t ordinal) {
    switch (ordinal) {
    case 0x80: return L"Button";
    case 0x81: return L"Edit";
    case 0x82: return L"Static";
    case 0x83: return L"ListBox";
    case 0x84: return L"ScrollBar";
    case 0x85: return L"ComboBox";
    default: return L"#" + std::to_wstring(ordinal);
    }
}

constexpr std::uint16_t kMenuPopup = 0x10;
constexpr std::uint16_t kMenuEnd = 0x80;

bool ParseMenuItems(ByteReader& reader, std::vector<MenuItem>& items, int depth) {
    if (depth > 8) return false;
    for (;;) {
        MenuItem item;
        std::uint16_t flags = reader.Word();
        item.popup = (flags & kMenuPopup) != 0;
        if (!item.popup) item.id = reader.Word();
        item.text = reader.String();
        if (reader.Failed()) return false;
        if (item.popup && !ParseMenuItems(reader, item.children, depth + 1)) return false;
        items.push_back(std::move(item));
        if (flags & kMenuEnd) return true;
    }
}

void CollectInto(const std::vector<MenuItem>& items, std::vector<unsigned>& ids) {
    for (const MenuItem& item : items) {
        if (item.popup) CollectInto(item.children, ids);
        else if (!item.IsSeparator()) ids.push_back(item.id);
    }
}

}  // namespace

std::optional<DialogTemplate> ParseDialogTemplateEx(const void* data, std::size_t size) {
    constexpr std::uint32_t kSetFont = 0x40;  // DS_SETFONT, also part of DS_SHELLFONT
    ByteReader reader(data, size);
    if (reader.Word() != 1 || reader.Word() != 0xFFFF) return std::nullopt;
    DialogTemplate dialog;
    reader.Dword();  // help id
    dialog.exStyle = reader.Dword();
    dialog.style = reader.Dword();
    std::uint16_t count = reader.Word();
    dialog.x = static_cast<std::int16_t>(reader.Word());
    dialog.y = static_cast<std::int16_t>(reader.Word());
    dialog.cx = static_cast<std::int16_t>(reader.Word());
    dialog.cy = static_cast<std::int16_t>(reader.Word());
    std::uint16_t ordinal = 0;
    reader.NameOrOrdinal(&ordinal);  // menu
    reader.NameOrOrdinal(&ordinal);  // window class
    dialog.title = reader.String();
    if (dialog.style & kSetFont) {
        dialog.fontPointSize = reader.Word();
        reader.Word();  // weight
        reader.Byte();  // italic
        reader.Byte();  // charset
        dialog.fontName = reader.String();
    }
    for (std::uint16_t i = 0; i < count && !reader.Failed(); ++i) {
        reader.AlignDword();
        DialogControl control;
        reader.Dword();  // help id
        reader.Dword();  // extended style
        control.style = reader.Dword();
        control.x = static_cast<std::int16_t>(reader.Word());
        control.y = static_cast<std::int16_t>(reader.Word());
        control.cx = static_cast<std::int16_t>(reader.Word());
        control.cy = static_cast<std::int16_t>(reader.Word());
        control.id = static_cast<std::int32_t>(reader.Dword());
        control.className = reader.NameOrOrdinal(&ordinal);
        if (ordinal != 0) control.className = PredefinedClassName(ordinal);
        control.text = reader.NameOrOrdinal(&ordinal);
        reader.Skip(reader.Word());  // creation data
        dialog.controls.push_back(std::move(control));
    }
    if (reader.Failed()) return std::nullopt;
    return dialog;
}

std::optional<std::vector<MenuItem>> ParseMenuTemplate(const void* data, std::size_t size) {
    ByteReader reader(data, size);
    std::uint16_t version = reader.Word();
    std::uint16_t headerSize = reader.Word();
    if (reader.Failed() || version != 0) return std::nullopt;
    reader.Skip(headerSize);
    std::vector<MenuItem> items;
    if (!ParseMenuItems(reader, items, 0)) return std::nullopt;
    return items;
}

std::vector<unsigned> CollectCommandIds(const std::vector<MenuItem>& items) {
    std::vector<unsigned> ids;
    CollectInto(items, ids);
    return ids;
}

wchar_t MnemonicOf(const std::wstring& text) {
    for (std::size_t i = 0; i + 1 < text.size() && text[i] != L'\t'; ++i) {
        if (text[i] != L'&') continue;
        if (text[i + 1] == L'&') {
            ++i;
            continue;
        }
        return static_cast<wchar_t>(std::towlower(static_cast<wint_t>(text[i + 1])));
    }
    return 0;
}

}  // namespace lmvx::restest
