#include "mainwnd/process_windows_rules.h"

namespace lmvx {

bool QualifiesAsProcessWindow(bool visible, DWORD windowProcessId, DWORD pid, size_t titleLength) {
    return visible && windowProcessId == pid && titleLength >= 1 &&
           titleLength < static_cast<size_t>(kWindowTitleCapacity);
}

POINT WindowMenuPosition(int x, int y, POINT cursor) {
    return {x != 0 ? x : cursor.x, y != 0 ? y : cursor.y};
}

}  // namespace lmvx
