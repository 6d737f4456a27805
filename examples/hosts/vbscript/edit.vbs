' cscript edit.vbs [KEY]: lets the user edit the settings of a key, and stores them on OK.
Option Explicit
Const AllPages = -1, OK = 1
Dim preferences, exitCode, key
key = ""
If WScript.Arguments.Count > 0 Then key = WScript.Arguments(0)

Set preferences = CreateObject("vmkctrl.PdfPrinterPreferences")
preferences.InitFromRegistry AllPages, key
preferences.EnablePage AllPages
preferences.SetTitle "Edited by VBScript"
preferences.OpenDialog 0, exitCode
If exitCode = OK Then preferences.StoreInRegistry AllPages, key
WScript.Echo "exit code " & exitCode
