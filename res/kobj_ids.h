/* Kernel objects: the Kernel Objects dialog, handle properties, the Handles and Files pages and their
   confirmations. Plain #define lines only: the resource compiler reads this file too. */
#ifndef LMVX_KOBJ_IDS_H
#define LMVX_KOBJ_IDS_H

/* Strings */
#define IDS_OPEN_CONTAINING_FOLDER    130  /* "Open Containing Folder" */
#define IDS_UPDATE_HANDLE_LIST        136  /* "Update Handle List" */
#define IDS_COPY_NAME                 137  /* "Copy Name" */

/* Kernel Objects dialog (242) */
#define IDC_KOBJ_LIST                 1054
#define IDC_KOBJ_TYPE_LABEL           1101  /* "Object Type", bold */
#define IDC_KOBJ_SELECTED_VALUE       1103  /* hidden: the selected handle value, as an unsigned number */
#define IDC_KOBJ_OBJECT_NAME          1110
#define IDC_KOBJ_PRINT_NAME           1111
#define IDC_KOBJ_TYPE_ICON            1112
#define IDC_KOBJ_REFERENCES           1113
#define IDC_KOBJ_HANDLE_VALUE         1114
#define IDC_KOBJ_UPDATE_LIST          1115  /* button and command "Update Handle List" */
#define IDC_KOBJ_PAGED_POOL           1116
#define IDC_KOBJ_NONPAGED_POOL        1117
#define IDC_KOBJ_ACCESS               1119

/* Scanning notice (254) */
#define IDC_SCANNING_ICON             1120

/* Handle properties (325); pool quotas and access share 1116, 1117 and 1119 with dialog 242 */
#define IDC_HPROP_NAME_LABEL          5332
#define IDC_HPROP_TYPE                5323
#define IDC_HPROP_OBJECT_NAME         1201
#define IDC_HPROP_REFERENCES          1197
#define IDC_HPROP_HANDLE_VALUE        1198
#define IDC_HPROP_ADDRESS             5324  /* keeps its "n/a" */
#define IDC_HPROP_MORE_PROPERTIES     5325  /* "Additional Properties": stays empty */

/* Handles page (7659) and Files page (7658) */
#define IDC_HPAGE_TITLE               1060
#define IDC_HPAGE_LIST                1189
#define IDC_HPAGE_CLIPBOARD           1190  /* hidden edit: copies go through it */
#define IDM_SHOW_UNNAMED_HANDLES      6010

/* File handle confirmation (324) */
#define IDC_CLOSEFILE_PATH            1193
#define IDC_CLOSEFILE_TYPE            1194
#define IDC_CLOSEFILE_ICON            1195

/* Timers */
#define IDT_HANDLES_REFRESH           4000
#define IDT_HANDLES_AFTER_CLOSE       4004

#endif
