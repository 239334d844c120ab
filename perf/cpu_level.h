// CPU usage levels: the eleven pictures of the tray icon and of the status bar's CPU pane.
#pragma once
#include <array>

namespace lmvx::perf {

inline constexpr int kCpuLevelCount = 11;

// Level = whole percent / 10, at most 10 (usage above 100 % still shows the full picture).
int CpuLevelFromUsage(unsigned usagePercent);

// Icon resource of each level, index = level.
const std::array<unsigned short, kCpuLevelCount>& CpuLevelIconIds();

// Remembers the level shown last, so that the picture is only swapped when the level changes.
class CpuLevelTracker {
public:
    explicit CpuLevelTracker(int initialLevel) : last_(initialLevel) {}
    // True (and the level is stored) when the level differs from the one shown last.
    bool Change(int level) {
        if (level == last_) return false;
        last_ = level;
        return true;
    }
    int Last() const { return last_; }

private:
    int last_;
};

}  // namespace lmvx::perf
