/* Options dialog (213) and its pages (215, 216, 217). Plain #define lines only:
   the resource compiler reads this file too. */
#ifndef LMVX_OPTIONS_IDS_H
#define LMVX_OPTIONS_IDS_H

#define IDC_OPTIONS_TREE              1061
#define IDC_OPTIONS_PAGE_AREA         1062  /* frame the pages are placed in */
#define IDC_OPTIONS_HEADING           1003  /* bold heading of every page */

/* Replace Task Manager page (215) */
#define IDC_OPTIONS_REPLACE_TASKMGR   1004
#define IDC_OPTIONS_LAUNCH_ON_CAF     1164

/* Tray Icon page (216) */
#define IDC_OPTIONS_SHOW_TRAY_ICON    1064
#define IDC_OPTIONS_HIDE_MINIMIZED    1004
#define IDC_OPTIONS_SHOW_PERF_GRAPH   1056
#define IDC_OPTIONS_PERF_GROUP        1121
/* Pop-up parts: stored by the page, no control on it */
#define IDC_OPTIONS_PERF_CPU          1123
#define IDC_OPTIONS_PERF_SYS_CPU      1005
#define IDC_OPTIONS_PERF_PHYS_MEM     1122

/* Process List page (217) */
#define IDC_OPTIONS_BLANK_ZERO        1125
#define IDC_OPTIONS_RESTORE_COLUMNS   1163

#endif
