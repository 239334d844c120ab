// Ids of the language module's test resources (lang_test.rc).
#pragma once

// Strings 100-102 exist in English and German; 103 only in English. 140 sits in a second block.
#define IDS_TEST_GREETING 100
#define IDS_TEST_UMLAUTS 101
#define IDS_TEST_FORMAT 102
#define IDS_TEST_ENGLISH_ONLY 103
#define IDS_TEST_OTHER_BLOCK 140
// Never defined: the same block as the strings above, and a block that does not exist at all.
#define IDS_TEST_MISSING_IN_BLOCK 110
#define IDS_TEST_MISSING_BLOCK 4000

#define IDD_TEST_DIALOG 200
#define IDD_TEST_ENGLISH_ONLY_DIALOG 201
#define IDC_TEST_LABEL 1001

#define IDM_TEST_MENU 300
#define IDM_TEST_OPEN 3001
#define IDM_TEST_CLOSE 3002
