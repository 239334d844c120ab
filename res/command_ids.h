/* Command ids of the main window, its menus, the toolbar, the tray menu and the pages
   that carry their own commands. Plain #define lines only: the resource compiler reads
   this file too. */
#ifndef LMVX_COMMAND_IDS_H
#define LMVX_COMMAND_IDS_H

/* Main window: program */
#define IDM_EXIT                      2     /* "&Close Lumivex"; also the tray's "Exit Lumivex" */
#define IDM_EXIT_ALT                  8     /* second exit id, ends the main dialog like IDM_EXIT */
#define IDM_HELP                      9
#define IDM_TRAY_SEPARATOR_1          11    /* id carried by the tray menu's first separator */
#define IDM_TRAY_SEPARATOR_2          14    /* id carried by the tray menu's second separator */
#define IDM_RUN                       132   /* "&New Task (Run...)" */
#define IDM_ABOUT                     141   /* "&Info..." */
#define IDM_WEBSITE                   142
#define IDM_CHECK_UPDATES             144   /* "Search for &Updates" */
#define IDM_KEEP_IN_FOREGROUND        155
#define IDM_REBOOT                    157
#define IDM_LOGOFF                    158
#define IDM_POWER_OFF                 159
#define IDM_TRAY_SHOW_HIDE            174
#define IDM_RESUME_ALL                198   /* "Resume all Paused Processes" */
#define IDM_TOOL_PULSEWRIGHT          210   /* starts pulsewright64.exe */
#define IDM_LANGUAGE_SETTINGS         211
#define IDM_OPTIONS                   212
#define IDM_SHOW_PERFORMANCE_GRAPH    226   /* tray menu */
#define IDM_SHOW_DIALOG_277           279
#define IDM_TOGGLE_REQUEST_ELEVATION  280
#define IDM_TOOL_HEAPWRIGHT           339   /* starts heapwright64.exe */
#define IDM_STATUSBAR_SHOW_CPU        6015
#define IDM_STATUSBAR_SHOW_MEMORY     6016

/* Process actions (forwarded to the details pane) */
#define IDM_TERMINATE_PROCESS         3
#define IDM_PANE_ICON_BUTTON          4     /* third icon button of the details pane */
#define IDM_RESUME_PROCESS            197
#define IDM_OPEN_CONTAINING_FOLDER    209
#define IDM_PAGE_OUT_PROCESS          214
#define IDM_BRING_TO_FRONT            224
#define IDM_CLOSE_WINDOW              225
#define IDM_MEMORY_VIEWER             263
#define IDM_NETWORK_CONNECTIONS       268
#define IDM_RESTART_PROCESS           269
#define IDM_PROPERTIES                1013
#define IDM_PANE_PRIORITY_LINK        1026
#define IDM_KERNEL_OBJECTS            1054
#define IDM_PAUSE_PROCESS             1055
#define IDM_PANE_WINDOWS              1073
#define IDM_NO_OPEN_WINDOW            65535 /* grayed placeholder of the window menu */

/* Priority menu (menu 199); there is no item 201 */
#define IDM_PRIORITY_REALTIME         200
#define IDM_PRIORITY_HIGH             202
#define IDM_PRIORITY_ABOVE_NORMAL     203
#define IDM_PRIORITY_NORMAL           204
#define IDM_PRIORITY_BELOW_NORMAL     205
#define IDM_PRIORITY_IDLE             206
#define IDM_PRIORITY_PAUSED           207

/* View > Sort Process List */
#define IDM_SORT_PROCESS_NAME         147   /* mode 2 */
#define IDM_SORT_PROCESS_ID           148   /* mode 8 */
#define IDM_SORT_CPU_USAGE            215   /* mode 3 */
#define IDM_SORT_MEMORY_USAGE         216   /* mode 4 */
#define IDM_SORT_DESCRIPTION          217   /* mode 5 */
#define IDM_SORT_COMPANY_NAME         218   /* mode 6 */
#define IDM_SORT_PATH_NAME            219   /* mode 7 */
#define IDM_SORT_PROCESS_TREE         220   /* mode 1 */
#define IDM_SORT_REVERSE              221
#define IDM_SORT_START_ORDER          222   /* mode 0 */
#define IDM_SORT_USERNAME             271   /* mode 9 */
#define IDM_SORT_HANDLE_COUNT         272   /* mode 10 */
#define IDM_SORT_GDI_OBJECTS          274   /* mode 12 */
#define IDM_SORT_USER_OBJECTS         1032  /* mode 11 */

/* View > Refresh Rate */
#define IDM_RATE_VERY_LOW             150   /* 3000 ms */
#define IDM_RATE_LOW                  151   /* 1000 ms */
#define IDM_RATE_MEDIUM               152   /* 500 ms */
#define IDM_RATE_HIGH                 229   /* 250 ms */
#define IDM_RATE_VERY_HIGH            230   /* 100 ms */

/* Threads page */
#define IDM_THREAD_CALL_STACK         246
#define IDM_THREAD_SUSPEND_RESUME     1088
#define IDM_THREAD_TERMINATE          1089
#define IDM_WINDOW_BRING_TO_FRONT     235
#define IDM_WINDOW_CLOSE              237
#define IDM_WINDOW_MAXIMIZE           238
#define IDM_WINDOW_MINIMIZE           239
#define IDM_WINDOW_RESTORE            240
#define IDM_WINDOW_HIDE               241

/* Kernel objects dialog, Handles and Files pages */
#define IDM_HANDLE_OPEN_FOLDER        130
#define IDM_HANDLE_UPDATE_LIST        136
#define IDM_HANDLE_COPY_NAME          137
#define IDM_HANDLE_CLOSE              140
#define IDM_HANDLE_CLOSE_PAGE         256
#define IDM_HANDLE_COPY_NAME_PAGE     257
#define IDM_HANDLE_OPEN_FOLDER_PAGE   258
#define IDM_HANDLE_PROPERTIES         323

/* Modules page */
#define IDM_MODULE_COPY_DESCRIPTION   257
#define IDM_MODULE_OPEN_FOLDER        258
#define IDM_MODULE_COPY_PATHNAME      6011

#endif
