; The installer, made by make-installer, which defines
;   VERSION          the program's version, three numbers
;   PACKAGE          the folder with the files to install
;   FILES_TO_REMOVE  a script with one line for every file and folder in it
;   SIZE             of the files, in KiB
;   ICON             the program's icon
;   OUTPUT           the installer to write
;
; Command line of the installer: /S asks nothing; /CurrentUser or /AllUsers says
; for whom; /DefaultProgram also opens .zcf files with it; /D=FOLDER, the last one
; and without quotes, says where.

Unicode true
Target amd64-unicode
ManifestDPIAware true
ManifestLongPathAware true
ManifestSupportedOS all
SetCompressor /SOLID lzma
CRCCheck force
AllowSkipFiles off

!define NAME "ZentilConf"
!define PROGRAM "zentilconf.exe"
!define PUBLISHER "The ZentilConf developers"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"
!define EXTENSION ".zcf"
; The name of the file type that the program itself registers too.
!define FILE_TYPE "zcffile"
!define FILE_TYPE_TEXT "Zentil Config"
!define CLASSES "Software\Classes"
!define SHCNE_ASSOCCHANGED 0x08000000

; Without administrator rights it installs for the user; with them the user chooses.
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_DEFAULT_CURRENTUSER
!define MULTIUSER_INSTALLMODE_INSTDIR "${NAME}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_USE_PROGRAMFILES64
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include WinVer.nsh
!include x64.nsh

Name "${NAME}"
OutFile "${OUTPUT}"
BrandingText "${NAME} ${VERSION}"
VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}.0"
VIAddVersionKey FileDescription "Installer of ${NAME}"
VIAddVersionKey CompanyName "${PUBLISHER}"
VIAddVersionKey LegalCopyright "${PUBLISHER}"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
; Through the desktop, which runs with the user's own rights even where the installer has more.
!define MUI_FINISHPAGE_RUN "$WINDIR\explorer.exe"
!define MUI_FINISHPAGE_RUN_PARAMETERS "$\"$INSTDIR\${PROGRAM}$\""
!define MUI_FINISHPAGE_RUN_TEXT "Start ${NAME}"
!define MUI_FINISHPAGE_NOREBOOTSUPPORT

!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; A running program's file may be read, but not opened for writing.
!macro STOP_WHILE_RUNNING PREFIX
    Function ${PREFIX}StopWhileRunning
        ${Do}
            ${IfNot} ${FileExists} "$INSTDIR\${PROGRAM}"
                ${Break}
            ${EndIf}
            ClearErrors
            FileOpen $0 "$INSTDIR\${PROGRAM}" a
            ${IfNot} ${Errors}
                FileClose $0
                ${Break}
            ${EndIf}
            ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
                    '"$INSTDIR\${PROGRAM}" cannot be replaced or removed. Close ${NAME} and try again.' \
                    /SD IDCANCEL IDCANCEL`
                SetErrorLevel 2
                Quit
            ${EndIf}
        ${Loop}
    FunctionEnd
!macroend
!insertmacro STOP_WHILE_RUNNING ""
!insertmacro STOP_WHILE_RUNNING "un."

!macro TELL_DESKTOP
    System::Call 'shell32::SHChangeNotify(i ${SHCNE_ASSOCCHANGED}, i 0, p 0, p 0)'
!macroend

Section "${NAME}" SectionProgram
    SectionIn RO
    Call StopWhileRunning

    ; The files of another version go first; what it registered is written anew below.
    ${If} ${FileExists} "$INSTDIR\uninstall.exe"
        ExecWait '"$INSTDIR\uninstall.exe" /S /FilesOnly _?=$INSTDIR' $0
        ${If} $0 <> 0
            SetErrorLevel 2
            Abort "The version that is installed could not be removed."
        ${EndIf}
    ${EndIf}

    SetOutPath "$INSTDIR"
    File /r "${PACKAGE}/*"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "$SMPROGRAMS\${NAME}.lnk" "$INSTDIR\${PROGRAM}"

    ; The file type, and the program as one that opens it. What opens such files so far stays as it is.
    WriteRegStr SHCTX "${CLASSES}\${FILE_TYPE}" "" "${FILE_TYPE_TEXT}"
    WriteRegStr SHCTX "${CLASSES}\${FILE_TYPE}\DefaultIcon" "" "$INSTDIR\${PROGRAM},1"
    WriteRegStr SHCTX "${CLASSES}\${FILE_TYPE}\shell\open\command" "" '"$INSTDIR\${PROGRAM}" "%1"'
    WriteRegStr SHCTX "${CLASSES}\${EXTENSION}\OpenWithProgids" "${FILE_TYPE}" ""
    WriteRegStr SHCTX "${CLASSES}\Applications\${PROGRAM}" "FriendlyAppName" "${NAME}"
    WriteRegStr SHCTX "${CLASSES}\Applications\${PROGRAM}\SupportedTypes" "${EXTENSION}" ""
    WriteRegStr SHCTX "${CLASSES}\Applications\${PROGRAM}\shell\open\command" "" '"$INSTDIR\${PROGRAM}" "%1"'

    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "${NAME}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\${PROGRAM},0"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "${PUBLISHER}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode /S'
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" ${SIZE}
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section /o "Open ${EXTENSION} files with ${NAME}" SectionDefault
    ReadRegStr $0 SHCTX "${CLASSES}\${EXTENSION}" ""
    ${If} $0 != "${FILE_TYPE}"
        ; Kept, so that removal can give it back.
        WriteRegStr SHCTX "${UNINSTALL_KEY}" "PreviousFileType" $0
        WriteRegStr SHCTX "${CLASSES}\${EXTENSION}" "" "${FILE_TYPE}"
    ${EndIf}
SectionEnd

Section
    !insertmacro TELL_DESKTOP
SectionEnd

LangString DescriptionProgram ${LANG_ENGLISH} "The program, its samples and an entry in the start menu."
LangString DescriptionDefault ${LANG_ENGLISH} "Configuration files open with ${NAME} when they are double-clicked. Without it, ${NAME} is one of the programs under Open with."
!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionProgram} $(DescriptionProgram)
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionDefault} $(DescriptionDefault)
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Function .onInit
    ${IfNot} ${RunningX64}
    ${OrIfNot} ${AtLeastWin10}
        MessageBox MB_OK|MB_ICONSTOP "${NAME} needs a 64-bit Windows 10 or Windows Server 2016, or later." /SD IDOK
        SetErrorLevel 2
        Quit
    ${EndIf}
    SetRegView 64
    ; What /D says comes before the folder of an earlier version.
    StrCpy $0 $INSTDIR
    !insertmacro MULTIUSER_INIT
    ${If} $0 != ""
        StrCpy $INSTDIR $0
    ${EndIf}
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/DefaultProgram" $1
    ${IfNot} ${Errors}
        !insertmacro SelectSection ${SectionDefault}
    ${EndIf}
FunctionEnd

Function un.onInit
    SetRegView 64
    ; Removed is what stands beside this file, for those for whom it was installed.
    StrCpy $0 $INSTDIR
    !insertmacro MULTIUSER_UNINIT
    ReadRegStr $1 HKLM "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $1 == $0
        ${If} $MultiUser.Privileges != "Admin"
            MessageBox MB_OK|MB_ICONSTOP "${NAME} is installed for all users. An administrator can remove it." /SD IDOK
            SetErrorLevel 2
            Quit
        ${EndIf}
        Call un.MultiUser.InstallMode.AllUsers
    ${EndIf}
    StrCpy $INSTDIR $0
FunctionEnd

Section un.Files
    Call un.StopWhileRunning
    ; File by file: what the user has put into the folder stays there.
    !include "${FILES_TO_REMOVE}"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
SectionEnd

Section un.Registration
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/FilesOnly" $1
    ${IfNot} ${Errors}
        Return
    ${EndIf}

    Delete "$SMPROGRAMS\${NAME}.lnk"

    ReadRegStr $0 SHCTX "${CLASSES}\${EXTENSION}" ""
    ${If} $0 == "${FILE_TYPE}"
        ReadRegStr $1 SHCTX "${UNINSTALL_KEY}" "PreviousFileType"
        ${If} $1 == ""
            DeleteRegValue SHCTX "${CLASSES}\${EXTENSION}" ""
        ${Else}
            WriteRegStr SHCTX "${CLASSES}\${EXTENSION}" "" $1
        ${EndIf}
    ${EndIf}
    DeleteRegValue SHCTX "${CLASSES}\${EXTENSION}\OpenWithProgids" "${FILE_TYPE}"
    DeleteRegKey /ifempty SHCTX "${CLASSES}\${EXTENSION}\OpenWithProgids"
    DeleteRegKey /ifempty SHCTX "${CLASSES}\${EXTENSION}"
    DeleteRegKey SHCTX "${CLASSES}\${FILE_TYPE}"
    DeleteRegKey SHCTX "${CLASSES}\Applications\${PROGRAM}"
    DeleteRegKey SHCTX "${UNINSTALL_KEY}"
    !insertmacro TELL_DESKTOP
SectionEnd
