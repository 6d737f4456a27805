Option Explicit
' Arguments: the sub-key of the settings.
Const Compression = 8, Fonts = 32, AllPages = -1
Dim preferences, subKey
subKey = WScript.Arguments(0)
Set preferences = CreateObject("vmkctrl.PdfPrinterPreferences")
preferences.InitFromRegistry AllPages, subKey
preferences.EnablePage AllPages
preferences.DisablePage Fonts
preferences.SetTitle "Printing preferences"
preferences.UseDefaultValues Compression
preferences.StoreInRegistry AllPages, subKey
Set preferences = Nothing
WScript.Echo "done"
