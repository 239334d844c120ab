/* Control ids of the memory viewer (261), memory search (264), its progress dialog (265), the Virtual
   Memory page (7661) and the Strings page (220). Plain #define lines only: windres reads this file too. */
#ifndef LMVX_MEMORY_IDS_H
#define LMVX_MEMORY_IDS_H

/* Memory viewer 261 and Virtual Memory page 7661 */
#define IDC_MEM_ADDRESS               1128  /* editable combo box: address entry and known addresses */
#define IDC_MEM_ALLOCATION_BASE       1129  /* link */
#define IDC_MEM_REGION_SIZE           1130
#define IDC_MEM_STATE                 1131
#define IDC_MEM_PROTECT               1132
#define IDC_MEM_TYPE                  1133
#define IDC_MEM_BASE_ADDRESS          1134  /* link */
#define IDC_MEM_SYMBOL                1135
#define IDC_MEM_SOURCE                1136
#define IDC_MEM_DUMP                  1137
#define IDC_MEM_SEARCH                1142
#define IDC_VM_TITLE                  1060
#define IDC_VM_NEXT_PAGE              1065
#define IDC_VM_PREVIOUS_PAGE          1066

/* Memory search 264 and its progress dialog 265 */
#define IDC_SEARCH_OPEN_ADDRESS       1014
#define IDC_SEARCH_RESULTS            1054
#define IDC_SEARCH_TEXT               1144
#define IDC_SEARCH_PROGRESS_TEXT      1001
#define IDC_SEARCH_PROGRESS_BAR       1143

/* Strings page 220 */
#define IDC_STRINGS_TITLE             1060
#define IDC_STRINGS_FILTER_LABEL      1068
#define IDC_STRINGS_LIST              1054
#define IDC_STRINGS_FILTER            1077
#define IDC_STRINGS_COPY              257
#define IDC_STRINGS_PROGRESS          1160
#define IDC_STRINGS_STATUS            1161
#define IDC_STRINGS_LAST_FILTER       1202
#define IDC_STRINGS_CLIPBOARD         1190

/* Private messages */
#define WM_LMVX_PAGE_REFRESH          1040  /* the properties window asks a visible page to refresh */

#endif
