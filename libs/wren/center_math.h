// Where a window goes when it is centred over another one: plain arithmetic, no windows involved.
#pragma once

namespace wren {

struct Box {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

struct Position {
    int x = 0;
    int y = 0;
};

// Top-left corner that centres `window` over `over`, moved back inside `workArea` where it would stick
// out. A window larger than the work area keeps its top-left corner on the work area's, so its caption
// and system menu stay reachable.
Position CenteredPosition(const Box& window, const Box& over, const Box& workArea);

}  // namespace wren
