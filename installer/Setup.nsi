# SPDX-License-Identifier: GPL-3.0-or-later
#
# The setup program for Windows. makensis is told VERSION, FILES (the folder with what is installed)
# and OUTPUT. The module goes to the folder that editors look into, all else to a folder of its own.
#
# Silent: setup.exe /S [/DOWNGRADE] [/D=FOLDER], where /D= comes last, without quotation marks.
# Exit status: 0 done, 1 cancelled, 2 a file could not be written, 3 the module is in use, 4 a newer
# module is there.
Unicode true
Target amd64-unicode
SetCompressor /SOLID zlib
ManifestDPIAware true
ManifestSupportedOS all
RequestExecutionLevel admin
CRCCheck force
# The date of a file would be that of the folder it was packed from.
SetDateSave off
AllowSkipFiles off
SetOverwrite try

!include "MUI2.nsh"
!include "LogicLib.nsh"
!include "FileFunc.nsh"
!include "WordFunc.nsh"

!define NAME "WY Beta"
!define MODULE "WyBeta.vst3"
# What Windows shows under Apps, and what setup remembers.
!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"

!define CANNOT_WRITE 2
!define IN_USE 3
!define NEWER_IS_THERE 4

Name "${NAME}"
Caption "${NAME} ${VERSION}"
BrandingText " "
OutFile "${OUTPUT}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileDescription "${NAME} Setup"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey LegalCopyright "Copyright (C) 2026 the WY Beta authors. GNU GPL, version 3 or later."

!define MUI_ICON "${NSISDIR}/Contrib/Graphics/Icons/nsis3-install.ico"
!define MUI_UNICON "${NSISDIR}/Contrib/Graphics/Icons/nsis3-uninstall.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${NSISDIR}/Contrib/Graphics/Wizard/nsis3-metro.bmp"
!define MUI_LICENSEPAGE_TEXT_BOTTOM "$(aboutLicence)"
!define MUI_LICENSEPAGE_BUTTON "$(^NextBtn)"
!insertmacro MUI_PAGE_LICENSE "${FILES}/LICENSE.txt"
!define MUI_DIRECTORYPAGE_TEXT_TOP "$(aboutFolder)"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_TEXT "$(nextSteps)"
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES

# Windows' language decides; English where it is neither of the two.
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_LANGUAGE Japanese

LangString aboutLicence ${LANG_ENGLISH} "${NAME} is free software. You need not accept this licence to use it; the licence says what you may do beyond that."
LangString aboutLicence ${LANG_JAPANESE} "${NAME} は自由ソフトウェアです。使うだけであれば、このライセンスに同意する必要はありません。ライセンスには、コピー、改変、配布の条件が書かれています。"
LangString aboutFolder ${LANG_ENGLISH} "${MODULE} goes into the folder in which your editor looks for extensions. For most editors that is the one below."
LangString aboutFolder ${LANG_JAPANESE} "エディターの拡張機能用フォルダーに ${MODULE} をインストールします。多くのエディターでは、下のフォルダーのままで使えます。"
LangString nextSteps ${LANG_ENGLISH} "Start your editor again. Make the notes first, as many as the lyric has syllables; then type the lyric into the first of them.$\r$\n$\r$\nTo remove ${NAME}, uninstall it under Apps in the settings of Windows."
LangString nextSteps ${LANG_JAPANESE} "エディターを起動し直してください。先に音節の数だけ音符を置き、その最初の音符に歌詞を入力します。$\r$\n$\r$\n${NAME} のアンインストールは、Windows の設定の「アプリ」から行ってください。"
LangString inUse ${LANG_ENGLISH} "${NAME} is in use. Close the editor, then press Retry.$\r$\n$\r$\nNothing has been changed so far."
LangString inUse ${LANG_JAPANESE} "${NAME} は使用中です。エディターを終了してから、[再試行] を押してください。$\r$\n$\r$\nまだ何も変更されていません。"
LangString newerIsThere ${LANG_ENGLISH} "A newer version is installed: $2. Do you want to replace it with ${VERSION}?"
LangString newerIsThere ${LANG_JAPANESE} "より新しいバージョン $2 がインストールされています。${VERSION} に置き換えますか?"
LangString cannotWrite ${LANG_ENGLISH} "${MODULE} could not be written to this folder:$\r$\n$0$\r$\n$\r$\nNothing has been installed."
LangString cannotWrite ${LANG_JAPANESE} "次のフォルダーに ${MODULE} を書き込めませんでした:$\r$\n$0$\r$\n$\r$\n何もインストールされていません。"
LangString cannotRemove ${LANG_ENGLISH} "This file could not be removed:$\r$\n$0$\r$\n$\r$\nNothing has been removed."
LangString cannotRemove ${LANG_JAPANESE} "次のファイルを削除できませんでした:$\r$\n$0$\r$\n$\r$\n何も削除されていません。"

# The uninstaller and the texts lie here.
Var programFolder
# Where the module of an earlier setup lies, and the topmost folder that was made for it. Empty if none.
Var earlierFolder
Var earlierTopmost
# The topmost folder that is made for the module. Empty if there is none to make.
Var topmost

# Ends setup when /D= names a folder that cannot be, instead of going to another one.
Function expectNoFolderNamed
    System::Call 'kernel32::GetCommandLineW() w.r1'
    ClearErrors
    ${GetOptions} $1 "/D=" $0
    ${IfNot} ${Errors}
        MessageBox MB_OK|MB_ICONSTOP "$(cannotWrite)" /SD IDOK
        SetErrorLevel ${CANNOT_WRITE}
        Quit
    ${EndIf}
FunctionEnd

Function .onInit
    StrCpy $programFolder "$PROGRAMFILES64\${NAME}"
    ReadRegStr $earlierFolder HKLM "${ENTRY}" "InstallLocation"
    ReadRegStr $earlierTopmost HKLM "${ENTRY}" "TopmostFolder"
    # Set already when /D= names a folder that can be.
    ${If} $INSTDIR == ""
        Call expectNoFolderNamed
        StrCpy $INSTDIR $earlierFolder
    ${EndIf}
    ${If} $INSTDIR == ""
        StrCpy $INSTDIR "$COMMONFILES64\VST3"
    ${EndIf}
FunctionEnd

# Ends setup unless the module file, given on the stack, is older, of this version, or may be replaced.
Function expectNoNewer
    Pop $0
    ClearErrors
    GetDLLVersion $0 $1 $2
    ${If} ${Errors}
        Return
    ${EndIf}
    IntOp $3 $1 >> 16
    IntOp $3 $3 & 0xFFFF
    IntOp $4 $1 & 0xFFFF
    IntOp $5 $2 >> 16
    IntOp $5 $5 & 0xFFFF
    StrCpy $2 "$3.$4.$5"
    ${VersionCompare} $2 "${VERSION}" $1
    ${If} $1 <> 1
        Return
    ${EndIf}
    ${GetParameters} $1
    ClearErrors
    ${GetOptions} $1 "/DOWNGRADE" $3
    ${IfNot} ${Errors}
        Return
    ${EndIf}
    MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "$(newerIsThere)" /SD IDNO IDYES replace
    SetErrorLevel ${NEWER_IS_THERE}
    Abort
    replace:
FunctionEnd

# Setup and uninstaller have functions of their own, those of the uninstaller with "un." in front.
!macro SharedFunctions prefix

# Asks to close the editor until the module file, given on the stack, is not in use; ends on Cancel.
Function ${prefix}waitUntilUnused
    Pop $0
    ${Do}
        # Opens the file for writing, as only a file can be that no process has loaded.
        System::Call 'kernel32::CreateFileW(w r0, i 0x40000000, i 1, p 0, i 3, i 0, p 0) p.r1 ?e'
        Pop $2
        ${If} $1 != -1
            System::Call 'kernel32::CloseHandle(p r1)'
            Return
        ${ElseIf} $2 <> 32 # ERROR_SHARING_VIOLATION
            Return
        ${EndIf}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(inUse)" /SD IDCANCEL IDRETRY again
        SetErrorLevel ${IN_USE}
        Abort
        again:
    ${Loop}
FunctionEnd

# Removes the folder $0 and those above it up to $1, as far as they are empty; nothing if $1 is empty.
Function ${prefix}removeFolders
    ${DoUntil} $1 == ""
        RMDir $0
        ${If} $0 == $1
        ${OrIf} $0 == ""
            Return
        ${EndIf}
        ${GetParent} $0 $0
    ${Loop}
FunctionEnd

# Removes from the folder $0 what setup put there beside the module.
Function ${prefix}removeTexts
    Delete "$0\README.txt"
    Delete "$0\README.ja.txt"
    Delete "$0\LICENSE.txt"
    Delete "$0\THIRD-PARTY-NOTICES.txt"
    Delete "$0\uninstall.exe"
    RMDir $0
FunctionEnd

!macroend
!insertmacro SharedFunctions ""
!insertmacro SharedFunctions "un."

Function findTopmost
    StrCpy $topmost ""
    ${If} $INSTDIR == $earlierFolder
        StrCpy $topmost $earlierTopmost
    ${EndIf}
    StrCpy $0 $INSTDIR
    ${Do}
        ${If} $0 == ""
        ${OrIf} ${FileExists} $0
            Return
        ${EndIf}
        StrCpy $topmost $0
        ${GetParent} $0 $0
    ${Loop}
FunctionEnd

# Takes back what was written, and ends.
Function giveUp
    SetOutPath $TEMP
    Delete "$INSTDIR\${MODULE}.new"
    ${If} $earlierFolder == ""
        StrCpy $0 $programFolder
        Call removeTexts
    ${EndIf}
    StrCpy $0 $INSTDIR
    StrCpy $1 $topmost
    Call removeFolders
    StrCpy $0 $INSTDIR
    MessageBox MB_OK|MB_ICONSTOP "$(cannotWrite)" /SD IDOK
    SetErrorLevel ${CANNOT_WRITE}
    Abort
FunctionEnd

# The module of an earlier setup, when this one put it elsewhere.
Function removeEarlier
    ${If} $earlierFolder == ""
    ${OrIf} $earlierFolder == $INSTDIR
        Return
    ${EndIf}
    Delete "$earlierFolder\${MODULE}"
    StrCpy $0 $earlierFolder
    StrCpy $1 $earlierTopmost
    Call removeFolders
FunctionEnd

Function writeEntry
    WriteRegStr HKLM "${ENTRY}" "DisplayName" "${NAME}"
    WriteRegStr HKLM "${ENTRY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${ENTRY}" "DisplayIcon" "$programFolder\uninstall.exe"
    WriteRegStr HKLM "${ENTRY}" "Publisher" "${NAME}"
    WriteRegStr HKLM "${ENTRY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${ENTRY}" "TopmostFolder" "$topmost"
    WriteRegStr HKLM "${ENTRY}" "UninstallString" '"$programFolder\uninstall.exe"'
    WriteRegStr HKLM "${ENTRY}" "QuietUninstallString" '"$programFolder\uninstall.exe" /S'
    SectionGetSize 0 $0
    WriteRegDWORD HKLM "${ENTRY}" "EstimatedSize" $0
    WriteRegDWORD HKLM "${ENTRY}" "NoModify" 1
    WriteRegDWORD HKLM "${ENTRY}" "NoRepair" 1
FunctionEnd

Section
    Push "$INSTDIR\${MODULE}"
    Call expectNoNewer
    Push "$INSTDIR\${MODULE}"
    Call waitUntilUnused
    ${If} $earlierFolder != ""
    ${AndIf} $earlierFolder != $INSTDIR
        Push "$earlierFolder\${MODULE}"
        Call expectNoNewer
        Push "$earlierFolder\${MODULE}"
        Call waitUntilUnused
    ${EndIf}

    Call findTopmost
    ClearErrors
    SetOutPath $INSTDIR
    File "/oname=${MODULE}.new" "${FILES}/${MODULE}"
    SetOutPath $programFolder
    File "${FILES}/README.txt"
    File "${FILES}/README.ja.txt"
    File "${FILES}/LICENSE.txt"
    File "${FILES}/THIRD-PARTY-NOTICES.txt"
    WriteUninstaller "$programFolder\uninstall.exe"
    ${If} ${Errors}
        Call giveUp
    ${EndIf}
    # The new module takes the place of the old one as a whole (MOVEFILE_REPLACE_EXISTING).
    System::Call 'kernel32::MoveFileExW(w "$INSTDIR\${MODULE}.new", w "$INSTDIR\${MODULE}", i 1) i.r0'
    ${If} $0 = 0
        Call giveUp
    ${EndIf}
    Call removeEarlier
    Call writeEntry
SectionEnd

Section "Uninstall"
    ReadRegStr $3 HKLM "${ENTRY}" "InstallLocation"
    ReadRegStr $4 HKLM "${ENTRY}" "TopmostFolder"
    ${If} $3 != ""
        Push "$3\${MODULE}"
        Call un.waitUntilUnused
        StrCpy $0 "$3\${MODULE}"
        ClearErrors
        Delete $0
        ${If} ${Errors}
            MessageBox MB_OK|MB_ICONSTOP "$(cannotRemove)" /SD IDOK
            SetErrorLevel ${CANNOT_WRITE}
            Abort
        ${EndIf}
        StrCpy $0 $3
        StrCpy $1 $4
        Call un.removeFolders
    ${EndIf}
    DeleteRegKey HKLM "${ENTRY}"
    StrCpy $0 $INSTDIR
    SetOutPath $TEMP
    Call un.removeTexts
SectionEnd
