; Files of a list, a path a line, moved from folder to folder

; Moves the files of a list from a folder to another, those that are there and have no counterpart yet.
; $Failed names the last that could not be moved, $InTheWay the last that had one. Stack: list, from, to (on top).
Function MoveListed
  Pop $R2
  Pop $R1
  Pop $R0
  StrCpy $Failed ""
  StrCpy $InTheWay ""
  ClearErrors
  FileOpen $R3 $R0 r
  ${If} ${Errors}
    Return
  ${EndIf}
  ${Do}
    ClearErrors
    FileRead $R3 $R4
    ${If} ${Errors}
      ${Break}
    ${EndIf}
    ${TrimNewLines} $R4 $R4
    ${StrStr} $R5 $R4 ".."
    ${If} $R4 == ""
    ${OrIf} $R5 != ""
    ${OrIfNot} ${FileExists} "$R1\$R4"
      ${Continue}
    ${EndIf}
    ${If} ${FileExists} "$R2\$R4"
      StrCpy $InTheWay "$R4"
      ${Continue}
    ${EndIf}
    ${If} ${FileExists} "$R1\$R4\*.*"  ; somebody's folder
      StrCpy $Failed "$R4"
      ${Continue}
    ${EndIf}
    ${GetParent} "$R2\$R4" $R5
    CreateDirectory $R5
    ClearErrors
    Rename "$R1\$R4" "$R2\$R4"
    ${If} ${Errors}
      StrCpy $Failed "$R4"
    ${EndIf}
  ${Loop}
  FileClose $R3
FunctionEnd

!macro MoveListed LIST FROM TO
  Push "${LIST}"
  Push "${FROM}"
  Push "${TO}"
  Call MoveListed
!macroend
!define MoveListed "!insertmacro MoveListed"

; The folders of a list's files, where nothing is left in them. Stack: list, folder (on top).
Function RemoveEmptied
  Pop $R1
  Pop $R0
  ClearErrors
  FileOpen $R3 $R0 r
  ${If} ${Errors}
    Return
  ${EndIf}
  ${Do}
    ClearErrors
    FileRead $R3 $R4
    ${If} ${Errors}
      ${Break}
    ${EndIf}
    ${TrimNewLines} $R4 $R4
    ${StrStr} $R5 $R4 ".."
    ${If} $R5 == ""
      ${Do}
        ${GetParent} "$R4" $R4
        ${If} $R4 == ""
          ${Break}
        ${EndIf}
        RMDir "$R1\$R4"
      ${Loop}
    ${EndIf}
  ${Loop}
  FileClose $R3
  ClearErrors
FunctionEnd
