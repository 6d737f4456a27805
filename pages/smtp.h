#pragma once

#include <windows.h>

#include "controls/bound_dialog.h"
#include "controls/checkbox.h"
#include "controls/edit_double.h"
#include "controls/edit_text.h"
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
    std::span<const Spin> Spins() override { return m_spins; }

    void Load();
    void Store();

    double m_portNumber = 0.0;  // what the number box edits in place of the record's integer
    CMyEditText m_address;
    CMyEditDouble m_port;
    CMyCheckbox m_authentication;
    CMyEditText m_userName;
    CMyEditText m_password;
    CMyCheckbox m_secure;
    const Spin m_spins[1] = {{.id = IDC_SMTP_PORT_SPIN, .edit = m_port}};
};

}  // namespace vmk
