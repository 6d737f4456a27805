// Arguments: the sub-key of the settings.
var Compression = 8, Fonts = 32, AllPages = -1;
var subKey = WScript.Arguments.Item(0);
var preferences = new ActiveXObject("vmkctrl.PdfPrinterPreferences.1");
preferences.InitFromRegistry(AllPages, subKey);
preferences.EnablePage(AllPages);
preferences.DisablePage(Fonts);
preferences.SetTitle("Printing preferences");
preferences.UseDefaultValues("8");
preferences.StoreInRegistry(AllPages * 1.0, subKey);
WScript.Echo("done");
