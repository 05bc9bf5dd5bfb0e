; What installer and uninstaller share

; Refuses NUMBER "text": says why, and ends; a silent run says it by its exit code.
!macro Refuse NUMBER TEXT
  MessageBox MB_OK|MB_ICONSTOP "${TEXT}" /SD IDOK
  SetErrorLevel ${NUMBER}
  Quit
!macroend
!define Refuse "!insertmacro Refuse"

!macro SharedFunctions UN

; MultiUser would ask about it even in a silent run.
Function ${UN}RefuseWithoutRights
  UserInfo::GetAccountType
  Pop $0
  ${GetParameters} $1
  ClearErrors
  ${GetOptions} $1 "/AllUsers" $2
  ${IfNot} ${Errors}
  ${AndIf} $0 != "Admin"
    ${Refuse} ${REFUSED_RIGHTS} "Only an administrator may do that for all users of this computer."
  ${EndIf}
FunctionEnd

; A program that runs cannot be replaced. Opens it for writing, as replacing would. $R0: the folder
Function ${UN}NeedFreeFiles
  ${For} $R1 1 2
    StrCpy $R2 "calyx.exe"
    ${If} $R1 = 2
      StrCpy $R2 "calyx-cli.exe"
    ${EndIf}
    again:
    ${If} ${FileExists} "$R0\$R2"
      ; GENERIC_WRITE, every sharing, OPEN_EXISTING
      System::Call 'kernel32::CreateFile(t "$R0\$R2", i 0x40000000, i 7, p 0, i 3, i 0, p 0) p.r2 ?e'
      Pop $3
      ${If} $2 P<> -1
        System::Call 'kernel32::CloseHandle(p r2)'
      ${ElseIf} $3 = 32  ; ERROR_SHARING_VIOLATION
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$R2 is running. Save your work and close it, then choose Retry." /SD IDCANCEL IDRETRY again
        SetErrorLevel ${REFUSED_RUNNING}
        Abort "Calyx is running. Nothing was changed."
      ${Else}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$R0\$R2 cannot be changed (Windows error $3)." /SD IDCANCEL IDRETRY again
        SetErrorLevel ${REFUSED_RIGHTS}
        Abort "$R0\$R2 cannot be changed. Nothing was changed."
      ${EndIf}
    ${EndIf}
  ${Next}
FunctionEnd

; Whether a kind of file is still known, of this user or of all. $R0: its name; the answer, 0 or 1, in $R1
Function ${UN}FindClass
  StrCpy $R1 0
  EnumRegKey $R2 HKCU "${CLASSES}\$R0" 0
  ${If} $R2 == ""
    EnumRegKey $R2 HKLM "${CLASSES}\$R0" 0
  ${EndIf}
  ${If} $R0 != ""
  ${AndIf} $R2 != ""
    StrCpy $R1 1
  ${EndIf}
FunctionEnd

; The extension goes back to who had it before, if he is still there.
Function ${UN}GiveExtensionBack
  ReadRegStr $0 SHCTX "${CLASSES}\.mrn" ""
  ReadRegStr $1 SHCTX "${ENTRY}" "ExtensionBefore"
  ReadRegStr $2 SHCTX "${ENTRY}" "ContentBefore"
  DeleteRegValue SHCTX "${ENTRY}" "ExtensionBefore"
  DeleteRegValue SHCTX "${ENTRY}" "ContentBefore"
  ${If} $0 != "${PROGID}"
    Return
  ${EndIf}
  StrCpy $R0 $1
  Call ${UN}FindClass
  ${If} $R1 = 1
    WriteRegStr SHCTX "${CLASSES}\.mrn" "" "$1"
  ${Else}
    DeleteRegValue SHCTX "${CLASSES}\.mrn" ""
  ${EndIf}
  ${If} $2 != ""
    WriteRegStr SHCTX "${CLASSES}\.mrn" "Content Type" "$2"
  ${Else}
    DeleteRegValue SHCTX "${CLASSES}\.mrn" "Content Type"
  ${EndIf}
FunctionEnd

Function ${UN}TellExplorer
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'  ; SHCNE_ASSOCCHANGED
FunctionEnd

!macroend
!insertmacro SharedFunctions ""
!insertmacro SharedFunctions "un."
