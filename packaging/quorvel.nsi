; The installer for Windows. make_installer.sh compiles it and defines:
;   FOLDER     the folder with the programs, their data and the licences
;   REMOVAL    a script that deletes exactly these files and folders
;   INSTALLER  the file to make
;   ICON       the icon of installer and uninstaller
;
; It installs for the user who runs it and needs no administrator's rights: everything is written to
; the user's own folders and to HKEY_CURRENT_USER. With /S it asks nothing, and /D=FOLDER, as the last
; option, chooses the folder.

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
ManifestLongPathAware true

!include LogicLib.nsh
!include Integration.nsh
!include MUI2.nsh

!getdllversion "${FOLDER}/quorvel.exe" program_
!define VERSION "${program_1}.${program_2}"
!define CLASSES "Software\Classes"
!define DOCUMENT "Quorvel.Document"
!define ENTRIES "Software\Microsoft\Windows\CurrentVersion\Uninstall" ; "Apps" in Settings shows them
!define ENTRY "${ENTRIES}\Quorvel"
!define PROGRAMS "$LOCALAPPDATA\Programs"
!define PUBLISHER "Quorvel maintainers"
!define SHORTCUT "$SMPROGRAMS\Quorvel.lnk"

Name "Quorvel"
BrandingText "Quorvel ${VERSION}"
OutFile "${INSTALLER}"
InstallDir "${PROGRAMS}\Quorvel"
InstallDirRegKey HKCU "${ENTRY}" "InstallLocation" ; a new version replaces the old one in its place

VIProductVersion "${VERSION}.0.0"
VIAddVersionKey /LANG=0 "CompanyName" "${PUBLISHER}"
VIAddVersionKey /LANG=0 "FileDescription" "Quorvel installer"
VIAddVersionKey /LANG=0 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "LegalCopyright" "Copyright 2026 ${PUBLISHER}"
VIAddVersionKey /LANG=0 "ProductName" "Quorvel"
VIAddVersionKey /LANG=0 "ProductVersion" "${VERSION}"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\quorvel.exe"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; The kinds of documents that the window reads with its default options. The system offers Quorvel
; for them under "Open with" and keeps the program that opens them by default.
!macro ForEachKind action
  !insertmacro ${action} .docx
  !insertmacro ${action} .htm
  !insertmacro ${action} .html
  !insertmacro ${action} .txt
  !insertmacro ${action} .xhtml
!macroend

!macro OfferFor kind
  WriteRegStr HKCU "${CLASSES}\${kind}\OpenWithProgids" "${DOCUMENT}" ""
!macroend

; Keys that other programs use too are only removed when they are empty.
!macro NoLongerOfferFor kind
  DeleteRegValue HKCU "${CLASSES}\${kind}\OpenWithProgids" "${DOCUMENT}"
  DeleteRegKey /ifempty HKCU "${CLASSES}\${kind}\OpenWithProgids"
  DeleteRegKey /ifempty HKCU "${CLASSES}\${kind}"
!macroend

; Stops when `program` is running: its file can then not be opened for writing.
!macro RequireNotRunning program
  ${If} ${FileExists} "$INSTDIR\${program}"
    ${Do}
      ClearErrors
      FileOpen $0 "$INSTDIR\${program}" a
      ${IfNot} ${Errors}
        FileClose $0
        ${Break}
      ${EndIf}
      ${If} ${Cmd} `MessageBox MB_RETRYCANCEL "${program} is running. End it, then try again." /SD IDCANCEL IDCANCEL`
        SetErrorLevel 2
        Quit
      ${EndIf}
    ${Loop}
  ${EndIf}
!macroend

; The uninstaller of the old version knows its files. After it has run in place, it is still there.
Function RemoveOldVersion
  ReadRegStr $1 HKCU "${ENTRY}" "InstallLocation"
  ${If} $1 != ""
  ${AndIf} ${FileExists} "$1\uninstall.exe"
    ${Do}
      ExecWait '"$1\uninstall.exe" /S _?=$1' $2
      ${If} $2 == 0
        ${Break}
      ${EndIf}
      ${If} ${Cmd} `MessageBox MB_RETRYCANCEL "The installed version cannot be removed while it is running. End Quorvel, then try again." /SD IDCANCEL IDCANCEL`
        SetErrorLevel 2
        Quit
      ${EndIf}
    ${Loop}
    Delete "$1\uninstall.exe"
    RMDir "$1"
  ${EndIf}
FunctionEnd

Section "Quorvel" PROGRAM
  Call RemoveOldVersion

  ; First, so that an installation that fails later can be removed.
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr HKCU "${ENTRY}" "DisplayName" "Quorvel"
  WriteRegStr HKCU "${ENTRY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${ENTRY}" "DisplayIcon" "$INSTDIR\quorvel.exe"
  WriteRegStr HKCU "${ENTRY}" "Publisher" "${PUBLISHER}"
  WriteRegStr HKCU "${ENTRY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${ENTRY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${ENTRY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${ENTRY}" "NoModify" 1
  WriteRegDWORD HKCU "${ENTRY}" "NoRepair" 1
  SectionGetSize ${PROGRAM} $0 ; in KB
  WriteRegDWORD HKCU "${ENTRY}" "EstimatedSize" $0

  File /r "${FOLDER}/*"

  WriteRegStr HKCU "${CLASSES}\${DOCUMENT}" "" "Document"
  WriteRegStr HKCU "${CLASSES}\${DOCUMENT}\DefaultIcon" "" "$INSTDIR\quorvel.exe,0"
  WriteRegStr HKCU "${CLASSES}\${DOCUMENT}\shell\open\command" "" '"$INSTDIR\quorvel.exe" "%1"'
  !insertmacro ForEachKind OfferFor
  ${NotifyShell_AssocChanged}

  SetOutPath "$PROFILE" ; the folder in which the shortcut starts the program
  CreateShortcut "${SHORTCUT}" "$INSTDIR\quorvel.exe"
SectionEnd

Function un.onInit
  !insertmacro RequireNotRunning quorvel.exe
  !insertmacro RequireNotRunning quorvel-cli.exe
FunctionEnd

; Settings, documents and concordances are the user's and stay, even in the folder of the program.
Section "Uninstall"
  Delete "${SHORTCUT}"
  !insertmacro ForEachKind NoLongerOfferFor
  DeleteRegKey HKCU "${CLASSES}\${DOCUMENT}"
  ${NotifyShell_AssocChanged}
  !include "${REMOVAL}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  RMDir "${PROGRAMS}" ; if there is no other program
  DeleteRegKey HKCU "${ENTRY}"
  DeleteRegKey /ifempty HKCU "${ENTRIES}"
SectionEnd
