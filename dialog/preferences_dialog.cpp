#include "dialog/preferences_dialog.h"

#include "dialog/main_dialog.h"

namespace vmk {

INT_PTR RunPreferencesDialog(PrinterSettings& settings, const PreferencesDialogOptions& options) {
    try {
        return CDlgMain(settings, options).Run();
    } catch (...) {
        SetLastError(ERROR_OUTOFMEMORY);
        return Dialog::kNotCreated;
    }
}

}  // namespace vmk
