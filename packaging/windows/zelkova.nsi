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
  File /r /x zelkova.ini /x error.log "${STAGE}/*"
  SetOverwrite off   ; the user's own
  File "${STAGE}/zelkova.ini"
  File "${STAGE}/error.log"
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

; Settings and log stay; what the user put there stays too.
Section "Uninstall"
  !include "${LIST}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\ZELKOVA.lnk"
  DeleteRegKey HKCU "${KEY}"
  DeleteRegKey HKCU "Software\ZELKOVA\Setup"
SectionEnd
