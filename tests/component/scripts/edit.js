// Edits the settings of the key that is named. Here a method cannot change a variable of the caller's.
var AllPages = -1, Fonts = 32;
var key = WScript.Arguments.Item(0);
var preferences = new ActiveXObject("vmkctrl.PdfPrinterPreferences");
var exitCode = "before";
preferences.InitFromRegistry(AllPages, key);
preferences.EnablePage(AllPages);
preferences.DisablePage(Fonts);
preferences.SetTitle("Edited by a script");
preferences.OpenDialog(0x409, exitCode);
WScript.Echo(exitCode);
preferences.StoreInRegistry(AllPages, key);
WScript.Echo("done");
