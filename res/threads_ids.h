/* Ids of the Threads page (232) with its panes (233, 234, 235), the call stack dialog (244) and the
   Modules page (199). Plain #define lines only: the resource compiler reads this file too. */
#ifndef LMVX_THREADS_IDS_H
#define LMVX_THREADS_IDS_H

/* Strings */
#define IDS_PRIORITY_TIME_CRITICAL        267  /* "Time Critical" */
#define IDS_PRIORITY_LOW                  268  /* "Low" */

/* Threads page (232) */
#define IDC_THREADS_TITLE                 1060
#define IDC_THREADS_LIST                  1078
#define IDC_THREADS_SHOWN_ID              1079  /* hidden; its window user data holds the thread shown */
#define IDC_THREADS_SHOW_PERFORMANCE      1092
#define IDC_THREADS_SHOW_MODULE           1093
#define IDC_THREADS_SHOW_WINDOWS          1094

/* Ids the page gives its three panes */
#define IDC_THREADS_PANE_MODULE           43520
#define IDC_THREADS_PANE_PERFORMANCE      43521
#define IDC_THREADS_PANE_WINDOWS          43522

/* Performance pane (234) */
#define IDC_THREAD_PRIORITY               1081
#define IDC_THREAD_CPU                    1085
#define IDC_THREAD_CPU_AVERAGE            1086
#define IDC_THREAD_START_TIME             1096
#define IDC_THREAD_RUNTIME                1091
#define IDC_THREAD_KERNEL_TIME            1082
#define IDC_THREAD_USER_TIME              1083
#define IDC_THREAD_TOTAL_TIME             1084
#define IDC_THREAD_PERFORMANCE_HEADER     1098
#define IDC_THREAD_TIMES_HEADER           1095
#define IDC_THREAD_ID_TEXT                1079
/* buttons: IDM_THREAD_TERMINATE (1089) and IDM_THREAD_SUSPEND_RESUME (1088) */

/* Module pane (233) */
#define IDC_THREAD_ABSOLUTE_OFFSET        1087
#define IDC_THREAD_MODULE_NAME            1086
#define IDC_THREAD_RELATIVE_OFFSET        1090
#define IDC_THREAD_LAST_ERROR             1080
#define IDC_THREAD_LAST_STATUS            1082
#define IDC_THREAD_START_HEADER           1094
#define IDC_THREAD_ERROR_HEADER           1097

/* Windows pane (235) */
#define IDC_THREAD_WINDOW_LIST            1054

/* Call stack dialog (244) */
#define IDC_CALL_STACK_TITLE              1060
#define IDC_CALL_STACK_LIST               1054
#define IDC_CALL_STACK_SOURCE             1104
#define IDC_CALL_STACK_MODULE             1105
#define IDC_CALL_STACK_FUNCTION           1106
#define IDC_CALL_STACK_ADDRESS            1107
#define IDC_CALL_STACK_RETURN_ADDRESS     1108
#define IDC_CALL_STACK_SHOWN_FRAME        1109  /* hidden "ListSel": the frame whose details are shown */

/* Modules page (199) */
#define IDC_MODULES_TITLE                 1060
#define IDC_MODULES_LIST                  1054
#define IDC_MODULES_ICON                  1071
#define IDC_MODULES_DESCRIPTION           1068
#define IDC_MODULES_PRODUCT               1069
#define IDC_MODULES_COMPANY               1070
#define IDC_MODULES_OPEN_FOLDER           1067
#define IDC_MODULES_PATH                  1062
#define IDC_MODULES_SHOWN_ROW             1072  /* hidden: the row whose details are shown, initially "50" */
#define IDC_MODULES_CLIPBOARD             1190  /* hidden edit for copying to the clipboard */
#define IDM_MODULE_PROPERTIES             323

#endif
