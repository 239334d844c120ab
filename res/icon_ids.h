// Icon resource ids of Lumivex. Plain #define lines only: windres preprocesses this file too.
// Every id exists at 16 x 16 and 32 x 32 (tools/icongen draws them).
#ifndef LUMIVEX_RES_ICON_IDS_H
#define LUMIVEX_RES_ICON_IDS_H

// The program's own mark: main window, tray icon before the first sample.
#define IDI_LUMIVEX                 130

// CPU usage level pictures of the tray icon and the status bar, level = percent / 10.
// The numbering is not monotonic at level 6 (172 sits between 168 and 169); intended.
#define IDI_CPU_LEVEL_0             163
#define IDI_CPU_LEVEL_1             164
#define IDI_CPU_LEVEL_2             165
#define IDI_CPU_LEVEL_3             166
#define IDI_CPU_LEVEL_4             167
#define IDI_CPU_LEVEL_5             168
#define IDI_CPU_LEVEL_6             172
#define IDI_CPU_LEVEL_7             169
#define IDI_CPU_LEVEL_8             170
#define IDI_CPU_LEVEL_9             171
#define IDI_CPU_LEVEL_10            338

// Kernel object types (handle lists) and the properties window's page tree.
#define IDI_WINDOW                  232  // a generic top-level window
#define IDI_THREAD                  233  // a thread
#define IDI_MODULE                  248  // a loaded module or mapped file ("File", "IoCompletion")
#define IDI_REGISTRY_KEY            262  // "Key"
#define IDI_KERNEL_OBJECT           193  // any other object type, also "Mutant"
#define IDI_PROCESS                 247  // a process / executable
#define IDI_OBJECT_DIRECTORY        253  // "Directory"
#define IDI_EVENT                   249  // "Event"; also the process-has-exited notice
#define IDI_TOKEN                   250  // "Token"
#define IDI_SECTION                 251  // "Section" (shared memory)
#define IDI_PORT                    252  // "Port"; also network endpoints and the Network page
#define IDI_GROUP                   191  // token groups; the Token page

// Token page privileges.
#define IDI_PRIVILEGE_ENABLED       259  // a privilege with any attribute set
#define IDI_PRIVILEGE_DISABLED      260  // a privilege whose attributes are 0

// System figures: status bar panes, section headers, performance panes.
#define IDI_MEMORY                  187  // memory (status bar, memory viewer and search buttons)
#define IDI_PERFORMANCE             188  // CPU / performance graph
#define IDI_DETAILS_INFO            192  // details and information items
#define IDI_LIMITED_ACCESS          176  // warning: the program lacks full access to the system
#define IDI_UNKNOWN_PROCESS         183  // a process that is gone or unknown (exited parent)

// Process and window actions (toolbar, details pane, menus).
#define IDI_RUN                     322  // start a new program
#define IDI_KEEP_ON_TOP             326  // keep Lumivex in the foreground
#define IDI_PAGE_OUT                327  // page out a process's working set
#define IDI_SUSPEND_PROCESS         328
#define IDI_RESUME_PROCESS          228
#define IDI_CLOSE_WINDOW            329
#define IDI_BRING_TO_FRONT          330
#define IDI_OPEN_FOLDER             331  // open the containing folder
#define IDI_TERMINATE_PROCESS       332
#define IDI_RESTART_PROCESS         333
#define IDI_PROPERTIES              334  // process properties window
#define IDI_PROCESS_WINDOWS         227  // the windows of a process (window menu)
#define IDI_PRIORITY                223  // process priority
#define IDI_SUSPEND_THREAD          182  // suspend or resume a thread
#define IDI_TERMINATE_THREAD        186

// Tools and help.
#define IDI_PULSEWRIGHT             335  // sibling tool Pulsewright
#define IDI_HEAPWRIGHT              337  // sibling tool Heapwright
#define IDI_OPTIONS                 190
#define IDI_WEBSITE                 341  // the maker's web page
#define IDI_HELP                    342

#endif
