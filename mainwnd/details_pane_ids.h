/* Controls of the details pane's first page that the program adds to the ids every page shares.
   Plain #define lines only: the resource compiler reads this file too. */
#ifndef LMVX_DETAILS_PANE_IDS_H
#define LMVX_DETAILS_PANE_IDS_H

#define IDC_PANE_NOTES                1062  /* note of the process's image, kept under the Notes key */
#define IDC_PANE_PROCESS_ICON         1063  /* the shown process's own 32 x 32 icon */
#define IDC_PANE_PATH                 1064
#define IDC_PANE_GRAPH_LABEL          1065
#define IDC_PANE_NOTES_LABEL          1066
#define IDC_PANE_PRIORITY_LABEL       1067

#endif
