// Readers for the binary forms of dialog templates and menu templates, so
// tests can compare what the resource compiler produced. Pure functions over bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace lmvx::restest {

struct DialogControl {
    std::int32_t id = 0;
    std::uint32_t style = 0;
    std::int16_t x = 0, y = 0, cx = 0, cy = 0;
    std::wstring className;   // "Button", "Static", ... for the predefined ordinals
    std::wstring text;
};

struct DialogTemplate {
    std::uint32_t style = 0;
    std::uint32_t exStyle = 0;
    std::int16_t x = 0, y = 0, cx = 0, cy = 0;
    std::wstring title;
    std::uint16_t fontPointSize = 0;
    std::wstring fontName;
    std::vector<DialogControl> controls;
};

// Extended dialog templates only (DIALOGEX), which is all this program uses.
std::optional<DialogTemplate> ParseDialogTemplateEx(const void* data, std::size_t size);

struct MenuItem {
    std::wstring text;
    unsigned id = 0;
    bool popup = false;
    std::vector<MenuItem> children;
    bool IsSeparator() const { return !popup && id == 0 && text.empty(); }
};

// Classic menu templates (MENU); returns the top-level items.
std::optional<std::vector<MenuItem>> ParseMenuTemplate(const void* data, std::size_t size);

// Every command id of a menu tree, depth first.
std::vector<unsigned> CollectCommandIds(const std::vector<MenuItem>& items);

// The access key of a menu or control text, lower-cased; 0 when it has none ("&&" is a
// literal ampersand, text after a tab is the accelerator and is ignored).
wchar_t MnemonicOf(const std::wstring& text);

}  // namespace lmvx::restest
