// Resource ids of wren64.dll's own dialogs, shared by the English, German and bilingual scripts.
#pragma once

#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif

// Bilingual first-start choice (language neutral: no language has been chosen yet).
#define IDD_WREN_SELECT_LANGUAGE 100
// Language settings of the running program (English and German).
#define IDD_WREN_LANGUAGE_SETTINGS 101

#define IDC_WREN_LANGUAGE_ENGLISH 1001
#define IDC_WREN_LANGUAGE_GERMAN 1002
#define IDC_WREN_LANGUAGE_PROMPT 1003
#define IDC_WREN_LANGUAGE_PROMPT_GERMAN 1004
#define IDC_WREN_LANGUAGE_NOTE 1005
