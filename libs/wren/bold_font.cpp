// Embold: the bold twin of a control's font. Twins are kept per distinct font description for the
// library's lifetime, so repeated dialogs share one font and nothing leaks per call.
#include "wren.h"

#include <cstddef>
#include <cstring>
#include <cwchar>
#include <map>
#include <mutex>

#include "unique_resource.h"

namespace wren {
namespace {

struct LogFontLess {
    // The face name is compared as text: whatever follows its terminator is not part of the font.
    bool operator()(const LOGFONTW& left, const LOGFONTW& right) const {
        const int metrics = std::memcmp(&left, &right, offsetof(LOGFONTW, lfFaceName));
        if (metrics != 0) return metrics < 0;
        return std::wcsncmp(left.lfFaceName, right.lfFaceName, LF_FACESIZE) < 0;
    }
};

class BoldFontCache {
public:
    HFONT BoldTwinOf(HFONT font) {
        LOGFONTW description{};
        if (!GetObjectW(font ? font : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)), sizeof(description),
                        &description))
            return nullptr;
        description.lfWeight = FW_BOLD;
        std::lock_guard<std::mutex> lock(mutex_);
        UniqueFont& twin = fonts_[description];
        if (!twin) twin.Reset(CreateFontIndirectW(&description));
        return twin.Get();
    }

private:
    std::mutex mutex_;
    std::map<LOGFONTW, UniqueFont, LogFontLess> fonts_;
};

BoldFontCache& BoldFonts() {
    static BoldFontCache cache;
    return cache;
}

}  // namespace

void Embold(HWND dialog, int controlId) {
    HWND control = GetDlgItem(dialog, controlId);
    if (!control) return;
    HFONT font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
    if (!font) font = reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0));
    if (HFONT bold = BoldFonts().BoldTwinOf(font))
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(bold), TRUE);
}

}  // namespace wren
