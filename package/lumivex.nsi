; Lumivex Setup: a 64-bit installer for every user of the machine, in English or German by the
; system's language. package/CMakeLists.txt builds it and passes VERSION, VERSION_QUAD, BIN_DIR,
; README_DIR, ICON and OUT_FILE.

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel admin
ManifestDPIAware true

!define PRODUCT "Lumivex"
!define PUBLISHER "Orvane Software"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Lumivex"
!define UNINSTALLER "uninstall.exe"
; Where the program makes itself the Task Manager replacement and registers its logon launcher.
!define TASKMGR_KEY "SOFTWARE\Microsoft\Windows NT\CurrentVersion\Image File Execution Options\taskmgr.exe"
!define RUN_KEY "SOFTWARE\Microsoft\Windows\CurrentVersion\Run"
!define LAUNCHER_VALUE "Lumivex Launcher"
; The caption of the program's main window: its full application name.
!define MAIN_WINDOW_CAPTION "Orvane Lumivex 5"
!define PROCESS_QUERY_LIMITED_INFORMATION 0x1000

Name "${PRODUCT}"
OutFile "${OUT_FILE}"
InstallDir "$PROGRAMFILES64\${PUBLISHER}\${PRODUCT}"
; An installed Lumivex is upgraded in its own folder.
InstallDirRegKey HKLM "${UNINSTALL_KEY}" "InstallLocation"
BrandingText "${PUBLISHER}"
ShowInstDetails show
ShowUninstDetails show

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include WinMessages.nsh

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING

!insertmacro MUI_PAGE_WELCOME
!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipFolderWhenUpgrading
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN "$INSTDIR\lmvx64.exe"
!insertmacro MUI_PAGE_FINISH

!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES

; Without a language dialog, Setup speaks the user's Windows language when it is one of these,
; English otherwise.
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "German"

!include "${__FILEDIR__}/installer_texts.nsh"
!include "${__FILEDIR__}/shipped_files.nsh"

VIProductVersion "${VERSION_QUAD}"
VIFileVersion "${VERSION_QUAD}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "ProductName" "${PRODUCT}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "CompanyName" "${PUBLISHER}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "FileDescription" "${PRODUCT} Setup"
VIAddVersionKey /LANG=${LANG_ENGLISH} "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "LegalCopyright" "Copyright © ${PUBLISHER}"

Var installedFolder

; Installing for every user writes to Program Files and HKLM: without administrative rights (an
; elevation that was refused, or a system without UAC) Setup says so instead of failing half-way.
!macro RequireAdministrator
    UserInfo::GetAccountType
    Pop $0
    ${If} $0 != "Admin"
        MessageBox MB_OK|MB_ICONSTOP "$(NeedsAdministrator)" /SD IDOK
        SetErrorLevel 740 ; ERROR_ELEVATION_REQUIRED
        Quit
    ${EndIf}
!macroend

Function .onInit
    SetShellVarContext all
    SetRegView 64
    !insertmacro RequireAdministrator
    ReadRegStr $installedFolder HKLM "${UNINSTALL_KEY}" "InstallLocation"
FunctionEnd

Function un.onInit
    SetShellVarContext all
    SetRegView 64
    !insertmacro RequireAdministrator
FunctionEnd

; An upgrade goes where the installed version is: no folder to choose.
Function SkipFolderWhenUpgrading
    ${If} $installedFolder != ""
        Abort
    ${EndIf}
FunctionEnd

; A running Lumivex keeps lmvx64.exe from being replaced or deleted. It is asked to close as its own
; close box would ask it (so it saves its settings) and given ten seconds; when it stays, the user is
; told and may close it and retry. In silent mode it is asked to close, and Setup fails when it stays.
; A Lumivex started from another folder (a portable copy) is left running.
!macro DefineRunningProgramCheck UN
    ; $R0 = 1 while lmvx64.exe of the installation folder cannot be opened for writing: it is running.
    Function ${UN}IsLumivexRunning
        StrCpy $R0 0
        ${IfNot} ${FileExists} "$INSTDIR\lmvx64.exe"
            Return
        ${EndIf}
        ClearErrors
        FileOpen $R1 "$INSTDIR\lmvx64.exe" a
        ${If} ${Errors}
            StrCpy $R0 1
        ${Else}
            FileClose $R1
        ${EndIf}
    FunctionEnd

    ; Sends WM_CLOSE to every main window of the lmvx64.exe of the installation folder.
    Function ${UN}AskLumivexToClose
        StrCpy $R2 0
        ${Do}
            FindWindow $R2 "#32770" "${MAIN_WINDOW_CAPTION}" "" $R2
            ${IfThen} $R2 == 0 ${|} ${ExitDo} ${|}
            StrCpy $R7 ""
            System::Call 'user32::GetWindowThreadProcessId(p R2, *i .R5)'
            System::Call 'kernel32::OpenProcess(i ${PROCESS_QUERY_LIMITED_INFORMATION}, i 0, i R5) p .R6'
            ${If} $R6 != 0
                System::Call 'kernel32::QueryFullProcessImageNameW(p R6, i 0, w .R7, *i ${NSIS_MAX_STRLEN})'
                System::Call 'kernel32::CloseHandle(p R6)'
            ${EndIf}
            ${If} $R7 == "$INSTDIR\lmvx64.exe"
                SendMessage $R2 ${WM_CLOSE} 0 0 /TIMEOUT=2000
            ${EndIf}
        ${Loop}
    FunctionEnd

    Function ${UN}CloseRunningLumivex
        retry:
        Call ${UN}IsLumivexRunning
        ${If} $R0 == 0
            Return
        ${EndIf}
        MessageBox MB_OKCANCEL|MB_ICONINFORMATION "$(LumivexRunning)" /SD IDOK IDOK close
        Abort
        close:
        ${For} $R3 1 40
            Call ${UN}AskLumivexToClose
            Call ${UN}IsLumivexRunning
            ${If} $R0 == 0
                Return
            ${EndIf}
            Sleep 250
        ${Next}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(LumivexStillRunning)" /SD IDCANCEL IDRETRY retry
        Abort
    FunctionEnd
!macroend
!insertmacro DefineRunningProgramCheck ""
!insertmacro DefineRunningProgramCheck "un."

Function WriteUninstallEntry
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "${PUBLISHER}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\lmvx64.exe,0"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\${UNINSTALLER}"'
    WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\${UNINSTALLER}" /S'
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    IntFmt $0 "0x%08X" $0
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "EstimatedSize" $0
FunctionEnd

Section "Lumivex"
    SectionIn RO
    Call CloseRunningLumivex
    SetOutPath "$INSTDIR"
    !insertmacro ForEachShippedFile InstallShippedFile
    WriteUninstaller "$INSTDIR\${UNINSTALLER}"
    CreateShortcut "$SMPROGRAMS\${PRODUCT}.lnk" "$INSTDIR\lmvx64.exe" "" "$INSTDIR\lmvx64.exe" 0 \
        SW_SHOWNORMAL "" "$(ShortcutDescription)"
    Call WriteUninstallEntry
SectionEnd

Var command
Var program
Var startsProgram

; $startsProgram = 1 when the command line $command starts $program: its path, quoted or not, followed
; by the end of the line or a space. Letter case does not count, as in Windows paths.
Function un.CommandStartsProgram
    StrCpy $startsProgram 0
    StrCpy $0 $command 1
    ${If} $0 == '"'
        StrCpy $command $command "" 1
        StrCpy $program '$program"'
    ${EndIf}
    StrLen $0 $program
    StrCpy $1 $command $0
    StrCpy $2 $command 1 $0
    ${If} $1 == $program
        ${If} $2 == ""
        ${OrIf} $2 == " "
            StrCpy $startsProgram 1
        ${EndIf}
    ${EndIf}
FunctionEnd

; Ctrl+Shift+Esc and the logon must not start files that are about to go. A replacement or launcher
; that points at another copy of Lumivex, or at another program, stays as it is.
Function un.RemoveRegistrationsOfThisCopy
    ReadRegStr $command HKLM "${TASKMGR_KEY}" "Debugger"
    StrCpy $program "$INSTDIR\lmvx64.exe"
    Call un.CommandStartsProgram
    ${If} $startsProgram == 1
        DeleteRegValue HKLM "${TASKMGR_KEY}" "Debugger"
    ${EndIf}
    ReadRegStr $command HKCU "${RUN_KEY}" "${LAUNCHER_VALUE}"
    StrCpy $program "$INSTDIR\lvLaunch.exe"
    Call un.CommandStartsProgram
    ${If} $startsProgram == 1
        DeleteRegValue HKCU "${RUN_KEY}" "${LAUNCHER_VALUE}"
    ${EndIf}
FunctionEnd

; The user's settings and notes (HKCU\Software\Orvane Software\Lumivex) stay for a later install.
Section "Uninstall"
    Call un.CloseRunningLumivex
    Call un.RemoveRegistrationsOfThisCopy
    !insertmacro ForEachShippedFile RemoveShippedFile
    Delete "$INSTDIR\${UNINSTALLER}"
    Delete "$SMPROGRAMS\${PRODUCT}.lnk"
    RMDir "$INSTDIR"
    RMDir "$PROGRAMFILES64\${PUBLISHER}"
    DeleteRegKey HKLM "${UNINSTALL_KEY}"
SectionEnd
