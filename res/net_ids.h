/* Network endpoints dialog (267) and the Network page (7657). Plain #define lines only:
   the resource compiler reads this file too. */
#ifndef LMVX_NET_IDS_H
#define LMVX_NET_IDS_H

#define IDC_ENDPOINT_LIST                 1054
#define IDC_ENDPOINT_HEADING              1149
#define IDC_ENDPOINT_TIME_LABEL           1158
#define IDC_ENDPOINT_TIME                 1031
#define IDC_ENDPOINT_LOCAL_ADDRESS        1150
#define IDC_ENDPOINT_LOCAL_PORT           1151
#define IDC_ENDPOINT_REMOTE_PORT          1152
#define IDC_ENDPOINT_REMOTE_ADDRESS       1153
#define IDC_ENDPOINT_LOCAL_ADDRESS_LABEL  1154
#define IDC_ENDPOINT_LOCAL_PORT_LABEL     1155
#define IDC_ENDPOINT_REMOTE_ADDRESS_LABEL 1156
#define IDC_ENDPOINT_REMOTE_PORT_LABEL    1157

#define IDC_NETWORK_PAGE_HEADING          1060
#define IDC_NETWORK_PAGE_COPY_EDIT        1190  /* hidden: the clipboard is filled through it */

/* Network page context menu */
#define IDM_RESOLVE_HOSTNAMES             6012
#define IDM_COPY_LOCAL_HOSTNAME           6013
#define IDM_COPY_REMOTE_HOSTNAME          6014

#endif
