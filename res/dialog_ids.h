/* Dialog template ids, menu template ids and control ids. Plain #define lines only:
   the resource compiler reads this file too. */
#ifndef LMVX_DIALOG_IDS_H
#define LMVX_DIALOG_IDS_H

/* Menu templates */
#define IDR_MAIN_MENU                 131
#define IDR_PRIORITY_MENU             199

/* Dialog templates */
#define IDD_MAIN                      129
#define IDD_WARNING                   175
#define IDD_CONFIRM_TERMINATE         193
#define IDD_CONFIRM_SUSPEND           200
#define IDD_CONFIRM_PAGE_OUT          219
#define IDD_PERF_POPUP                343
#define IDD_RUN                       266
#define IDD_DETAILS_PANE              7662  /* first page of the main window's details pane */
#define IDD_ABOUT                     7654
#define IDD_DIALOG_277                277
#define IDD_OPTIONS                   213
#define IDD_OPTIONS_TASKMANAGER       215
#define IDD_OPTIONS_TRAY              216
#define IDD_OPTIONS_PROCESS_LIST      217
#define IDD_PROPERTIES_FRAME          7656
#define IDD_PAGE_GENERAL              195
#define IDD_PAGE_START                196
#define IDD_PAGE_PERFORMANCE          197
#define IDD_PAGE_MEMORY               198
#define IDD_PAGE_MODULES              199
#define IDD_PAGE_STRINGS              220
#define IDD_PAGE_THREADS              232
#define IDD_PAGE_TOKEN                255
#define IDD_PAGE_NETWORK              7657
#define IDD_PAGE_FILES                7658
#define IDD_PAGE_HANDLES              7659
#define IDD_PAGE_VIRTUAL_MEMORY       7661
#define IDD_THREAD_PANE_MODULE        233
#define IDD_THREAD_PANE_PERFORMANCE   234
#define IDD_THREAD_PANE_WINDOWS       235
#define IDD_CALL_STACK                244
#define IDD_KERNEL_OBJECTS            242
#define IDD_SCANNING_HANDLES          254
#define IDD_CLOSE_FILE_HANDLE         324
#define IDD_HANDLE_PROPERTIES         325
#define IDD_CLOSE_REMOTE_HANDLE       7660
#define IDD_MEMORY_VIEWER             261
#define IDD_MEMORY_SEARCH             264
#define IDD_MEMORY_SEARCH_PROGRESS    265
#define IDD_NETWORK_ENDPOINTS         267

/* Main window */
#define IDC_PROCESS_LIST              5001
#define IDC_STATUS_BAR                110

/* Warning dialog (175) */
#define IDC_WARNING_MESSAGE           1002
#define IDC_WARNING_HEADLINE          1003
#define IDC_WARNING_DONT_SHOW_AGAIN   1074

/* Confirmation dialogs (193, 200, 219) */
#define IDC_CONFIRM_ICON              1005
#define IDC_CONFIRM_NAME              1017
#define IDC_CONFIRM_COMPANY           1018
#define IDC_CONFIRM_TEXT              1006
#define IDC_CONFIRM_QUESTION          1007

/* Performance pop-up (343) */
#define IDC_POPUP_VALUE_1             1023  /* CPU usage / physical memory */
#define IDC_POPUP_VALUE_2             1044  /* context switches / paged memory */
#define IDC_POPUP_LABEL_1             1042
#define IDC_POPUP_LABEL_2             1043
#define IDC_POPUP_GRAPH               1057

/* Details pane */
#define IDC_PANE_SHOWN_PID            1016
#define IDC_PANE_PROPERTIES           1013
#define IDC_PANE_NAME                 1017
#define IDC_PANE_SECOND_LINE          1018
#define IDC_PANE_ICON_1               1019
#define IDC_PANE_ICON_2               1020
#define IDC_PANE_ICON_3               1021
#define IDC_PANE_ICON_4               1022
#define IDC_PANE_PRIORITY_LINK        1026
#define IDC_PANE_PAUSE                1055
#define IDC_PANE_GRAPH                1057
#define IDC_PANE_WINDOWS              1073
#define IDC_PANE_ICON_BUTTON          4

/* Run dialog (266) */
#define IDC_RUN_COMMAND               5443
#define IDC_RUN_AS_CURRENT_USER       1138
#define IDC_RUN_AS_ADMINISTRATOR      1139
#define IDC_RUN_BROWSE                1147
#define IDC_RUN_RECENT_TARGET         1003  /* not in template 266 (intended, see run dialog) */

/* About box (7654) */
#define IDC_ABOUT_ICON                7001
#define IDC_ABOUT_NAME                7002
#define IDC_ABOUT_VERSION             7003
#define IDC_ABOUT_BUILD               7004
#define IDC_ABOUT_COPYRIGHT           7005

/* Limited access (277): why some data is missing, and the request for administrator rights */
#define IDC_LIMITED_ICON              7011
#define IDC_LIMITED_HEADLINE          7012
#define IDC_LIMITED_TEXT              7013
#define IDC_LIMITED_REQUEST_ELEVATION 7014
#endif
