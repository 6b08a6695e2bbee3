; Per user, without administrator: settings and log live beside the program.
Unicode true
Target amd64-unicode  ; 64-bit as the program, and what wine64 alone can run
!include MUI2.nsh
Name "ZELKOVA"
OutFile "${OUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\ZELKOVA"
InstallDirRegKey HKCU "Software\ZELKOVA\Setup" "Folder"
SetCompressor /SOLID lzma
!define MUI_ICON "${ICON}"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN "$INSTDIR\zelkova.exe"
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "Japanese"
!define KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\ZELKOVA"

Section
  ; An older version takes its own files away first; settings and log stay.
  IfFileExists "$INSTDIR\uninstall.exe" 0 +2
  ExecWait '"$INSTDIR\uninstall.exe" /S _?=$INSTDIR'
  SetOutPath "$INSTDIR"
  File /r /x zelkova.ini /x error.log /x demo /x vqmap "${STAGE}/*"
  SetOverwrite off   ; the user's own, and what the user changed
  File "${STAGE}/zelkova.ini"
  File "${STAGE}/error.log"
  File /r "${STAGE}/demo" "${STAGE}/vqmap"
  SetOverwrite on
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\ZELKOVA.lnk" "$INSTDIR\zelkova.exe"
  WriteRegStr HKCU "Software\ZELKOVA\Setup" "Folder" "$INSTDIR"
  WriteRegStr HKCU "${KEY}" "DisplayName" "ZELKOVA"
  WriteRegStr HKCU "${KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${KEY}" "DisplayIcon" "$INSTDIR\zelkova.exe"
  WriteRegStr HKCU "${KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegDWORD HKCU "${KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${KEY}" "NoRepair" 1
SectionEnd

; Gives "" in $4 if the file $0 and the one that was brought, $1, hold the same bytes.
Function un.Compare
  ClearErrors
  FileOpen $2 $0 r
  FileOpen $3 $1 r
  IfErrors differ
  next:
    FileReadByte $2 $4
    FileReadByte $3 $5
    StrCmp $4 $5 0 differ
    StrCmp $4 "" done next
  differ:
    StrCpy $4 "differ"
  done:
    FileClose $2
    FileClose $3
FunctionEnd

; Image files, address maps and tables: the user may have saved into what was brought.
!macro DeleteUnchanged STAGED INSTALLED
  StrCpy $0 "$INSTDIR\${INSTALLED}"
  StrCpy $1 "$PLUGINSDIR\brought"
  File "/oname=$1" "${STAGE}/${STAGED}"
  Call un.Compare
  StrCmp $4 "" 0 +2
    Delete "$0"
!macroend

; Settings, log and files that were changed stay; what the user put there stays too.
Section "Uninstall"
  InitPluginsDir
  !include "${LIST}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\ZELKOVA.lnk"
  DeleteRegKey HKCU "${KEY}"
  DeleteRegKey HKCU "Software\ZELKOVA\Setup"
SectionEnd
