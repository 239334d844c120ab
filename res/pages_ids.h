/* The General, Start, Performance, Memory and Token pages of the process properties window: control ids
   and the strings only these pages use. Plain #define lines only: the resource compiler reads this file too. */
#ifndef LMVX_PAGES_IDS_H
#define LMVX_PAGES_IDS_H

/* Shared by the pages */
#define IDC_PAGES_TITLE               1060  /* bold page title */
#define IDC_PAGES_PROCESS_ICON        1523  /* the process's large icon */
#define IDC_PAGES_PROCESS_NAME        1029  /* display name, bold (General, Start) */
#define IDC_PAGES_COMPANY             1030
#define IDC_PAGES_PATH                1002
#define IDC_PAGES_SECTION_ICON_1      1010  /* the first section's icon (Performance, Memory) */

/* General page (195) */
#define IDC_GENERAL_OPEN_FOLDER       9564
#define IDC_GENERAL_LIST              1044  /* gets its columns, never rows */
#define IDC_GENERAL_FILE_VERSION      1183
#define IDC_GENERAL_COPYRIGHT         1184
#define IDC_GENERAL_PRODUCT_NAME      1185
#define IDC_GENERAL_PRODUCT_VERSION   1186
#define IDC_GENERAL_TIMESTAMP         1187
#define IDC_GENERAL_NUMERIC_VERSION   1059
#define IDC_GENERAL_PID               1043
#define IDC_GENERAL_ARCHITECTURE      1188  /* never filled: keeps "n/a" */
#define IDC_GENERAL_NOTE              1174

/* Start page (196) */
#define IDC_START_TIME                1031
#define IDC_START_COMMAND_LINE_LABEL  6548
#define IDC_START_COMMAND_LINE        1003
#define IDC_START_PARENT_CAPTION      1175
#define IDC_START_PARENT_ICON         1524
#define IDC_START_PARENT_NAME         1032
#define IDC_START_PARENT_COMPANY      1033
#define IDC_START_PARENT_GONE         1034
#define IDC_START_PARENT_PID          1035
#define IDC_START_ENVIRONMENT_LABEL   6549
#define IDC_START_ENVIRONMENT         1200

/* Performance page (197) */
#define IDC_PERF_CPU_SECTION          1178
#define IDC_PERF_IO_SECTION           1177
#define IDC_PERF_IO_ICON              1179
#define IDC_PERF_CPU_USAGE            1022
#define IDC_PERF_CPU_BAR              1027
#define IDC_PERF_PRIORITY             1023
#define IDC_PERF_RUNTIME              1026
#define IDC_PERF_KERNEL_TIME          1024
#define IDC_PERF_USER_TIME            1025
#define IDC_PERF_TOTAL_TIME           1029
#define IDC_PERF_KERNEL_USAGE         1028  /* never filled: keeps "n/a" */
#define IDC_PERF_USER_USAGE           1030  /* never filled: keeps "n/a" */
#define IDC_PERF_WRITE_OPERATIONS     5103
#define IDC_PERF_WRITE_DELTA          5104
#define IDC_PERF_READ_OPERATIONS      5102
#define IDC_PERF_READ_DELTA           5105
#define IDC_PERF_OTHER_OPERATIONS     5101
#define IDC_PERF_OTHER_DELTA          5106
#define IDC_PERF_PAGEFAULTS           1043
#define IDC_PERF_PAGEFAULT_DELTA      5107  /* never filled: keeps "n/a" */
#define IDC_PERF_GRAPH                1052

/* Memory page (198) */
#define IDC_MEMORY_USAGE_SECTION      1182
#define IDC_MEMORY_RESOURCES_SECTION  1181
#define IDC_MEMORY_RESOURCES_ICON     1180
#define IDC_MEMORY_PHYSICAL           5104
#define IDC_MEMORY_PHYSICAL_PEAK      6543
#define IDC_MEMORY_PHYSICAL_DELTA     1046
#define IDC_MEMORY_PAGED              1047
#define IDC_MEMORY_PAGED_PEAK         1048
#define IDC_MEMORY_PAGED_DELTA        1052
#define IDC_MEMORY_PRIVATE            1100
#define IDC_MEMORY_HANDLES            1051
#define IDC_MEMORY_GDI_OBJECTS        1031
#define IDC_MEMORY_USER_OBJECTS       1032
#define IDC_MEMORY_GRAPH              1053

/* Token page (255) */
#define IDC_TOKEN_USER                1126
#define IDC_TOKEN_SID                 1127
#define IDC_TOKEN_SESSION             1128
#define IDC_TOKEN_GROUPS              1054
#define IDC_TOKEN_PRIVILEGES          1055

/* Timer of the Performance and Memory pages */
#define IDT_PAGE_POLL                 6051

#endif
