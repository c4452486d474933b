; Takes away what the program registers for log files when it starts (docs/file_type.md), for the
; user who runs the uninstaller. What another program registered for the extension stays.
!macro ForgetFileType
  Push $0
  ReadRegStr $0 HKCU "Software\Classes\.qvx" ""
  ${If} $0 == "Zlkqvxv.Document"
    DeleteRegValue HKCU "Software\Classes\.qvx" ""
    DeleteRegKey /ifnosubkeys /ifnovalues HKCU "Software\Classes\.qvx"
  ${EndIf}
  DeleteRegKey HKCU "Software\Classes\Zlkqvxv.Document"
  ; SHCNE_ASSOCCHANGED: the desktop looks at the types of files again.
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
  Pop $0
!macroend
