' Edits the settings of the key that is named: the whole round of a host.
Option Explicit
Dim preferences, exitCode, key
key = WScript.Arguments(0)
Set preferences = CreateObject("vmkctrl.PdfPrinterPreferences")
preferences.InitFromRegistry -1, key
preferences.EnablePage -1
preferences.DisablePage 32
preferences.SetTitle "Edited by a script"
preferences.OpenDialog &H409, exitCode
WScript.Echo exitCode & " " & TypeName(exitCode)
If exitCode = 1 Then preferences.StoreInRegistry -1, key
WScript.Echo "done"
