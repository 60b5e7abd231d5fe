; The installer. packaging/windows/build passes DIST (the files to install), LISTS (the folder of the generated install
; and uninstall lists), VERSION, OUTPUT and, if they exist, ICON and SIDE_PICTURE.
Unicode true
Target amd64-unicode
ManifestDPIAware true
RequestExecutionLevel admin
SetCompressor /SOLID lzma
!include MUI2.nsh
!include FileFunc.nsh

!define REGISTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Korvinel"
!define TITLE "Korvinel - EEG Analysis 4 channels  V 8.1  ita"
!define ROOT "C:\QUARVEL5"

Name "Korvinel ${VERSION}"
OutFile "${OUTPUT}"
BrandingText "Korvinel ${VERSION}"
InstallDir "$PROGRAMFILES64\Korvinel"
InstallDirRegKey HKLM "${REGISTRY}" "InstallLocation"
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Korvinel"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Installazione di Korvinel"
VIAddVersionKey LegalCopyright "MIT"

!ifdef ICON
  !define MUI_ICON "${ICON}"
  !define MUI_UNICON "${ICON}"
!endif
!ifdef SIDE_PICTURE
  !define MUI_WELCOMEFINISHPAGE_BITMAP "${SIDE_PICTURE}"
!endif
!define MUI_ABORTWARNING
!define MUI_WELCOMEPAGE_TEXT "Verrà installato Korvinel ${VERSION}, per registrare e analizzare l'EEG a quattro canali.$\r$\n$\r$\n\
I dati stanno nella cartella ${ROOT}. Se c'è già, impostazioni, calibrazione e registrazioni restano come sono.$\r$\n$\r$\n\
Premere Avanti per continuare."
!define MUI_FINISHPAGE_TEXT "Korvinel è installato.$\r$\n$\r$\nUna nuova installazione attende lo strumento sulla porta \
COM1. Per un'altra: menu Start, Korvinel, Porta seriale; il terzo valore della prima riga è il numero della porta."
!define MUI_FINISHPAGE_RUN "$INSTDIR\korvinel.exe"
!define MUI_FINISHPAGE_RUN_NOTCHECKED
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${DIST}\licenze\Korvinel.txt"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Italian"

; Refuse while Korvinel runs: it may be recording.
!macro EndWhileItRuns
  FindWindow $0 "" "${TITLE}"
  ${If} $0 <> 0
    MessageBox MB_OK|MB_ICONEXCLAMATION "Korvinel è in funzione. Chiuderlo e riprovare." /SD IDOK
    SetErrorLevel 3
    Quit
  ${EndIf}
!macroend

Function .onInit
  !insertmacro EndWhileItRuns
FunctionEnd

Function un.onInit
  !insertmacro EndWhileItRuns
FunctionEnd

Section
  SetShellVarContext all
  !include "${LISTS}\install.nsh"
  WriteUninstaller "$INSTDIR\disinstalla.exe"

  ; Existing files stay: they hold somebody's settings and calibration.
  SetOverwrite off
  CreateDirectory "${ROOT}\DATAFILE"
  SetOutPath "${ROOT}"
  File "defaults\Instal8s.val"
  File "defaults\Factors.val"
  ; Every user of the machine may record, not just the one who installed. S-1-5-32-545 is the group Users.
  nsExec::Exec '"$SYSDIR\icacls.exe" "${ROOT}" /grant *S-1-5-32-545:(OI)(CI)M'
  Pop $0

  SetOutPath "$INSTDIR"
  CreateDirectory "$SMPROGRAMS\Korvinel"
  CreateShortCut "$SMPROGRAMS\Korvinel\Korvinel.lnk" "$INSTDIR\korvinel.exe"
  CreateShortCut "$SMPROGRAMS\Korvinel\Porta seriale.lnk" "$WINDIR\notepad.exe" '"${ROOT}\Instal8s.val"'
  CreateShortCut "$SMPROGRAMS\Korvinel\Registrazioni.lnk" "${ROOT}\DATAFILE"
  CreateShortCut "$SMPROGRAMS\Korvinel\Disinstalla Korvinel.lnk" "$INSTDIR\disinstalla.exe"
  CreateShortCut "$SMPROGRAMS\Korvinel\Manuale.lnk" "$INSTDIR\manuale\manuale.pdf"
  CreateShortCut "$DESKTOP\Korvinel.lnk" "$INSTDIR\korvinel.exe"
  ; The prompt starts among the recordings and finds the tool by its name; the system's PATH is not changed.
  SetOutPath "${ROOT}\DATAFILE"
  CreateShortCut "$SMPROGRAMS\Korvinel\Riga di comando.lnk" "$SYSDIR\cmd.exe" \
    '/k set "PATH=$INSTDIR;%PATH%" & korvinel-recording --help'

  SetRegView 64
  WriteRegStr HKLM "${REGISTRY}" "DisplayName" "Korvinel"
  WriteRegStr HKLM "${REGISTRY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${REGISTRY}" "DisplayIcon" "$INSTDIR\korvinel.exe"
  WriteRegStr HKLM "${REGISTRY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${REGISTRY}" "UninstallString" '"$INSTDIR\disinstalla.exe"'
  WriteRegStr HKLM "${REGISTRY}" "QuietUninstallString" '"$INSTDIR\disinstalla.exe" /S'
  WriteRegDWORD HKLM "${REGISTRY}" "NoModify" 1
  WriteRegDWORD HKLM "${REGISTRY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKLM "${REGISTRY}" "EstimatedSize" $0
SectionEnd

Section Uninstall
  SetShellVarContext all
  ; Deletes only its own files: the folder may hold others.
  !include "${LISTS}\uninstall.nsh"
  Delete "$INSTDIR\disinstalla.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Korvinel\*.lnk"
  RMDir "$SMPROGRAMS\Korvinel"
  Delete "$DESKTOP\Korvinel.lnk"
  SetRegView 64
  DeleteRegKey HKLM "${REGISTRY}"
  MessageBox MB_OK|MB_ICONINFORMATION "Registrazioni, impostazioni e calibrazione restano nella cartella ${ROOT}." /SD IDOK
SectionEnd
