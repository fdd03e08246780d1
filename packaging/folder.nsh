; The folder to install into: whether the user may write to it, now and later.

; "1" when the command line says that a protected folder is wanted.
Var AnyFolder
; The folder's name without links, short names and dots.
Var RealFolder

; Replaces the name of a folder on the stack by its real name; by nothing when it cannot be opened.
Function RealName
  Exch $0
  Push $1
  Push $2
  ; No access and all sharing; the last flag lets a folder be opened.
  System::Call 'kernel32::CreateFile(t "$0\", i 0, i 7, p 0, i 3, i 0x02000000, p 0) p .r1'
  StrCpy $0 ""
  ${If} $1 != "-1"
    System::Call \
      'kernel32::GetFinalPathNameByHandle(p r1, t .r0, i ${NSIS_MAX_STRLEN}, i 0) i .r2'
    System::Call 'kernel32::CloseHandle(p r1)'
  ${EndIf}
  Pop $2
  Pop $1
  Exch $0
FunctionEnd

; Leaves "1" in $0 when a file can be made in the folder, and then also sets RealFolder. Leaves no
; folder that was not there.
Function TryFolder
  StrCpy $1 0
  StrCpy $2 $INSTDIR
  ${Do}
    ${If} ${FileExists} "$2\*.*"
    ${OrIf} $2 == ""
      ${ExitDo}
    ${EndIf}
    IntOp $1 $1 + 1
    ${GetParent} $2 $2
  ${Loop}
  StrCpy $0 "0"
  CreateDirectory "$INSTDIR"
  ClearErrors
  FileOpen $2 "$INSTDIR\gateway3-setup.tmp" w
  ${IfNot} ${Errors}
    FileClose $2
    Delete "$INSTDIR\gateway3-setup.tmp"
    StrCpy $0 "1"
    Push $INSTDIR
    Call RealName
    Pop $RealFolder
  ${EndIf}
  StrCpy $2 $INSTDIR
  ${DoWhile} $1 > 0
    RMDir "$2"
    ${GetParent} $2 $2
    IntOp $1 $1 - 1
  ${Loop}
FunctionEnd

; Leaves "1" in $0 when set-up can write to the folder only because it was started as administrator:
; the Gateway, started in the usual way, could not keep its lists there. To be called after
; TryFolder.
Function FindProtection
  StrCpy $0 "0"
  ; Who updates a copy has made the choice before.
  ${If} ${FileExists} "$INSTDIR\${PROGRAM}"
    Return
  ${EndIf}
  ; Administrators have two tokens. The full one has the elevation type 2 (information class 18); the
  ; programs that they start in the usual way have the other. A person who has only one token, for
  ; example while user account control is off, can write later what can be written now.
  System::Call 'kernel32::GetCurrentProcess() p .r1'
  System::Call 'advapi32::OpenProcessToken(p r1, i 8, *p .r2) i .r3'
  ${If} $3 = 0
    Return
  ${EndIf}
  StrCpy $1 0
  System::Call 'advapi32::GetTokenInformation(p r2, i 18, *i .r1, i 4, *i .r3)'
  System::Call 'kernel32::CloseHandle(p r2)'
  ${If} $1 <> 2
    Return
  ${EndIf}
  !macro FindProtectionBelow folder
    Push "${folder}"
    Call RealName
    Pop $1
    StrLen $2 $1
    StrCpy $3 $RealFolder $2
    StrCpy $4 $RealFolder 1 $2
    ${If} $1 != ""
    ${AndIf} $3 == $1
      ${If} $4 == "\"
      ${OrIf} $4 == ""
        StrCpy $0 "1"
      ${EndIf}
    ${EndIf}
  !macroend
  !insertmacro FindProtectionBelow "$PROGRAMFILES"
  !insertmacro FindProtectionBelow "$PROGRAMFILES32"
  !insertmacro FindProtectionBelow "$PROGRAMFILES64"
  !insertmacro FindProtectionBelow "$WINDIR"
FunctionEnd

Function CheckFolder
  Call TryFolder
  ${If} $0 != "1"
    MessageBox MB_OK|MB_ICONEXCLAMATION "You may not write to this folder:$\r$\n$INSTDIR$\r$\n\
$\r$\nThe Gateway keeps its lists beside the program. Please choose a folder that you may write to."
    Abort
  ${EndIf}
  Call FindProtection
  ${If} $0 == "1"
  ${AndIf} $AnyFolder != "1"
    MessageBox MB_YESNO|MB_ICONEXCLAMATION|MB_DEFBUTTON2 "Only an administrator may write to this \
folder:$\r$\n$INSTDIR$\r$\n$\r$\nSet-up was started as administrator and can install there. The \
Gateway, started in the usual way, could not keep its lists there.$\r$\n$\r$\nDo you want to \
install it there all the same?" IDYES +2
    Abort
  ${EndIf}
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 != ""
  ${AndIf} $0 != $INSTDIR
  ${AndIf} ${FileExists} "$0\${PROGRAM}"
    MessageBox MB_YESNO|MB_ICONQUESTION "The Gateway is already installed in$\r$\n$0$\r$\n$\r$\n\
To move it, remove it there first. Do you want to install a second copy?" IDYES +2
    Abort
  ${EndIf}
FunctionEnd
