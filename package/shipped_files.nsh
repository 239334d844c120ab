; The files the installer puts into the installation folder: the uninstaller removes exactly these.
; ACTION is a macro taking (source folder, file name).
!macro ForEachShippedFile ACTION
    !insertmacro ${ACTION} "${BIN_DIR}" lmvx64.exe
    !insertmacro ${ACTION} "${BIN_DIR}" kestrel64.dll
    !insertmacro ${ACTION} "${BIN_DIR}" heron64.dll
    !insertmacro ${ACTION} "${BIN_DIR}" wren64.dll
    !insertmacro ${ACTION} "${BIN_DIR}" finch64.dll
    !insertmacro ${ACTION} "${README_DIR}" readme.txt
!macroend

!macro InstallShippedFile FOLDER NAME
    File "${FOLDER}/${NAME}"
!macroend

!macro RemoveShippedFile FOLDER NAME
    Delete "$INSTDIR\${NAME}"
!macroend
