#pragma once

#include <windows.h>

#include <string>

#include "settings/page_set.h"
#include "settings/printer_settings.h"

namespace vmk {

struct PreferencesDialogOptions {
    LANGID language = 0;  // 0: the user's default language
    PageSet pages = 0;    // the pages to list; bits without a page mean nothing
    std::wstring title;   // caption; empty keeps the template's
};

// Runs the modal preferences dialog on the calling thread, owned by the thread's active window. Pages read
// and write the record in place. Returns IDOK, IDCANCEL, or -1 when the dialog cannot be created, with the
// thread's last error set. A host that ends the dialog by itself gets the result that it gave to EndDialog,
// and the pages have stored if that is IDOK; IDCANCEL instead of 0 and -1, when it destroys the window, and
// when its thread is to end.
INT_PTR RunPreferencesDialog(PrinterSettings& settings, const PreferencesDialogOptions& options);

}  // namespace vmk
