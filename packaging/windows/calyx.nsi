; The installer for Windows, made by ./package, which says what is defined here: VERSION, STAGE (the folder of
; what is installed), LISTS (installed.txt, remove.nsh and the pictures), KILOBYTES, RESULT.
;
;   Calyx-VERSION-setup.exe [/S] [/AllUsers | /CurrentUser] [/D=folder]     /S asks nothing, /D comes last
;   uninstall.exe [/S] [/AllUsers | /CurrentUser] [/RemoveSettings]
;
; Ends with 0: done, 1: cancelled, 2: failed midway and put back, and the numbers below.
; With /S somebody who is no administrator cannot upgrade what is installed for all users; /CurrentUser gives
; him an installation of his own beside it.

!define REFUSED_WINDOWS 3  ; this Windows is too old
!define REFUSED_NEWER 4    ; a newer version is installed
!define REFUSED_RUNNING 5  ; the program is running
!define REFUSED_RIGHTS 6   ; not allowed to write there
!define INCOMPLETE 7       ; a file could be neither replaced nor put back, or not be removed

Target amd64-unicode
Unicode true
SetCompressor /SOLID lzma
ManifestDPIAware true
AllowSkipFiles off
ShowInstDetails nevershow
ShowUninstDetails nevershow
BrandingText "Calyx ${VERSION}"

!define PROGID "Calyx.Configuration"
!define CONTENT "application/x-merrin-configuration"
!define CLASSES "Software\Classes"
!define CAPABILITIES "Software\Calyx\Capabilities"
!define APP_PATHS "Software\Microsoft\Windows\CurrentVersion\App Paths\calyx.exe"
!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Calyx"
!define SUMMARY "Configuration editor for Merrin weight indicators"
!define NO_FOLDER "none\Calyx"  ; stands for what the command line does not give; "Calyx" is added to a folder chosen
!define UTF8_BUILD 18362        ; Windows 10, version 1903: the first that heeds a program's wish for UTF-8

!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_INSTDIR "Calyx"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${ENTRY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${ENTRY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallLocation"
!include MultiUser.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include nsDialogs.nsh
!include TextFunc.nsh
!include WinVer.nsh
!include WordFunc.nsh

Name "Calyx"
OutFile "${RESULT}"
InstallDir "${NO_FOLDER}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Calyx"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Calyx Setup"
VIAddVersionKey "CompanyName" "Calyx"
VIAddVersionKey "LegalCopyright" ""

Var Given           ; folder of the command line
Var Earlier         ; version that is installed already, or nothing
Var EarlierFolder
Var Welcome
Var Failed
Var InTheWay
Var Disposable      ; the work folders hold nothing that is needed: 1, or nothing
Var Outcome
Var Shortcut        ; on the desktop, 0 or 1
Var ShortcutBox
Var Extension       ; opened by Calyx, 0 or 1
Var ExtensionBox
Var OtherProgram    ; that has the extension: 0 or 1
Var RemoveSettings  ; of this user, when the program goes
Var RemoveSettingsBox

; Pages

!define MUI_ICON "../icons/calyx.ico"
!define MUI_UNICON "../icons/calyx.ico"
!define MUI_HEADERIMAGE
!define MUI_HEADERIMAGE_RIGHT
!define MUI_HEADERIMAGE_BITMAP "${LISTS}/header.bmp"
!define MUI_HEADERIMAGE_UNBITMAP "${LISTS}/header.bmp"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${LISTS}/side.bmp"
!define MUI_ABORTWARNING
!define MUI_CUSTOMFUNCTION_GUIINIT SharpPictures

!define MUI_WELCOMEPAGE_TITLE "Calyx ${VERSION}"
!define MUI_WELCOMEPAGE_TEXT "$Welcome"
!insertmacro MUI_PAGE_WELCOME

!define MUI_PAGE_HEADER_TEXT "Who is it for?"
!define MUI_PAGE_HEADER_SUBTEXT "Everybody who uses this computer, or you alone."
!define MULTIUSER_INSTALLMODEPAGE_TEXT_TOP "For all users, Calyx goes into the folder of the computer's programs. For you alone, it goes into a folder of your own."
!define MULTIUSER_INSTALLMODEPAGE_TEXT_ALLUSERS "For &all users of this computer"
!define MULTIUSER_INSTALLMODEPAGE_TEXT_CURRENTUSER "&Only for me"
!define MULTIUSER_PAGE_CUSTOMFUNCTION_PRE SkipForUpgrade
!define MULTIUSER_PAGE_CUSTOMFUNCTION_LEAVE LeaveInstallMode
!insertmacro MULTIUSER_PAGE_INSTALLMODE

Page custom AskOptions KeepOptions

!define MUI_PAGE_HEADER_TEXT "Folder"
!define MUI_PAGE_HEADER_SUBTEXT "Where shall Calyx be installed?"
!define MUI_DIRECTORYPAGE_TEXT_TOP "Configurations and settings are kept elsewhere, in your own folders."
!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipForUpgrade
!insertmacro MUI_PAGE_DIRECTORY

!define MUI_INSTFILESPAGE_FINISHHEADER_TEXT "Calyx is installed"
!define MUI_INSTFILESPAGE_FINISHHEADER_SUBTEXT " "
!define MUI_INSTFILESPAGE_ABORTHEADER_TEXT "Calyx was not installed"
!define MUI_INSTFILESPAGE_ABORTHEADER_SUBTEXT "$Outcome"
!insertmacro MUI_PAGE_INSTFILES

!define MUI_FINISHPAGE_TITLE "Calyx ${VERSION} is installed"
!define MUI_FINISHPAGE_TEXT "You find it in the start menu.$\r$\n$\r$\nSamples come with it, from a truck scale to a batching plant."
!define MUI_FINISHPAGE_NOREBOOTSUPPORT
!define MUI_FINISHPAGE_RUN ""
!define MUI_FINISHPAGE_RUN_TEXT "&Start Calyx"
!define MUI_FINISHPAGE_RUN_FUNCTION StartCalyx
!define MUI_FINISHPAGE_SHOWREADME ""
!define MUI_FINISHPAGE_SHOWREADME_TEXT "Show the &folder of the samples"
!define MUI_FINISHPAGE_SHOWREADME_NOTCHECKED
!define MUI_FINISHPAGE_SHOWREADME_FUNCTION ShowSamples
!insertmacro MUI_PAGE_FINISH

UninstPage custom un.AskWhatGoes un.KeepAnswer
!define MUI_INSTFILESPAGE_FINISHHEADER_TEXT "Calyx is removed"
!define MUI_INSTFILESPAGE_FINISHHEADER_SUBTEXT "Your configurations stay where they are."
!define /redef MUI_INSTFILESPAGE_ABORTHEADER_TEXT "Calyx was not removed"
!define /redef MUI_INSTFILESPAGE_ABORTHEADER_SUBTEXT " "
!insertmacro MUI_UNPAGE_INSTFILES

!insertmacro MUI_LANGUAGE "English"

!include "shared.nsh"

; Start

Function .onInit
  ${IfNot} ${AtLeastWin10}
  ${OrIfNot} ${AtLeastBuild} ${UTF8_BUILD}
    ${Refuse} ${REFUSED_WINDOWS} "Calyx needs Windows 10, version 1903, or newer, 64 bit. Update Windows, then start the setup again."
  ${EndIf}
  Call RefuseWithoutRights
  Call RefuseSecondCopy
  StrCpy $Outcome "What was there before is unchanged."
  StrCpy $Given ""
  ${If} $INSTDIR != "${NO_FOLDER}"
    StrCpy $Given $INSTDIR
  ${EndIf}
  !insertmacro MULTIUSER_INIT
  Call LookForEarlier
  Call ProposeOptions
FunctionEnd

; A silent upgrade without an administrator's rights would leave the installation for all users as it is, and put
; another beside it.
Function RefuseSecondCopy
  UserInfo::GetAccountType
  Pop $0
  ${IfNot} ${Silent}
  ${OrIf} $0 == "Admin"
    Return
  ${EndIf}
  ${GetParameters} $1
  ClearErrors
  ${GetOptions} $1 "/CurrentUser" $2
  ${IfNot} ${Errors}
    Return
  ${EndIf}
  ReadRegStr $1 HKLM "${ENTRY}" "InstallLocation"
  ReadRegStr $2 HKCU "${ENTRY}" "InstallLocation"
  ${If} $1 != ""
  ${AndIf} $2 == ""
    ${Refuse} ${REFUSED_RIGHTS} "Calyx is installed for all users of this computer. Only an administrator may upgrade it."
  ${EndIf}
FunctionEnd

Function LookForEarlier
  ReadRegStr $Earlier SHCTX "${ENTRY}" "DisplayVersion"
  ReadRegStr $EarlierFolder SHCTX "${ENTRY}" "InstallLocation"
  ${If} $Given != ""
    StrCpy $INSTDIR $Given
  ${EndIf}
  StrCpy $Welcome "Builds the configuration of a Merrin weight indicator, sends it to the indicator, reads it back and shows every difference.$\r$\n$\r$\nChoose Next to install it."
  ${If} $Earlier == ""
    Return
  ${EndIf}
  ${VersionCompare} "$Earlier" "${VERSION}" $0
  ${If} $0 = 0
    StrCpy $Welcome "This version is installed already. It will be installed anew, into the same folder.$\r$\n$\r$\nYour settings and configurations stay as they are."
  ${Else}
    StrCpy $Welcome "Version $Earlier is installed. It will be replaced, in the same folder.$\r$\n$\r$\nYour settings and configurations stay as they are."
  ${EndIf}
  ${If} $0 = 1
    MessageBox MB_YESNO|MB_ICONEXCLAMATION|MB_DEFBUTTON2 "Calyx $Earlier is installed, which is newer than ${VERSION}. Replace it by the older version?" /SD IDNO IDYES older
    SetErrorLevel ${REFUSED_NEWER}
    Quit
    older:
  ${EndIf}
FunctionEnd

Function SkipForUpgrade
  ${If} $Earlier != ""
    Abort
  ${EndIf}
FunctionEnd

Function LeaveInstallMode
  Call LookForEarlier
  Call ProposeOptions
FunctionEnd

; What an earlier setup was told stays chosen. An extension that another program has is left to it.
Function ProposeOptions
  StrCpy $Shortcut 0
  ${If} ${FileExists} "$DESKTOP\Calyx.lnk"
    StrCpy $Shortcut 1
  ${EndIf}
  StrCpy $OtherProgram 0
  StrCpy $Extension 1
  ReadRegStr $R0 HKCU "${CLASSES}\.mrn" ""
  ${If} $R0 == ""
    ReadRegStr $R0 HKLM "${CLASSES}\.mrn" ""
  ${EndIf}
  ${If} $R0 == "${PROGID}"
    Return
  ${EndIf}
  Call FindClass
  ${If} $R1 = 1
    StrCpy $OtherProgram 1
    StrCpy $Extension 0
  ${ElseIf} $Earlier != ""
    StrCpy $Extension 0
  ${EndIf}
FunctionEnd

Function AskOptions
  !insertmacro MUI_HEADER_TEXT "Options" "What else shall be set up?"
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateCheckBox} 0 4u 100% 12u "&Open configurations (.mrn) with Calyx"
  Pop $ExtensionBox
  ${NSD_SetState} $ExtensionBox $Extension
  StrCpy $1 "A double click in the Explorer opens them."
  ${If} $OtherProgram = 1
    StrCpy $1 "At present another program opens them. It gets them back when Calyx is removed."
  ${EndIf}
  ${NSD_CreateLabel} 12u 18u -12u 18u $1
  Pop $0
  ${NSD_CreateCheckBox} 0 44u 100% 12u "Put a &shortcut on the desktop"
  Pop $ShortcutBox
  ${NSD_SetState} $ShortcutBox $Shortcut
  ${NSD_CreateLabel} 12u 58u -12u 18u "The start menu has one in any case."
  Pop $0
  nsDialogs::Show
FunctionEnd

Function KeepOptions
  ${NSD_GetState} $ExtensionBox $Extension
  ${NSD_GetState} $ShortcutBox $Shortcut
FunctionEnd

; Twice as large for screens that show everything larger.
Function SharpPictures
  System::Call 'user32::GetDpiForSystem() i.r0'
  ${If} $0 > 120
    File "/oname=$PLUGINSDIR\modern-header.bmp" "${LISTS}/header-2.bmp"
    File "/oname=$PLUGINSDIR\modern-wizard.bmp" "${LISTS}/side-2.bmp"
  ${EndIf}
FunctionEnd

; Not by the installer's own hand: the program would have the rights of an administrator.
Function StartCalyx
  Exec '"$WINDIR\explorer.exe" "$INSTDIR\calyx.exe"'
FunctionEnd

Function ShowSamples
  Exec '"$WINDIR\explorer.exe" "$INSTDIR\samples"'
FunctionEnd

; Files: unpacked beside what is there, then exchanged, and put back if that fails

!include "exchange.nsh"

Function RemoveWorkFolders
  SetOutPath $TEMP
  RMDir /r "$INSTDIR\setup.new"
  RMDir /r "$INSTDIR\setup.old"
FunctionEnd

Function .onInstFailed
  ${If} $Disposable = 1
    Call RemoveWorkFolders
  ${EndIf}
  RMDir "$INSTDIR"
FunctionEnd

; A setup that was ended midway, by a power cut say, left the earlier version in setup.old, with its list unless
; it had not come to that, and may have put files of its own in its place. Without this those of them that no
; list names would stay for ever, and be lost if this setup fails.
Function PutInterruptedBack
  ${IfNot} ${FileExists} "$INSTDIR\setup.old"
    Return
  ${EndIf}
  ${If} ${FileExists} "$INSTDIR\setup.old\installed.txt"
  ${OrIfNot} ${FileExists} "$INSTDIR\installed.txt"
    CopyFiles /SILENT "$INSTDIR\installed.txt" "$PLUGINSDIR\midway.txt"
    CopyFiles /SILENT "$INSTDIR\setup.new\installed.txt" "$PLUGINSDIR\midway.txt"
    ${MoveListed} "$PLUGINSDIR\midway.txt" "$INSTDIR" "$INSTDIR\setup.new"
    StrCpy $R9 $Failed
  ${Else}
    StrCpy $R9 ""
  ${EndIf}
  CopyFiles /SILENT "$INSTDIR\installed.txt" "$PLUGINSDIR\before.txt"
  CopyFiles /SILENT "$INSTDIR\setup.old\installed.txt" "$PLUGINSDIR\before.txt"
  ${MoveListed} "$PLUGINSDIR\before.txt" "$INSTDIR\setup.old" "$INSTDIR"
  StrCpy $R9 "$R9$Failed"
  ${If} $R9 != ""
    Call TellNotPutBack
  ${EndIf}
FunctionEnd

; Ends. What is left of the earlier version stays in setup.old, where the next setup finds it. $R9: a file
Function TellNotPutBack
  StrCpy $Disposable ""
  StrCpy $Outcome "The earlier version is not complete. Start this setup again."
  MessageBox MB_OK|MB_ICONSTOP "$INSTDIR\$R9 could be neither replaced nor put back, because a program uses it. Calyx is not complete; what is missing is in $INSTDIR\setup.old. Restart the computer, then start this setup again: it goes on from there." /SD IDOK
  SetErrorLevel ${INCOMPLETE}
  Abort "$INSTDIR\$R9 could not be put back."
FunctionEnd

; Work of the user that a sample was saved over with would be lost to the next setup: the program refuses that,
; and he saves it under a name of his own.
Function ProtectSamples
  FindFirst $R0 $R1 "$INSTDIR\setup.new\samples\*.mrn"
  ${DoWhile} $R1 != ""
    SetFileAttributes "$INSTDIR\setup.new\samples\$R1" READONLY
    FindNext $R0 $R1
  ${Loop}
  FindClose $R0
FunctionEnd

; Ends. $Failed or $InTheWay name the file that stopped the exchange.
Function PutBack
  StrCpy $R7 $Failed
  StrCpy $R8 $InTheWay
  ${MoveListed} "$PLUGINSDIR\installed.txt" "$INSTDIR" "$INSTDIR\setup.new"
  StrCpy $R9 $Failed
  ${MoveListed} "$PLUGINSDIR\earlier.txt" "$INSTDIR\setup.old" "$INSTDIR"
  ${If} $R9 == ""
    StrCpy $R9 $Failed
  ${EndIf}
  ${If} $R9 == ""
    StrCpy $R9 $InTheWay
  ${EndIf}
  ${If} $R9 != ""
    Call TellNotPutBack
  ${EndIf}
  Push "$PLUGINSDIR\installed.txt"
  Push $INSTDIR
  Call RemoveEmptied
  ${If} $R7 != ""
    MessageBox MB_OK|MB_ICONSTOP "$INSTDIR\$R7 cannot be replaced. Nothing was changed. Close the program that uses it, then start the setup again." /SD IDOK
    Abort "$INSTDIR\$R7 cannot be replaced."
  ${EndIf}
  MessageBox MB_OK|MB_ICONSTOP "$INSTDIR\$R8 is there already and is not of Calyx. Nothing was changed. Move it away, or choose another folder for Calyx, then start the setup again." /SD IDOK
  Abort "$INSTDIR\$R8 is there already and is not of Calyx."
FunctionEnd

Section "Calyx"
  SetDetailsPrint textonly
  DetailPrint "Writing the files ..."
  SetDetailsPrint none
  StrCpy $R0 $INSTDIR
  Call NeedFreeFiles
  ${If} $EarlierFolder != ""
    StrCpy $R0 $EarlierFolder
    Call NeedFreeFiles
  ${EndIf}

  InitPluginsDir
  Call PutInterruptedBack
  Call RemoveWorkFolders
  ${If} ${FileExists} "$INSTDIR\setup.new"
  ${OrIf} ${FileExists} "$INSTDIR\setup.old"
    MessageBox MB_OK|MB_ICONSTOP "The folders setup.new and setup.old in $INSTDIR are left of an earlier setup and cannot be removed, because a program uses them. Calyx was left as it is. Close that program or restart the computer, then start the setup again." /SD IDOK
    SetErrorLevel ${REFUSED_RIGHTS}
    Abort "$INSTDIR\setup.new or setup.old cannot be removed."
  ${EndIf}
  StrCpy $Disposable 1
  ClearErrors
  CreateDirectory "$INSTDIR\setup.new"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONSTOP "The folder $INSTDIR cannot be written to. Nothing was changed." /SD IDOK
    SetErrorLevel ${REFUSED_RIGHTS}
    Abort "The folder $INSTDIR cannot be written to."
  ${EndIf}
  SetOutPath "$PLUGINSDIR"
  File "${LISTS}/installed.txt"
  ${If} ${FileExists} "$INSTDIR\installed.txt"
    CopyFiles /SILENT "$INSTDIR\installed.txt" "$PLUGINSDIR\earlier.txt"
  ${ElseIf} $EarlierFolder == $INSTDIR  ; the list is lost
    CopyFiles /SILENT "$PLUGINSDIR\installed.txt" "$PLUGINSDIR\earlier.txt"
  ${EndIf}
  SetOutPath "$INSTDIR\setup.new"
  File "${LISTS}/installed.txt"
  File /r "${STAGE}/*"
  ClearErrors
  WriteUninstaller "$INSTDIR\setup.new\uninstall.exe"
  ${If} ${Errors}
    Abort "The files could not be written."
  ${EndIf}
  Call ProtectSamples
  SetOutPath $TEMP

  CreateDirectory "$INSTDIR\setup.old"
  ${MoveListed} "$PLUGINSDIR\earlier.txt" "$INSTDIR" "$INSTDIR\setup.old"
  ${If} $Failed == ""
    ${MoveListed} "$PLUGINSDIR\installed.txt" "$INSTDIR\setup.new" "$INSTDIR"
  ${EndIf}
  ${If} $Failed != ""
  ${OrIf} $InTheWay != ""
    Call PutBack
  ${EndIf}
  Delete "$INSTDIR\setup.old\installed.txt"  ; done: nothing is to be put back any more
  Call RemoveWorkFolders
  Push "$PLUGINSDIR\earlier.txt"
  Push $INSTDIR
  Call RemoveEmptied

  ; An earlier version that stood elsewhere goes.
  ${If} $EarlierFolder != ""
  ${AndIf} $EarlierFolder != $INSTDIR
    CopyFiles /SILENT "$EarlierFolder\installed.txt" "$PLUGINSDIR\elsewhere.txt"
    ${MoveListed} "$PLUGINSDIR\elsewhere.txt" "$EarlierFolder" "$PLUGINSDIR\elsewhere"
    Push "$PLUGINSDIR\elsewhere.txt"
    Push $EarlierFolder
    Call RemoveEmptied
    RMDir /r "$EarlierFolder\setup.new"
    RMDir /r "$EarlierFolder\setup.old"
    RMDir $EarlierFolder
    ${If} $Failed != ""
      MessageBox MB_OK|MB_ICONEXCLAMATION "Calyx is now in $INSTDIR. $EarlierFolder\$Failed, of the earlier version, cannot be removed, because a program uses it. Remove that folder yourself when it is closed." /SD IDOK
    ${EndIf}
  ${EndIf}
SectionEnd

; Shortcuts and registry

Section "Entries"
  CreateShortcut /NoWorkingDir "$SMPROGRAMS\Calyx.lnk" "$INSTDIR\calyx.exe" "" "$INSTDIR\calyx.exe" 0 SW_SHOWNORMAL "" "${SUMMARY}"
  ${If} $Shortcut = 1
    CreateShortcut /NoWorkingDir "$DESKTOP\Calyx.lnk" "$INSTDIR\calyx.exe" "" "$INSTDIR\calyx.exe" 0 SW_SHOWNORMAL "" "${SUMMARY}"
  ${Else}
    Delete "$DESKTOP\Calyx.lnk"
  ${EndIf}

  WriteRegStr SHCTX "${ENTRY}" "DisplayName" "Calyx"
  WriteRegStr SHCTX "${ENTRY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${ENTRY}" "DisplayIcon" "$INSTDIR\calyx.exe,0"
  WriteRegStr SHCTX "${ENTRY}" "Publisher" "Calyx"
  WriteRegStr SHCTX "${ENTRY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${ENTRY}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
  WriteRegStr SHCTX "${ENTRY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode /S'
  WriteRegDWORD SHCTX "${ENTRY}" "EstimatedSize" ${KILOBYTES}
  WriteRegDWORD SHCTX "${ENTRY}" "NoModify" 1
  WriteRegDWORD SHCTX "${ENTRY}" "NoRepair" 1

  WriteRegStr SHCTX "${APP_PATHS}" "" "$INSTDIR\calyx.exe"

  ; The kind of file, and the program among those that open it.
  WriteRegStr SHCTX "${CLASSES}\${PROGID}" "" "Merrin indicator configuration"
  WriteRegStr SHCTX "${CLASSES}\${PROGID}\DefaultIcon" "" "$INSTDIR\calyx.exe,0"
  WriteRegStr SHCTX "${CLASSES}\${PROGID}\shell" "" "open"
  WriteRegStr SHCTX "${CLASSES}\${PROGID}\shell\open\command" "" '"$INSTDIR\calyx.exe" "%1"'
  WriteRegStr SHCTX "${CLASSES}\.mrn\OpenWithProgids" "${PROGID}" ""
  WriteRegStr SHCTX "${CLASSES}\Applications\calyx.exe" "FriendlyAppName" "Calyx"
  WriteRegStr SHCTX "${CLASSES}\Applications\calyx.exe\SupportedTypes" ".mrn" ""
  WriteRegStr SHCTX "${CLASSES}\Applications\calyx.exe\shell\open\command" "" '"$INSTDIR\calyx.exe" "%1"'
  WriteRegStr SHCTX "${CAPABILITIES}" "ApplicationName" "Calyx"
  WriteRegStr SHCTX "${CAPABILITIES}" "ApplicationDescription" "${SUMMARY}"
  WriteRegStr SHCTX "${CAPABILITIES}" "ApplicationIcon" "$INSTDIR\calyx.exe,0"
  WriteRegStr SHCTX "${CAPABILITIES}\FileAssociations" ".mrn" "${PROGID}"
  WriteRegStr SHCTX "Software\RegisteredApplications" "Calyx" "${CAPABILITIES}"

  ${If} $Extension = 1
    ReadRegStr $0 SHCTX "${CLASSES}\.mrn" ""
    ${If} $0 != "${PROGID}"
      ReadRegStr $1 SHCTX "${CLASSES}\.mrn" "Content Type"
      WriteRegStr SHCTX "${ENTRY}" "ExtensionBefore" "$0"
      WriteRegStr SHCTX "${ENTRY}" "ContentBefore" "$1"
      WriteRegStr SHCTX "${CLASSES}\.mrn" "" "${PROGID}"
      WriteRegStr SHCTX "${CLASSES}\.mrn" "Content Type" "${CONTENT}"
    ${EndIf}
  ${Else}
    Call GiveExtensionBack
  ${EndIf}
  Call TellExplorer
SectionEnd

; Removing

; The folder says whose installation it is, when the command line does not.
Function un.onInit
  Call un.RefuseWithoutRights
  StrCpy $Given $INSTDIR
  !insertmacro MULTIUSER_UNINIT
  StrCpy $INSTDIR $Given
  ${GetParameters} $1
  ${GetOptions} $1 "/RemoveSettings" $2
  StrCpy $RemoveSettings 1
  ${If} ${Errors}
    StrCpy $RemoveSettings 0
  ${EndIf}
  ClearErrors
  ${GetOptions} $1 "/AllUsers" $2
  ${IfNot} ${Errors}
    Return
  ${EndIf}
  ClearErrors
  ReadRegStr $0 HKCU "${ENTRY}" "InstallLocation"
  ${If} $0 == $INSTDIR
    Call un.MultiUser.InstallMode.CurrentUser
    StrCpy $INSTDIR $Given
  ${EndIf}
  ReadRegStr $0 HKLM "${ENTRY}" "InstallLocation"
  ${If} $0 == $INSTDIR
  ${AndIf} $MultiUser.InstallMode != "AllUsers"
    ${If} $MultiUser.Privileges != "Admin"
      ${Refuse} ${REFUSED_RIGHTS} "Calyx is installed for all users of this computer. Only an administrator may remove it."
    ${EndIf}
    Call un.MultiUser.InstallMode.AllUsers
    StrCpy $INSTDIR $Given
  ${EndIf}
FunctionEnd

Function un.AskWhatGoes
  !insertmacro MUI_HEADER_TEXT "Remove Calyx ${VERSION}" "from $INSTDIR"
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateLabel} 0 2u 100% 24u "The program and its samples will be removed. Your configurations and the backups of indicators stay, wherever they are."
  Pop $0
  ${NSD_CreateCheckBox} 0 34u 100% 12u "&Remove my settings, too: preferences, terminal macros, stream formats and logs"
  Pop $RemoveSettingsBox
  ${NSD_SetState} $RemoveSettingsBox $RemoveSettings
  nsDialogs::Show
FunctionEnd

Function un.KeepAnswer
  ${NSD_GetState} $RemoveSettingsBox $RemoveSettings
FunctionEnd

; Backups and interrupted transfers stay.
Function un.RemoveSettings
  ${If} $MultiUser.InstallMode == "AllUsers"
    DeleteRegKey HKLM "Software\Calyx\Calyx"
    DeleteRegKey /ifempty HKLM "Software\Calyx"
  ${EndIf}
  SetShellVarContext current
  DeleteRegKey HKCU "Software\Calyx\Calyx"
  DeleteRegKey /ifempty HKCU "Software\Calyx"
  Delete "$APPDATA\Calyx\streams.ini"
  Delete "$APPDATA\Calyx\macros.ini"
  Delete "$APPDATA\Calyx\errorlog.txt"
  Delete "$APPDATA\Calyx\commlog.txt"
  RMDir "$APPDATA\Calyx"
FunctionEnd

Function un.RemoveEntries
  Delete "$SMPROGRAMS\Calyx.lnk"
  Delete "$DESKTOP\Calyx.lnk"

  Call un.GiveExtensionBack
  DeleteRegValue SHCTX "${CLASSES}\.mrn\OpenWithProgids" "${PROGID}"
  DeleteRegKey /ifempty SHCTX "${CLASSES}\.mrn\OpenWithProgids"
  DeleteRegKey /ifempty SHCTX "${CLASSES}\.mrn"
  DeleteRegKey SHCTX "${CLASSES}\${PROGID}"
  DeleteRegKey SHCTX "${CLASSES}\Applications\calyx.exe"
  DeleteRegKey SHCTX "${CAPABILITIES}"
  DeleteRegKey /ifempty SHCTX "Software\Calyx"
  DeleteRegValue SHCTX "Software\RegisteredApplications" "Calyx"
  DeleteRegKey SHCTX "${APP_PATHS}"
  DeleteRegKey SHCTX "${ENTRY}"
  Call un.TellExplorer
FunctionEnd

!macro Remove FILE
  ClearErrors
  Delete "$INSTDIR\${FILE}"
  ${If} ${Errors}
    StrCpy $Failed "${FILE}"
  ${EndIf}
!macroend
!define Remove "!insertmacro Remove"

Section "un.Calyx"
  SetDetailsPrint textonly
  DetailPrint "Removing the files ..."
  SetDetailsPrint none
  StrCpy $R0 $INSTDIR
  Call un.NeedFreeFiles
  SetOutPath $TEMP
  StrCpy $Failed ""
  !include "${LISTS}/remove.nsh"
  RMDir /r "$INSTDIR\setup.new"
  RMDir /r "$INSTDIR\setup.old"
  ${If} $Failed != ""
    MessageBox MB_OK|MB_ICONSTOP "$INSTDIR\$Failed cannot be removed, because a program uses it. Close that program or restart the computer, then remove Calyx again." /SD IDOK
    SetErrorLevel ${INCOMPLETE}
    Abort "$INSTDIR\$Failed cannot be removed."
  ${EndIf}
  Delete "$INSTDIR\installed.txt"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  ReadRegStr $0 SHCTX "${ENTRY}" "InstallLocation"
  ${If} $0 == $INSTDIR  ; not of a copy of the folder
    Call un.RemoveEntries
  ${EndIf}
  ${If} $RemoveSettings = 1
    Call un.RemoveSettings
  ${EndIf}
SectionEnd
