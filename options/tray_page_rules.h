// Which controls of the Tray Icon page are enabled.
#pragma once

namespace lmvx {

struct TrayPageEnabling {
    bool hideWhenMinimized;
    bool performanceGraph;
    bool graphParts;   // the CPU, system CPU and memory parts of the pop-up
};

// "Hide when minimized" follows "Show Tray Icon". The graph box is always disabled: intended, the tray
// menu is where the pop-up is switched on; its parts therefore stay disabled too.
constexpr TrayPageEnabling TrayPageEnablingFor(bool showTrayIcon, bool graphChecked) {
    const bool graphEnabled = false;
    return {showTrayIcon, graphEnabled, graphEnabled && graphChecked};
}

}  // namespace lmvx
