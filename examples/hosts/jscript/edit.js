// cscript edit.js [KEY]: lets the user edit the settings of a key. JScript cannot hand over a variable, so that the exit
// code is lost; storing in either case does no harm, as after Cancel the object holds what was loaded or applied.
var AllPages = -1;
var key = WScript.Arguments.length > 0 ? WScript.Arguments.Item(0) : "";

var preferences = new ActiveXObject("vmkctrl.PdfPrinterPreferences");
preferences.InitFromRegistry(AllPages, key);
preferences.EnablePage(AllPages);
preferences.SetTitle("Edited by JScript");
preferences.OpenDialog(0, 0);
preferences.StoreInRegistry(AllPages, key);
WScript.Echo("stored");
