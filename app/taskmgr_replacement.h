// Lumivex in place of the Windows Task Manager: the "Debugger" value of taskmgr.exe's Image File Execution
// Options key (for all users, so it needs administrative rights) holds the program's own quoted path, and
// Ctrl+Shift+Esc then starts Lumivex.
#pragma once

namespace lmvx {

// Enable writes the own quoted path, disable removes the value (also when there is none). 1 on success,
// 0 when the key cannot be opened for writing or the write fails. On Windows 2000 a path that is too long
// is refused with a warning, and the result is 1.
int SetTaskManagerReplacement(int enable);
// 1 when the stored value is the own quoted path in any letter case.
int IsTaskManagerReplaced();
// Whether the key can be opened for writing (administrative rights) or for reading.
bool CanWriteReplacementKey();
bool CanReadReplacementKey();

// The same operations for a given quoted path, as the tests call them.
int SetTaskManagerReplacementFor(const wchar_t* quotedPath, int enable, bool windows2000);
int IsTaskManagerReplacedBy(const wchar_t* quotedPath);

}  // namespace lmvx
