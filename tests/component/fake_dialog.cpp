#include "tests/component/fake_dialog.h"

namespace vmk {

INT_PTR RunPreferencesDialog(PrinterSettings& settings, const PreferencesDialogOptions& options) {
    return test::TheDialog() ? test::TheDialog()(settings, options) : IDOK;
}

namespace test {

DialogAction& TheDialog() {
    static DialogAction action;
    return action;
}

}  // namespace test
}  // namespace vmk
