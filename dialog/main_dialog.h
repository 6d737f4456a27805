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
    ~CDlgMain() override;

    // Runs the dialog; see RunPreferencesDialog.
    INT_PTR Run();

  private:
    std::optional<LRESULT> ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) override;

    void OnInitDialog();
    void OpenLanguage();
    void DisableApply() const { EnableWindow(m_applyButton, FALSE); }
    void HoldBackChanges() noexcept;
    INT_PTR AnswerForHost(INT_PTR ended) noexcept;

    PrinterSettings& m_settings;
    const PreferencesDialogOptions& m_options;
    Translator m_translator;
    HWND m_applyButton = nullptr;
    bool m_initialised = false;
    std::optional<INT_PTR> m_button;        // the one that has closed the dialog
    std::optional<PrinterSettings> m_ifOk;  // what the pages store if the host turns out to have said OK
    bool m_unstored = false;  // the host has ended the dialog while there was something to store
    CDlgSettings m_navigator;
};

}  // namespace vmk
