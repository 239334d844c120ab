// The program's identity, registered with the runtime and UI libraries at start-up.
#pragma once

namespace lmvx {

inline constexpr const wchar_t* kAppNameFull = L"Orvane Lumivex 5";
inline constexpr const wchar_t* kAppName = L"Lumivex";
inline constexpr const wchar_t* kVersionText = L"5.0";
inline constexpr unsigned kVersionNumber = 5001;
inline constexpr const wchar_t* kAppCode = L"lmvx";
inline constexpr unsigned kBuildNumber = 8212;
inline constexpr const wchar_t* kExecutable64Name = L"lmvx64.exe";

// The compiler's own date and time of this build, as wide text.
#define LMVX_WIDEN2(text) L##text
#define LMVX_WIDEN(text) LMVX_WIDEN2(text)
inline constexpr const wchar_t* kBuildDate = LMVX_WIDEN(__DATE__);
inline constexpr const wchar_t* kBuildTime = LMVX_WIDEN(__TIME__);

}  // namespace lmvx
