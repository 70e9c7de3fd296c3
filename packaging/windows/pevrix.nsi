; The Windows installer: per machine, silent with /S, started with Windows with /AUTOSTART, another
; folder with /D=FOLDER (last). Exit code: 0 done, 3 something of ours is in use, others by NSIS.
; makensis gets VERSION, STAGE (the folder with the program's files), LISTS (the folder with the
; uninstaller's lists of them), ART (the folder with the icon and the picture) and OUTFILE.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel admin
ManifestDPIAware true
ManifestLongPathAware true
ManifestSupportedOS Win10

!include FileFunc.nsh
!include LogicLib.nsh
!include MUI2.nsh
!include Sections.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Pevrix"
!define RUN_KEY "Software\Microsoft\Windows\CurrentVersion\Run"
; The name that pevrix-camsetup.exe gives its rule.
!define FIREWALL_RULE "Pevrix"

; With SIGN, a command that gets the file's name as its last argument, both are signed.
!ifdef SIGN
    !finalize '${SIGN} "%1"'
    !uninstfinalize '${SIGN} "%1"'
!endif

Name "Pevrix"
OutFile "${OUTFILE}"
InstallDir "$PROGRAMFILES64\Pevrix"
InstallDirRegKey HKLM "${UNINSTALL_KEY}" "InstallLocation"
BrandingText "Pevrix ${VERSION}"
VIProductVersion "${VERSION}.0.0"
VIAddVersionKey ProductName "Pevrix"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Pevrix installer"
VIAddVersionKey CompanyName "Pevrix"
VIAddVersionKey LegalCopyright "Pevrix"

!define MUI_ICON "${ART}\app-icon.ico"
!define MUI_UNICON "${ART}\app-icon.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${ART}\side.bmp"
!define MUI_COMPONENTSPAGE_SMALLDESC ; the long names need the width
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN "$WINDIR\explorer.exe"
!define MUI_FINISHPAGE_RUN_PARAMETERS "$\"$INSTDIR\pevrix.exe$\"" ; by the shell: without our rights
!define MUI_FINISHPAGE_RUN_TEXT "Start Pevrix"
!insertmacro MUI_PAGE_WELCOME
; Using the program asks for no consent.
!define MUI_PAGE_HEADER_TEXT "Notices"
!define MUI_PAGE_HEADER_SUBTEXT "Of the software that comes with Pevrix."
!define MUI_LICENSEPAGE_TEXT_TOP "Press Page Down to see the rest."
!define MUI_LICENSEPAGE_TEXT_BOTTOM "They are installed with the program, as NOTICES.txt."
!define MUI_LICENSEPAGE_BUTTON "&Next >"
!insertmacro MUI_PAGE_LICENSE "${STAGE}\NOTICES.txt"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; Where Qt puts what it compiled.
!define CACHE "$LOCALAPPDATA\Pevrix\Pevrix\cache"
!define SHADERS "qtpipelinecache-x86_64-little_endian-llp64"

; Windows keeps a file that is being run from being opened for writing.
!macro REFUSE_WHILE_IN_USE FILE REMEDY
    ${Do}
        ${IfNot} ${FileExists} "${FILE}"
            ${Break}
        ${EndIf}
        ClearErrors
        FileOpen $0 "${FILE}" a
        ${IfNot} ${Errors}
            FileClose $0
            ${Break}
        ${EndIf}
        ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${REMEDY}" /SD IDCANCEL IDCANCEL`
            SetErrorLevel 3
            Abort
        ${EndIf}
    ${Loop}
!macroend

!macro REFUSE_WHILE_RUNNING FOLDER
    !insertmacro REFUSE_WHILE_IN_USE "${FOLDER}\pevrix.exe" \
        "Pevrix is running. Quit it from its icon in the notification area, then try again."
!macroend

; Programs that show the camera hold its library, for hours. Windows deletes no such file, but renames
; it: it makes room under a name that nothing has, and goes at the next installation or start of
; Windows. Those programs go on with it until they open the camera anew. Nobody is asked to restart.
!macro MOVE_ASIDE FILE
    Delete "${FILE}.old*"
    Delete "${FILE}"
    ${If} ${FileExists} "${FILE}"
        StrCpy $0 0
        ${While} ${FileExists} "${FILE}.old$0"
            IntOp $0 $0 + 1
        ${EndWhile}
        Rename "${FILE}" "${FILE}.old$0"
        ${If} ${FileExists} "${FILE}"
            SetErrorLevel 3
            Abort "${FILE} is in use and could not be renamed."
        ${EndIf}
        Delete /REBOOTOK "${FILE}.old$0"
        SetRebootFlag false
    ${EndIf}
!macroend

!macro MOVE_CAMERA_ASIDE FOLDER
    !insertmacro MOVE_ASIDE "${FOLDER}\softcam.dll"
    !insertmacro MOVE_ASIDE "${FOLDER}\x86\softcam.dll"
!macroend

!define CLASSES "Software\Classes\CLSID"
!define CAMERA "{276143AA-B755-440E-834A-93CDEBCA334B}"
!define CAMERA_LIST "${CLASSES}\{860BB310-5D01-11D0-BD3B-00A0C911CE86}\Instance"

; What a library leaves in the registry that cannot unregister itself, since it is gone or does not load:
; a camera that every program lists and none can open. Not that of a copy in another folder.
!macro FORGET_CAMERA VIEW LIBRARY
    SetRegView ${VIEW}
    ReadRegStr $0 HKLM "${CLASSES}\${CAMERA}\InprocServer32" ""
    ${If} $0 == "${LIBRARY}"
        DeleteRegKey HKLM "${CAMERA_LIST}\${CAMERA}"
        DeleteRegKey HKLM "${CLASSES}\${CAMERA}"
    ${EndIf}
    SetRegView default
!macroend

Section "Pevrix" SectionProgram
    SectionIn RO
    ; An older version goes first, wherever it is, so that no file of it stays behind; settings are kept.
    ReadRegStr $1 HKLM "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $1 != ""
    ${AndIf} ${FileExists} "$1\uninstall.exe"
        !insertmacro REFUSE_WHILE_RUNNING "$1"
        ExecWait '"$1\uninstall.exe" /S _?=$1'
        ; Told where it runs (_?=), it waits for itself, and so cannot delete itself.
        Delete "$1\uninstall.exe"
        RMDir "$1"
    ${EndIf}
    !insertmacro REFUSE_WHILE_RUNNING "$INSTDIR"
    !insertmacro MOVE_CAMERA_ASIDE "$INSTDIR"

    SetOutPath "$INSTDIR"
    File /r "${STAGE}\*"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    SetShellVarContext all
    CreateShortcut "$SMPROGRAMS\Pevrix.lnk" "$INSTDIR\pevrix.exe"

    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "Pevrix"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "Pevrix"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\pevrix.exe"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
    SectionGetSize ${SectionProgram} $0
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

; The library registers the one for 32-bit programs with itself.
Section "Camera for other programs" SectionCamera
    ExecWait '"$SYSDIR\regsvr32.exe" /s "$INSTDIR\softcam.dll"' $0
    ${If} $0 != 0
        DetailPrint "The camera could not be registered (status $0)."
        MessageBox MB_OK|MB_ICONEXCLAMATION "The camera could not be registered. Try it again in \
            Pevrix: Settings, Camera, Register." /SD IDOK
    ${EndIf}
SectionEnd

Section "Let phones through the Windows Firewall" SectionFirewall
    ExecWait '"$INSTDIR\pevrix-camsetup.exe" --firewall' $0
    ${If} $0 != 0
        DetailPrint "The firewall rule could not be added (status $0)."
        MessageBox MB_OK|MB_ICONEXCLAMATION "The firewall rule could not be added. Pevrix offers it \
            again when Windows blocks a phone." /SD IDOK
    ${EndIf}
SectionEnd

Section /o "Start Pevrix with Windows" SectionStart
    WriteRegStr HKLM "${RUN_KEY}" "Pevrix" '"$INSTDIR\pevrix.exe" --tray'
SectionEnd

Function .onInit
    ${IfNot} ${FileExists} "$SYSDIR\mfreadwrite.dll"
        MessageBox MB_OK|MB_ICONINFORMATION "This edition of Windows comes without Media Foundation, \
            which decodes the phone's video. Pevrix shows no picture until you add the Media Feature \
            Pack: Windows Settings, System, Optional features." /SD IDOK
    ${EndIf}
    ; Whoever had it started with Windows keeps that.
    ReadRegStr $0 HKLM "${RUN_KEY}" "Pevrix"
    ${GetParameters} $1
    ClearErrors
    ${GetOptions} $1 "/AUTOSTART" $2
    ${IfNot} ${Errors}
    ${OrIf} $0 != ""
        !insertmacro SelectSection ${SectionStart}
    ${EndIf}
FunctionEnd

Section "Uninstall"
    !insertmacro REFUSE_WHILE_RUNNING "$INSTDIR"
    ${If} ${FileExists} "$INSTDIR\softcam.dll"
        ExecWait '"$SYSDIR\regsvr32.exe" /s /u "$INSTDIR\softcam.dll"' $0
        ${If} $0 != 0
            DetailPrint "The camera could not be unregistered (status $0)."
        ${EndIf}
    ${EndIf}
    !insertmacro FORGET_CAMERA 64 "$INSTDIR\softcam.dll"
    !insertmacro FORGET_CAMERA 32 "$INSTDIR\x86\softcam.dll"
    !insertmacro MOVE_CAMERA_ASIDE "$INSTDIR"
    nsExec::Exec '"$SYSDIR\netsh.exe" advfirewall firewall delete rule name="${FIREWALL_RULE}" \
        program="$INSTDIR\pevrix.exe"'
    Pop $0 ; 1 where there was none

    ; Only what was installed, file by file, and what the program leaves beside itself.
    !include "${LISTS}\delete-files.nsh"
    Delete "$INSTDIR\pairing-token.txt"
    Delete "$INSTDIR\uninstall.exe"
    !include "${LISTS}\remove-folders.nsh"
    RMDir "$INSTDIR"
    ; A library that was moved aside keeps its folder until it goes itself.
    ${If} ${FileExists} "$INSTDIR\x86\softcam.dll.old*"
        RMDir /REBOOTOK "$INSTDIR\x86"
        RMDir /REBOOTOK "$INSTDIR"
    ${ElseIf} ${FileExists} "$INSTDIR\softcam.dll.old*"
        RMDir /REBOOTOK "$INSTDIR"
    ${EndIf}
    SetRebootFlag false

    SetShellVarContext all
    Delete "$SMPROGRAMS\Pevrix.lnk"
    DeleteRegKey HKLM "${UNINSTALL_KEY}"
    DeleteRegValue HKLM "${RUN_KEY}" "Pevrix"

    SetShellVarContext current
    Delete "$LOCALAPPDATA\Pevrix\pevrix.log"
    ; The compiled interface and its shaders, by name: where any program may write, a folder that goes
    ; with all that is in it may be a link to another one.
    Delete "${CACHE}\qmlcache\*.qmlc"
    RMDir "${CACHE}\qmlcache"
    Delete "${CACHE}\${SHADERS}\qqpc_*"
    RMDir "${CACHE}\${SHADERS}"
    RMDir "${CACHE}"
    RMDir "$LOCALAPPDATA\Pevrix\Pevrix"
    RMDir "$LOCALAPPDATA\Pevrix"
    ${If} ${Cmd} `MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 \
        "Remove your settings and the list of trusted phones as well?" /SD IDNO IDYES`
        Delete "$APPDATA\Pevrix\Pevrix.ini"
        Delete "$APPDATA\Pevrix\instance.lock" ; of a Pevrix that crashed
        RMDir "$APPDATA\Pevrix"
    ${EndIf}
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionProgram} "The program."
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionCamera} "Registers the camera, so that video-call \
        programs list it."
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionFirewall} "Phones connect to this PC over your network."
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionStart} "For every user of this PC."
!insertmacro MUI_FUNCTION_DESCRIPTION_END
