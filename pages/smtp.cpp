#include "pages/smtp.h"

#include "base/truncate.h"
#include "settings/all_or_nothing.h"

namespace vmk {
namespace {

constexpr CMyEditDouble::Options kPort = {.minimum = 1.0, .maximum = 65535.0, .step = 1.0, .format = L"%.0f"};

constexpr UINT kLogonControls[] = {IDC_SMTP_USER_NAME_LABEL, IDC_SMTP_PASSWORD_LABEL, IDC_SMTP_USER_NAME,
                                   IDC_SMTP_PASSWORD, IDC_SMTP_SECURE};

}  // namespace

INT_PTR CDlgSMTP::Run(HWND owner) noexcept {
    return DoModal(IDD_SMTP, owner);
}

void CDlgSMTP::OnInitDialog() {
    const NoChangeByUser opening(*this);
    Load();
}

void CDlgSMTP::Load() {
    auto& email = settings->Email;
    m_address.Bind(*this, IDC_SMTP_ADDRESS, email.SMTP.Address);
    m_portNumber = email.SMTP.Port;
    m_port.Bind(*this, IDC_SMTP_PORT, m_portNumber, kPort);
    m_authentication.Bind(*this, IDC_SMTP_AUTHENTICATION, email.SMTP.RequiresAuthentication,
                          {.ids = kLogonControls});
    m_authentication.Show();
    m_userName.Bind(*this, IDC_SMTP_USER_NAME, email.SMTP.UserName);
    m_password.Bind(*this, IDC_SMTP_PASSWORD, email.SMTP.Password);
    m_secure.Bind(*this, IDC_SMTP_SECURE, email.STMP.UseSSL);
    m_secure.Show();
    m_secure.SetNextFocus(m_address.Handle());
}

void CDlgSMTP::Store() {
    m_authentication.Store();
    m_secure.Store();
    m_address.Store();
    m_userName.Store();
    m_password.Store();
    m_port.Store();
    settings->Email.SMTP.Port = TruncateToInt32(m_portNumber);
}

bool CDlgSMTP::OnCommand(Command command) {
    if (command.code != BN_CLICKED || (command.id != IDOK && command.id != IDCANCEL)) return false;
    if (command.id == IDOK) AllOrNothing(*settings, [this] { Store(); });
    EndDialog(Handle(), static_cast<INT_PTR>(command.id));
    return true;
}

}  // namespace vmk
