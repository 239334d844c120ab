// The CPU and memory pop-ups (template 343): translucent modeless windows with the system history graph
// and the current figures. They show while the mouse rests on the tray icon or a status-bar pane and
// hide when it leaves, unless a click pinned them.
#pragma once
#include <windows.h>

#include <atomic>
#include <mutex>
#include <string>

namespace kestrel {
class _SYSPERFINFO;
}
namespace wren {
class PERFGRAPH;
}

namespace lmvx::perf {

enum class PopupKind { Cpu, Memory };

inline constexpr UINT_PTR kPopupRefreshTimer = 4000;
inline constexpr UINT_PTR kPopupHoverTimer = 4001;
inline constexpr UINT kPopupTimerPeriod = 250;
// The pop-up marks itself pinned with this bit of its own window style (it also gives a close box).
inline constexpr LONG_PTR kPinnedStyleBit = WS_SYSMENU;

// What a pop-up shows: the counters, its graph and its background brush (black).
struct PopupSources {
    const kestrel::_SYSPERFINFO* counters = nullptr;
    wren::PERFGRAPH* graph = nullptr;
    HBRUSH background = nullptr;
};

class PerfPopup {
public:
    PerfPopup() = default;
    ~PerfPopup();
    PerfPopup(const PerfPopup&) = delete;
    PerfPopup& operator=(const PerfPopup&) = delete;

    // Creates the hidden pop-up owned by the main window.
    bool Create(HWND owner, PopupKind kind, const PopupSources& sources);
    HWND Window() const { return window_; }
    PopupKind Kind() const { return kind_; }

    // Shows the pop-up at once without activating it, next to anchor (screen rectangle) or, when anchor is
    // null, above the taskbar, and tracks the mouse. Nothing happens while a menu is open or when pinned.
    void PopupShow(const RECT* anchor);
    void PopupHide();   // unless pinned
    // Texts and graph; from the sampling thread each sample and from the pop-up's own timer.
    void PopupRefresh();

    bool IsPinned() const;
    void SetMenuOpen(bool open) { menuOpen_ = open; }
    bool IsMenuOpen() const { return menuOpen_; }
    // Whether the glass frame is in use (Vista and later with composition); else the layered window path.
    bool UsesGlassFrame() const { return glassFrame_; }

private:
    static INT_PTR CALLBACK DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void PopupInit();
    void SetUpFrame();
    void Position();
    void OnHoverTimer();
    void Pin();
    void Unpin();
    // Refreshes redraw the graph only when its picture would change; a paint request always draws.
    enum class GraphDrawing { IfChanged, Always };
    void DrawGraph(GraphDrawing when);
    void UpdateTexts();
    void ShowValue(HWND control, std::wstring& shown, const std::wstring& text);

    HWND window_ = nullptr;
    // The controls, found once: looking a control up by id asks the window manager each time.
    HWND firstValue_ = nullptr;
    HWND secondValue_ = nullptr;
    HWND graphControl_ = nullptr;
    // The fingerprint of the graph picture last drawn into the graph control (0: none yet).
    std::atomic<unsigned long long> drawnSignature_{0};
    PopupKind kind_ = PopupKind::Cpu;
    PopupSources sources_;
    RECT anchor_{};
    POINT cursorAtShow_{};
    std::atomic<bool> menuOpen_{false};
    bool glassFrame_ = false;
    // The two values as last written by the sampler thread, which compares with these rather than reading
    // the controls back across threads. The pop-up's own thread writes them too (its timer, showing): it
    // compares with the control itself (no message crosses threads) and then clears these, so the
    // sampler's next write always happens and no interleaving of the two can leave a stale text. The lock
    // is not held while a text is set, since that sends a message to the pop-up's thread.
    DWORD ownThread_ = 0;
    std::mutex shownLock_;
    std::wstring shownFirst_;
    std::wstring shownSecond_;
};

}  // namespace lmvx::perf
