#pragma once

#include <windows.h>

#include "controls/dialog_env.h"
#include "dialog/navigator.h"
#include "dialog/preferences_dialog.h"
#include "framework/dialog.h"
#include "language/translator.h"

namespace vmk {

// The modal preferences dialog: the navigator with OK, Cancel and Apply below. Lives on the stack of the call
// that runs it.
class CDlgMain final : public Dialog {
  public:
    CDlgMain(PrinterSettings& settings, const PreferencesDialogOptions& options);

    // Runs the dialog; see RunPreferencesDialog.
    INT_PTR Run();

  private:
    std::optional<LRESULT> ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) override;

    void OnInitDialog();
    void OpenLanguage();
    void DisableApply() const { EnableWindow(m_applyButton, FALSE); }

    PrinterSettings& m_settings;
    const PreferencesDialogOptions& m_options;
    Translator m_translator;
    HWND m_applyButton = nullptr;
    bool m_accepted = false;  // by OK; ended in any other way, the dialog is cancelled
    CDlgSettings m_navigator;
};

}  // namespace vmk
