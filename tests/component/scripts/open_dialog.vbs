Option Explicit
Dim preferences, exitCode
Set preferences = CreateObject("vmkctrl.PdfPrinterPreferences")
preferences.EnablePage -1
exitCode = "before"
preferences.OpenDialog 0, exitCode
WScript.Echo exitCode & " " & TypeName(exitCode)
WScript.Echo "done"
