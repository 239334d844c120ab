/* Process properties window: the frame's controls. Plain #define lines only: the resource compiler reads
   this file too. */
#ifndef LMVX_PROPS_IDS_H
#define LMVX_PROPS_IDS_H

#define IDC_PROPERTIES_TREE           1061
#define IDC_PROPERTIES_EXIT_TEXT      1191
#define IDC_PROPERTIES_EXIT_ICON      1192
#define IDC_PROPERTIES_PAGE_AREA      1193  /* the etched frame the pages are placed in */

#endif
