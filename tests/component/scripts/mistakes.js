var preferences = new ActiveXObject("vmkctrl.PdfPrinterPreferences");

function attempt(what, action) {
    var outcome = "accepted";
    try {
        action();
    } catch (error) {
        outcome = "refused";
    }
    WScript.Echo(what + ": " + outcome);
}

attempt("too few", function () { preferences.EnablePage(); });
attempt("too many", function () { preferences.EnablePage(1, 2); });
attempt("wrong type", function () { preferences.EnablePage("Paper"); });
attempt("no such method", function () { preferences.EnableEverything(1); });
WScript.Echo("done");
