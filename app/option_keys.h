// Every persistent setting of the program: its name in the option store and the default passed with
// every read. Reads always go through these pairs, so a default is written down exactly once.
#pragma once

namespace lmvx {

struct BoolOption {
    const wchar_t* name;
    int defaultValue;
};
struct DwordOption {
    const wchar_t* name;
    unsigned defaultValue;
};
struct BinaryOption {
    const wchar_t* name;
    unsigned requiredSize;   // a stored block of any other size is ignored
};

namespace options {
inline constexpr BoolOption RequestElevation{L"RequestElevation", 0};
inline constexpr BoolOption ShutdownPrivilegeNoWarn{L"ShutdownPrivilegeNoWarn", 0};
inline constexpr BoolOption LaunchOnCAF{L"LaunchOnCAF", 0};
inline constexpr BoolOption ShowTrayIcon{L"ShowTrayIcon", 1};
inline constexpr BoolOption HideWhenMinimized{L"HideWhenMinimized", 0};
inline constexpr BoolOption ShowTrayPerfWnd{L"ShowTrayPerfWnd", 1};
inline constexpr BoolOption ShowTrayPerfCPU{L"ShowTrayPerfCPU", 1};
inline constexpr BoolOption ShowTrayPerfSysCPU{L"ShowTrayPerfSysCPU", 1};
inline constexpr BoolOption ShowTrayPerfPhysMem{L"ShowTrayPerfPhysMem", 1};
inline constexpr BoolOption StatusBarShowCPUPerf{L"StatusBarShowCPUPerf", 1};
inline constexpr BoolOption StatusBarShowMemPerf{L"StatusBarShowMemPerf", 1};
inline constexpr BoolOption BlankZero{L"BlankZero", 1};
inline constexpr BoolOption PreferMB{L"PreferMB", 0};   // read by the list refresh, changes no cell
inline constexpr BoolOption ResolveHostnames{L"ResolveHostnames", 1};
inline constexpr BoolOption ShowUnnamedHandles{L"ShowUnnamedHandles", 0};
inline constexpr BoolOption Topmost{L"Topmost", 0};
inline constexpr DwordOption TaskListSortMode{L"TaskListSortMode", 1};
inline constexpr BoolOption TaskListSortReverse{L"TaskListSortReverse", 0};
inline constexpr DwordOption UpdateInterval{L"UpdateInterval", 1000};
inline constexpr BinaryOption TaskListColumns{L"TaskListColumns", 52};    // 13 signed 32-bit column indexes
inline constexpr BinaryOption MainWndPlacement{L"MainWndPlacement", 44};  // a WINDOWPLACEMENT record
}  // namespace options

}  // namespace lmvx
