// Window-bound records start with a signature shared by all of them, a four-letter type tag, the creator's
// code address and the record's size; every use checks them and treats a mismatch as no object.
#pragma once
#include <windows.h>

namespace lmvx {

inline constexpr DWORD kRecordSignature = 0x4C4D5658;   // "LMVX"

}  // namespace lmvx
