; The installer, for this user alone: no administrator rights, and settings stay beside the program.
;   makensis -DVERSION=… -DFOLDER=… -DFILES=… -DINSTALLER=… tarveth.nsi
; FILES takes the folder's files away again, see list_files.cmake.

Target amd64-unicode
!include "MUI2.nsh"

Name "Tarveth ${VERSION}"
OutFile "${INSTALLER}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Tarveth"
InstallDirRegKey HKCU "Software\Tarveth" "Folder"
SetCompressor /SOLID lzma
SetDateSave off ; so that the same files give the same installer

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tarveth"
!define MUI_ICON "tarveth.ico"
!define MUI_UNICON "tarveth.ico"
!insertmacro MUI_PAGE_LICENSE "${FOLDER}/LICENSE.txt"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN "$INSTDIR\tarveth.exe"
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; Tells the desktop that file types have changed.
!macro FileTypesChanged
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Section "Tarveth"
    SetOutPath "$INSTDIR"
    File /r "${FOLDER}/*"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortCut "$SMPROGRAMS\Tarveth.lnk" "$INSTDIR\tarveth.exe"

    WriteRegStr HKCU "Software\Tarveth" "Folder" "$INSTDIR"
    WriteRegStr HKCU "Software\Classes\.tsg" "" "Tarveth.Game"
    WriteRegStr HKCU "Software\Classes\Tarveth.Game" "" "Tarveth game"
    WriteRegStr HKCU "Software\Classes\Tarveth.Game\DefaultIcon" "" "$INSTDIR\tarveth.exe,0"
    WriteRegStr HKCU "Software\Classes\Tarveth.Game\shell\open\command" "" '"$INSTDIR\tarveth.exe" "%1"'
    !insertmacro FileTypesChanged

    WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Tarveth"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\tarveth.exe"
    WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
SectionEnd

; Saved games, settings, logs and pictures of one's own are the player's, and stay.
Section "Uninstall"
    !include "${FILES}"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\Tarveth.lnk"

    ReadRegStr $0 HKCU "Software\Classes\.tsg" ""
    StrCmp $0 "Tarveth.Game" 0 +2
    DeleteRegKey HKCU "Software\Classes\.tsg"
    DeleteRegKey HKCU "Software\Classes\Tarveth.Game"
    DeleteRegKey HKCU "Software\Tarveth"
    DeleteRegKey HKCU "${UNINSTALL}"
    !insertmacro FileTypesChanged
SectionEnd
