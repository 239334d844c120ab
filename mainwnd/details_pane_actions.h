// The actions the program's details pane calls: the process actions, the windows of a process, the priority
// menu, the shell and the per-process history graphs.
#pragma once
#include "mainwnd/details_pane.h"

namespace lmvx {

PaneActions ProgramPaneActions();

}  // namespace lmvx
