#pragma once

#include <windows.h>

#include "controls/bound_dialog.h"
#include "controls/checkbox.h"
#include "controls/edit_text.h"
#include "controls/number_box.h"
#include "resources/ids/smtp.h"

namespace vmk {

// Edits the server that outgoing mail is sent through. OK stores at once, whatever then becomes of the
// dialog that it was opened from.
class CDlgSMTP final : public BoundDialog {
  public:
    // The environment of the dialog that opens this one.
    explicit CDlgSMTP(const CDialogEnv& env) { SetEnvironment(env.ForChild()); }

    // Runs the dialog over the owner. IDOK or IDCANCEL, or kNotCreated.
    INT_PTR Run(HWND owner) noexcept;

  private:
    void OnInitDialog() override;
    bool OnCommand(Command command) override;

    CMyCheckbox m_authentication;
    CMyCheckbox m_secure;
    CMyEditText m_address;
    CMyEditText m_userName;
    CMyEditText m_password;
    CMyEditDouble m_port;
};

}  // namespace vmk
