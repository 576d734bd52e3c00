; Installs Wallwright for the person who runs it, without asking for an administrator: the program, an entry in the
; start menu, and .Orv files that open in it. makensis -DVERSION=... -DPROGRAM=folder -DOUTPUT=file
Unicode true
SetCompressor /SOLID lzma
SetCompressorDictSize 32
ManifestDPIAware true
RequestExecutionLevel user

!include LogicLib.nsh
!include MUI2.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Wallwright"
!define PROJECT_KEY "Software\Classes\Wallwright.Project"

Name "Wallwright"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Wallwright"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"
BrandingText "Wallwright ${VERSION}"

!define MUI_ICON "${PROGRAM}/windows-files/program.ico"
!define MUI_UNICON "${PROGRAM}/windows-files/program.ico"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN "$INSTDIR\wallwright.exe"
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; What shows icons looks for them anew.
!macro TellShell
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

; A file of a program that runs cannot be written: before anything is changed, the person is asked to close it.
!macro AskToClose FILE
    ${If} ${FileExists} "$INSTDIR\${FILE}"
        ${Do}
            ClearErrors
            FileOpen $0 "$INSTDIR\${FILE}" a
            ${IfNot} ${Errors}
                FileClose $0
                ${ExitDo}
            ${EndIf}
            MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${FILE} cannot be replaced: close Wallwright where it runs, and see that the file may be written." /SD IDCANCEL IDRETRY +2
            Abort
        ${Loop}
    ${EndIf}
!macroend

Section
    !insertmacro AskToClose wallwright.exe
    !insertmacro AskToClose wallwright.com
    SetOutPath "$INSTDIR"
    File "${PROGRAM}/wallwright.exe"
    File "${PROGRAM}/wallwright.com"
    File "${PROGRAM}/LICENSE.txt"
    File "${PROGRAM}/third-party.txt"
    SetOutPath "$INSTDIR\examples"
    File "${PROGRAM}/examples/*.json"
    SetOutPath "$INSTDIR\licences"
    File "${PROGRAM}/licences/*.txt"
    SetOutPath "$INSTDIR"
    CreateShortcut "$SMPROGRAMS\Wallwright.lnk" "$INSTDIR\wallwright.exe"

    WriteRegStr HKCU "Software\Classes\.Orv" "" "Wallwright.Project"
    WriteRegStr HKCU "Software\Classes\.Orv\OpenWithProgids" "Wallwright.Project" ""
    WriteRegStr HKCU "${PROJECT_KEY}" "" "Wallwright project"
    WriteRegStr HKCU "${PROJECT_KEY}\DefaultIcon" "" "$INSTDIR\wallwright.exe,1"
    WriteRegStr HKCU "${PROJECT_KEY}\shell\open\command" "" '"$INSTDIR\wallwright.exe" "%1"'
    !insertmacro TellShell

    WriteUninstaller "$INSTDIR\uninstall.exe"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Wallwright"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\wallwright.exe"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "The Wallwright authors"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

; Shows, presets, settings and recovery copies are the person's: they stay.
Section un.
    !insertmacro AskToClose wallwright.exe
    !insertmacro AskToClose wallwright.com
    Delete "$SMPROGRAMS\Wallwright.lnk"
    !include "${PROGRAM}/windows-files/removals.nsh" ; of the folders in it
    Delete "$INSTDIR\wallwright.exe"
    Delete "$INSTDIR\wallwright.com"
    Delete "$INSTDIR\LICENSE.txt"
    Delete "$INSTDIR\third-party.txt"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"

    ReadRegStr $0 HKCU "Software\Classes\.Orv" ""
    StrCmp $0 "Wallwright.Project" 0 +2
    DeleteRegValue HKCU "Software\Classes\.Orv" ""
    DeleteRegValue HKCU "Software\Classes\.Orv\OpenWithProgids" "Wallwright.Project"
    DeleteRegKey /ifempty HKCU "Software\Classes\.Orv\OpenWithProgids"
    DeleteRegKey /ifempty HKCU "Software\Classes\.Orv"
    DeleteRegKey HKCU "${PROJECT_KEY}"
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
    !insertmacro TellShell
SectionEnd
