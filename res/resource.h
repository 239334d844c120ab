/* All resource ids of the program: strings, commands, dialogs and icons. */
#ifndef LMVX_RESOURCE_H
#define LMVX_RESOURCE_H

#include "string_ids.h"
#include "command_ids.h"
#include "dialog_ids.h"
#include "props_ids.h"
#include "pages_ids.h"
#include "options_ids.h"
#include "net_ids.h"
#include "threads_ids.h"
#include "kobj_ids.h"
#include "memory_ids.h"
#if defined(__has_include)
#if __has_include("icon_ids.h")
#include "icon_ids.h"
#endif
#endif

#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif

#endif
