/* String table ids, English text in the trailing comment. Plain #define lines only:
   the resource compiler reads this file too. */
#ifndef LMVX_STRING_IDS_H
#define LMVX_STRING_IDS_H

/* Start-up status */
#define IDS_STATUS_INIT_PROCESS_LIST      104  /* "Initializing Process List..." */
#define IDS_STATUS_CREATE_THREADS         105  /* "Creating Background Threads..." */
#define IDS_STATUS_LOADING                106  /* "Loading..." */
#define IDS_STATUS_LOADING_RESOURCES      147  /* "Loading Resources..." */
#define IDS_STATUS_LOADING_TRAY_ICON      148  /* "Loading Tray Icon..." */
#define IDS_STATUS_LOADING_TOOLBAR        149  /* "Loading Toolbar..." */
#define IDS_STATUS_LOADING_UI             150  /* "Loading UI..." */

/* Process actions */
#define IDS_ERR_TERMINATE_PROCESS         107  /* "Lumivex could not terminate the process." */
#define IDS_ERR_CANNOT_PAUSE_SELF         108  /* "Lumivex cannot pause itself." */
#define IDS_PAUSE_PROCESS                 109  /* "Pause Process" */
#define IDS_APP_TITLE                     110  /* "Lumivex 2008" */
#define IDS_ERR_PAUSE_PROCESS             111  /* "Lumivex could not pause the process." */
#define IDS_PROCESS_NOT_PAUSED            112  /* "The process is not paused." */
#define IDS_RESUME_PROCESS                113  /* "Resume Process" */
#define IDS_ERR_RESUME_PROCESS            114  /* "Lumivex could not resume the process." */
#define IDS_ERR_PAGE_OUT_PROCESS          115  /* "Lumivex could not page out the process." */
#define IDS_PAGE_OUT_PROCESS              116  /* "Page Out Process" */
#define IDS_ERR_CHANGE_PRIORITY           117  /* "Lumivex could not change the process's priority." */
#define IDS_CHANGE_PRIORITY               118  /* "Change Process Priority" */
#define IDS_ERR_RESTART_PROCESS           128  /* "Lumivex could not restart the process." */
#define IDS_RESTART_PROCESS_CAPTION       129  /* "Restart Process" */
#define IDS_UNKNOWN_PROCESS               131  /* "Unknown Process (%d)" */

/* Priority class names */
#define IDS_PRIORITY_REALTIME             119  /* "Realtime" */
#define IDS_PRIORITY_HIGH                 120  /* "High" */
#define IDS_PRIORITY_ABOVE_NORMAL         121  /* "Above Normal" */
#define IDS_PRIORITY_NORMAL               122  /* "Normal" */
#define IDS_PRIORITY_BELOW_NORMAL         123  /* "Below Normal" */
#define IDS_PRIORITY_IDLE                 124  /* "Idle" */
#define IDS_UNKNOWN                       125  /* "Unknown" */

/* Task Manager replacement */
#define IDS_TASKMGR_CANNOT_REPLACE        126  /* "Windows Task Manager cannot be replaced." */
#define IDS_TASKMGR_PATH_TOO_LONG         127  /* "Windows 2000 requires that the path for Lumivex be less than 48 characters in length. Move Lumivex to a shallower directory to replace Windows Task Manager." */
#define IDS_OPTIONS_CANNOT_REPLACE        217  /* "Windows Task Manager cannot be replaced." */
#define IDS_OPTIONS_NEEDS_ADMIN           218  /* "This setting requires administrative rights. Restart Lumivex as an administrator to change this setting." */

/* Kernel objects */
#define IDS_UNNAMED_OBJECT                133  /* "Unnamed Object" */
#define IDS_COLUMN_TYPE                   134  /* "Type" */
#define IDS_COLUMN_NAME                   135  /* "Name" */
#define IDS_CLOSE_HANDLE_WARNING          138  /* "Warning: Closing a handle in a remote process can impair\nthe process's stability. The process will continue running\nunder the assumption that the handle is still valid.\nAre you sure?" */
#define IDS_ERR_CLOSE_HANDLE              139  /* "Lumivex could not close the handle." */
#define IDS_CLOSE_HANDLE                  140  /* "Close Handle" */

/* Shutdown and resume all */
#define IDS_CONFIRM_POWER_OFF             151  /* "Are you sure you want to power off the computer?" */
#define IDS_CONFIRM_REBOOT                152  /* "Are you sure you want to reboot the computer?" */
#define IDS_CONFIRM_LOGOFF                153  /* "Are you sure you want to log off?" */
#define IDS_ERR_RESUME_ALL                154  /* "Not all processes could be resumed." */
#define IDS_RESUME_ALL                    155  /* "Resume all Processes" */

/* View > Sort Process List, in menu order */
#define IDS_SORT_PROCESS_TREE             157  /* "Show Process Tree" */
#define IDS_SORT_START_ORDER              158  /* "Sort by Start Order" */
#define IDS_SORT_PROCESS_NAME             159  /* "Sort by &Process Name" */
#define IDS_SORT_PROCESS_ID               160  /* "Sort by &Process ID" */
#define IDS_SORT_CPU_USAGE                161  /* "Sort by CPU Usage" */
#define IDS_SORT_MEMORY_USAGE             162  /* "Sort by Memory Usage" */
#define IDS_SORT_DESCRIPTION              163  /* "Sort by Description" */
#define IDS_SORT_COMPANY_NAME             164  /* "Sort by Company Name" */
#define IDS_SORT_PATH_NAME                165  /* "Sort by Pathname" */
#define IDS_SORT_USERNAME                 166  /* "Sort by Username" */
#define IDS_SORT_HANDLE_COUNT             167  /* "Sort by Handle Count" */
#define IDS_SORT_USER_OBJECTS             168  /* "Sort by USER Objects" */
#define IDS_SORT_GDI_OBJECTS              169  /* "Sort by GDI Objects" */
#define IDS_SORT_REVERSE                  170  /* "Reverse Sort Order" */

/* View > Refresh Rate */
#define IDS_RATE_VERY_LOW                 171  /* "Very Low\t3 Seconds" */
#define IDS_RATE_LOW                      172  /* "Low \t1 Second" */
#define IDS_RATE_MEDIUM                   173  /* "Medium\t0.5 Seconds" */
#define IDS_RATE_HIGH                     174  /* "High\t0.25 Seconds" */
#define IDS_RATE_VERY_HIGH                175  /* "Very High\t0.1 Seconds" */
#define IDS_REFRESH_RATE                  200  /* "Refresh Rate" */

/* Process menu */
#define IDS_MENU_PROPERTIES_UNAVAILABLE   176  /* "Properties" */
#define IDS_MENU_PAUSE_PROCESS            177  /* "Pause Process" */
#define IDS_MENU_RESUME_PROCESS           179  /* "Resume Process" */
#define IDS_MENU_PRIORITY                 180  /* "Priority" */
#define IDS_MENU_PAGE_OUT_PROCESS         184  /* "Page Out Process" */
#define IDS_MENU_CLOSE_WINDOW_MANY        185  /* "Close Window..." */
#define IDS_MENU_CLOSE_WINDOW             186  /* "Close Window" */
#define IDS_MENU_BRING_TO_FRONT_MANY      187  /* "Bring to Front..." */
#define IDS_MENU_BRING_TO_FRONT           188  /* "Bring to Front" */
#define IDS_MENU_OPEN_CONTAINING_FOLDER   189  /* "Open Containing Folder" */
#define IDS_MENU_TERMINATE_PROCESS        190  /* "Terminate Process" */
#define IDS_MENU_RESTART_PROCESS          191  /* "Restart Process" */
#define IDS_MENU_PROPERTIES               192  /* "Properties" */
#define IDS_MENU_PROCESS                  193  /* "Process" (also the list's first column header) */
#define IDS_NO_OPEN_WINDOW                199  /* "This process has no open window" */
#define IDS_MENU_PAUSED                   327  /* "Paused" */

/* Tray menu */
#define IDS_TRAY_HIDE                     194  /* "Hide Lumivex" */
#define IDS_TRAY_SHOW                     195  /* "Show Lumivex" */
#define IDS_TRAY_SHOW_PERF_GRAPH          196  /* "Show Performance Graph" */
#define IDS_TRAY_EXIT                     198  /* "Exit Lumivex" */
#define IDS_TRAY_KEEP_IN_FOREGROUND       201  /* "Keep Lumivex in &Foreground" */

/* Network endpoints */
#define IDS_ENDPOINTS_CAPTION             204  /* "Network Endpoints for Process %d" */
#define IDS_COLUMN_LOCAL_HOST             205  /* "Local Host" */
#define IDS_COLUMN_REMOTE_HOST            206  /* "Remote Host" */
#define IDS_COLUMN_STATUS                 207  /* "Status" */
#define IDS_NO_NETWORK_CONNECTIONS        208  /* "This process has no open network connections." */
#define IDS_UDP_ENDPOINT                  209  /* "UDP Endpoint" */
#define IDS_TCP_ENDPOINT                  210  /* "TCP Endpoint" */
#define IDS_ENDPOINT                      211  /* "Endpoint" */
#define IDS_TODAY_TIME_MS                 212  /* "Today, %.2d:%.2d:%.2d.%.3d" */

/* Options dialog tree */
#define IDS_OPTIONS_ROOT                  214  /* "Lumivex Options" */
#define IDS_OPTIONS_REPLACE_TASKMGR       215  /* "Replace Task Manager" */
#define IDS_OPTIONS_PROCESS_LIST          216  /* "Process List" */
#define IDS_OPTIONS_TRAY_ICON             226  /* "Tray Icon" */

/* Memory viewer and search */
#define IDS_UNDEFINED                     219  /* "Undefined" */
#define IDS_ADDRESS_IMAGE                 220  /* "0x%.8X  [Image: %s]" */
#define IDS_ADDRESS_PRIVATE               221  /* "0x%.8X  [Private: %d Bytes]" */
#define IDS_MEMORY_VIEWER_CAPTION         222  /* "Process Memory Viewer (Process %d)" */
#define IDS_SEARCH_MEMORY_CAPTION         223  /* "Search Memory (Process %d)" */
#define IDS_COLUMN_ADDRESS                224  /* "Address" */
#define IDS_COLUMN_STRING                 225  /* "String" */
#define IDS_READING_ADDRESS               227  /* "Reading Address 0x%.8X" */

/* Properties window */
#define IDS_UNEXPECTED_ERROR              228  /* "An unexpected error has occured." */
#define IDS_PROCESS_PROPERTIES            229  /* "Process Properties" */
#define IDS_COLUMN_ITEM                   230  /* "Item" */
#define IDS_COLUMN_VALUE                  231  /* "Value" */
#define IDS_COLUMN_DESCRIPTION            232  /* "Description" */
#define IDS_COLUMN_COMPANY_NAME           233  /* "Company Name" */
#define IDS_COLUMN_PRODUCT_NAME           235  /* "Product Name" */
#define IDS_PROCESS_GONE                  237  /* "The process was closed or no information is available." */
#define IDS_TODAY                         238  /* "Today" */
#define IDS_YESTERDAY                     239  /* "Yesterday" */
#define IDS_DATE_FORMAT                   240  /* "%d/%d%/%d" (the second % is intended) */
#define IDS_ONE_DAY                       241  /* "%d Day " */
#define IDS_DAYS                          242  /* "%d Days " */
#define IDS_PROPERTIES_CAPTION            244  /* "Properties of %s (Process %d)" */
#define IDS_PAGE_GENERAL                  245  /* "General" */
#define IDS_PAGE_START                    246  /* "Start" */
#define IDS_PAGE_PERFORMANCE              247  /* "Performance" */
#define IDS_PAGE_MEMORY                   248  /* "Memory" */
#define IDS_PAGE_MODULES                  249  /* "Modules" */
#define IDS_PAGE_STRINGS                  250  /* "Strings" */
#define IDS_PAGE_THREADS                  251  /* "Threads" */
#define IDS_PAGE_TOKEN                    252  /* "Token" */
#define IDS_COLUMN_MODULE                 253  /* "Module" */
#define IDS_COLUMN_PATH_NAME              254  /* "Path Name" */
#define IDS_COLUMN_BASE_ADDRESS           255  /* "Base Address" */
#define IDS_COLUMN_BASE_SIZE              256  /* "Base Size" */
#define IDS_SELECT_MODULE                 257  /* "Select a module to show its description." */

/* Threads page */
#define IDS_COLUMN_THREAD_ID              261  /* "Thread ID" */
#define IDS_COLUMN_CPU_USAGE              262  /* "CPU Usage" */
#define IDS_COLUMN_START_ADDRESS          263  /* "Start Address" */
#define IDS_COLUMN_WINDOW_TITLE           264  /* "Window Title" */
#define IDS_COLUMN_HANDLE_NUMBER          265  /* "Handle #" */
#define IDS_RESUME_THREAD_BUTTON          269  /* "Resume Thread" */
#define IDS_SUSPEND_THREAD_BUTTON         270  /* "Suspend Thread" */
#define IDS_WINDOW_INVISIBLE              271  /* "(Invisible)" */
#define IDS_MENU_CALL_STACK               272  /* "Call Stack..." */
#define IDS_MENU_TERMINATE_THREAD         273  /* "Terminate Thread" */
#define IDS_MENU_WINDOW_BRING_TO_FRONT    274  /* "Bring to Front" */
#define IDS_MENU_WINDOW_HIDE              275  /* "Hide Window" */
#define IDS_MENU_WINDOW_RESTORE           276  /* "Restore Window" */
#define IDS_MENU_WINDOW_MAXIMIZE          277  /* "Maximize Window" */
#define IDS_MENU_WINDOW_MINIMIZE          278  /* "Minimize Window" */
#define IDS_MENU_WINDOW_CLOSE             279  /* "Close Window" */
#define IDS_TERMINATE_THREAD              280  /* "Terminate Thread" */
#define IDS_TERMINATE_THREAD_WARNING      281  /* "Warning: Terminating a thread in a process can impair the\nprocess's stability. ..." */
#define IDS_ERR_TERMINATE_THREAD          282  /* "Lumivex could not terminate the thread." */
#define IDS_ERR_RESUME_THREAD             283  /* "Lumivex could not resume the thread." */
#define IDS_RESUME_THREAD                 284  /* "Resume Thread" */
#define IDS_SUSPEND_THREAD_WARNING        285  /* "Warning: Suspending a thread in a process can render the \nprocess unstable. ..." */
#define IDS_SUSPEND_THREAD                286  /* "Suspend Thread" */
#define IDS_ERR_SUSPEND_THREAD            287  /* "Lumivex could not suspend the thread." */

/* Token page */
#define IDS_COLUMN_GROUP_NAME             288  /* "Group Name" */
#define IDS_COLUMN_FLAGS                  289  /* "Flags" */
#define IDS_COLUMN_PRIVILEGE              290  /* "Privilege" */
#define IDS_LOGON_ID                      291  /* "Logon ID (%s)" */
#define IDS_UNKNOWN_GROUP                 292  /* "Unknown Group" */
#define IDS_FLAG_OWNER                    293  /* "Owner " */
#define IDS_FLAG_MANDATORY                294  /* "Mandatory " */
#define IDS_FLAG_DEFAULT                  295  /* "Default " */
#define IDS_FLAG_ENABLED                  296  /* "Enabled " */
#define IDS_FLAG_RESTRICTED               297  /* "Restricted " */
#define IDS_UNKNOWN_PRIVILEGE             298  /* "Unknown Privilege (%u %u)" */
#define IDS_FLAG_REMOVED                  299  /* "Removed " */
#define IDS_FLAG_USED_FOR_ACCESS          300  /* "Used for Access " */
#define IDS_FLAG_DISABLED                 301  /* "Disabled " */

/* Run dialog */
#define IDS_RUN_AS_CURRENT_USER           305  /* "Run as current user. (%s)" */
#define IDS_RUN_AS_ADMINISTRATOR          306  /* "Run as Administrator." */
#define IDS_RUN_FILTER_NAME               307  /* "Applications (*.exe; *.com)" */
#define IDS_RUN_BROWSE_TITLE              308  /* "Browse" */
#define IDS_ERR_RUN_COMMAND               344  /* "Lumivex could not run the specified command." */
#define IDS_RUN_CAPTION                   345  /* "Run" */

/* Call stack dialog */
#define IDS_CALL_STACK_CAPTION            309  /* "Call Stack for Thread %d" */
#define IDS_COLUMN_CALL                   310  /* "Call" */
#define IDS_THREAD_NOT_FOUND              311  /* "Thread not found." */
#define IDS_ERR_FIND_THREAD               312  /* "Lumivex could not find the specified thread." */
#define IDS_CALL_STACK                    313  /* "Call Stack" */
#define IDS_CALL_STACK_FAILED             314  /* "Call Stack failed." */
#define IDS_ERR_THREAD_ACCESS_DENIED      315  /* "Lumivex was denied the right to access the thread." */
#define IDS_ERR_CREATE_CALL_STACK         316  /* "Could not create call stack." */

/* Process list and status bar */
#define IDS_START_TIME_FORMAT             321  /* "%.2d/%.2d/%.4d %.2d:%.2d:%.2d" */
#define IDS_STATUS_PROCESSES              324  /* "%d Processes" */
#define IDS_STATUS_CPU_USAGE              325  /* "CPU Usage: %d%%" */
#define IDS_STATUS_MEMORY                 326  /* "Memory: %d MB committed" */
#define IDS_COLUMN_MEMORY_USAGE           333  /* "Memory Usage" */
#define IDS_COLUMN_PROCESS_ID             334  /* "Process ID" */
#define IDS_COLUMN_START_TIME             335  /* "Start Time" */
#define IDS_COLUMN_USERNAME               336  /* "Username" */
#define IDS_COLUMN_HANDLES                337  /* "Handles" */
#define IDS_COLUMN_GDI_OBJECTS            338  /* "GDI Objects" */
#define IDS_COLUMN_USER_OBJECTS           339  /* "USER Objects" */

/* Image strings page */
#define IDS_ERR_LOAD_IMAGE_FILE           332  /* "Lumivex could not load the image file." */

/* Help and web */
#define IDS_HELP_FILE_NOT_FOUND           340  /* "Helpfile not found." */
#define IDS_HELP                          341  /* "Help" */
#define IDS_HELP_FILE_NAME                342  /* "LumivexHelp_en.chm" */
#define IDS_UPDATES_URL                   343  /* address of the update page */

#endif
