#include "pages/smtp.h"

#include "settings/all_or_nothing.h"

namespace vmk {
namespace {

constexpr UINT kLogonControls[] = {IDC_SMTP_USER_NAME_LABEL, IDC_SMTP_PASSWORD_LABEL, IDC_SMTP_USER_NAME,
                                   IDC_SMTP_PASSWORD, IDC_SMTP_SECURE};

}  // namespace

INT_PTR CDlgSMTP::Run(HWND owner) noexcept {
    return DoModal(IDD_SMTP, owner);
}

void CDlgSMTP::OnInitDialog() {
    const NoChangeByUser opening(*this);
    auto& email = settings->Email;
    m_authentication.Bind(*this, IDC_SMTP_AUTHENTICATION, email.SMTP.RequiresAuthentication,
                          {.ids = kLogonControls});
    m_secure.Bind(*this, IDC_SMTP_SECURE, email.STMP.UseSSL);
    m_address.Bind(*this, IDC_SMTP_ADDRESS, email.SMTP.Address);
    m_userName.Bind(*this, IDC_SMTP_USER_NAME, email.SMTP.UserName);
    m_password.Bind(*this, IDC_SMTP_PASSWORD, email.SMTP.Password);
    m_port.Bind(*this, IDC_SMTP_PORT, email.SMTP.Port, RangeOf("Email.SMTP.Port"),
                {.spin = IDC_SMTP_PORT_SPIN, .format = L"%.0f"});
    m_secure.SetNextFocus(m_address.Handle());
}

bool CDlgSMTP::OnCommand(Command command) {
    if (command.code != BN_CLICKED || (command.id != IDOK && command.id != IDCANCEL)) return false;
    if (command.id == IDOK) AllOrNothing(*settings, [this] { StoreValues(); });
    EndDialog(Handle(), static_cast<INT_PTR>(command.id));
    return true;
}

}  // namespace vmk
