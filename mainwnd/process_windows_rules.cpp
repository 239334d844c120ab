#include "mainwnd/process_windows_rules.h"

namespace lmvx {

TitleRead ChooseTitleRead(DWORD windowProcessId, DWORD windowThreadId, DWORD selfProcessId, DWORD selfThreadId) {
    return windowProcessId == selfProcessId && windowThreadId != selfThreadId ? TitleRead::TimedMessage
                                                                              : TitleRead::Direct;
}

bool QualifiesAsProcessWindow(bool visible, DWORD windowProcessId, DWORD pid, size_t titleLength) {
    return visible && windowProcessId == pid && titleLength >= 1 &&
           titleLength < static_cast<size_t>(kWindowTitleCapacity);
}

POINT WindowMenuPosition(int x, int y, POINT cursor) {
    return {x != 0 ? x : cursor.x, y != 0 ? y : cursor.y};
}

}  // namespace lmvx
