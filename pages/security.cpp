#include "resources/ids/security.h"

#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/edit_text.h"
#include "pages/page.h"
#include "pages/pages.h"
#include "pages/security_panels.h"

namespace vmk {
namespace {

constexpr UINT kUsed[] = {
    IDC_SECURITY_PASSWORDS_GROUP,      IDC_SECURITY_USER_PASSWORD_LABEL,
    IDC_SECURITY_OWNER_PASSWORD_LABEL, IDC_SECURITY_PERMISSIONS_GROUP,
    IDC_SECURITY_LEVEL_LABEL,          IDC_SECURITY_USE_USER_PASSWORD,
    IDC_SECURITY_USER_PASSWORD,        IDC_SECURITY_USE_OWNER_PASSWORD,
    IDC_SECURITY_OWNER_PASSWORD,       IDC_SECURITY_LEVEL,
};
constexpr UINT kUserPassword[] = {IDC_SECURITY_USER_PASSWORD_LABEL, IDC_SECURITY_USER_PASSWORD};
constexpr UINT kOwnerPassword[] = {IDC_SECURITY_OWNER_PASSWORD_LABEL, IDC_SECURITY_OWNER_PASSWORD};

class CDlgSecurity final : public PageFrom<IDD_SECURITY> {
    void LoadPage() override;
    void StorePage() override;
    bool OnCommand(Command command) override;

    void ShowUse(std::int32_t level);
    void ShowPermissions(bool of40Bits);
    void OnLevelSelected();

    CMyCheckbox m_use;
    CMyCheckbox m_useUserPassword;
    CMyCheckbox m_useOwnerPassword;
    CMyEditText m_userPassword;
    CMyEditText m_ownerPassword;
    CMyCombobox m_level;

    // Whether a password is wanted is no setting of its own: a stored password says so. One that is not
    // wanted is kept nevertheless.
    std::int32_t m_hasUserPassword = 0;
    std::int32_t m_hasOwnerPassword = 0;

    CDlgSec40 m_panel40;
    CDlgSec128 m_panel128;
};

void CDlgSecurity::LoadPage() {
    auto& security = settings->Security;
    m_hasUserPassword = security.UserPwd.empty() ? 0 : 1;
    m_hasOwnerPassword = security.OwnerPwd.empty() ? 0 : 1;
    m_panel40.CreatePanel(IDD_SECURITY_40, *this, Item(IDC_SECURITY_PANELS));
    m_panel128.CreatePanel(IDD_SECURITY_128, *this, Item(IDC_SECURITY_PANELS));
    m_use.Bind(*this, IDC_SECURITY_USE, security.Use, {.ids = kUsed});
    m_useUserPassword.Bind(*this, IDC_SECURITY_USE_USER_PASSWORD, m_hasUserPassword, {.ids = kUserPassword});
    m_useOwnerPassword.Bind(*this, IDC_SECURITY_USE_OWNER_PASSWORD, m_hasOwnerPassword,
                            {.ids = kOwnerPassword});
    m_userPassword.Bind(*this, IDC_SECURITY_USER_PASSWORD, security.UserPwd);
    m_ownerPassword.Bind(*this, IDC_SECURITY_OWNER_PASSWORD, security.OwnerPwd);
    m_level.Bind(*this, IDC_SECURITY_LEVEL, security.Level, ChoicesOf("Security.Level"));
    ShowUse(security.Level);
}

// The panels are dialogs of their own, with values of their own.
void CDlgSecurity::StorePage() {
    StoreValues();
    m_panel40.StorePanel();
    m_panel128.StorePanel();
}

bool CDlgSecurity::OnCommand(Command command) {
    if (command.id == IDC_SECURITY_USE && command.code == BN_CLICKED) {
        ShowUse(m_level.SelectedValue());
        return false;
    }
    if (command.id == IDC_SECURITY_LEVEL && command.code == CBN_SELCHANGE) {
        OnLevelSelected();
        return true;
    }
    return false;
}

// What goes beyond the enabling of the dependents when security is switched on or off: the panels are hidden
// together with their container and keep their own state.
void CDlgSecurity::ShowUse(std::int32_t level) {
    const bool used = m_use.IsChecked();
    ShowItem(IDC_SECURITY_PANELS, used);
    if (used) ShowPermissions(level == choices::k40Bits);
}

void CDlgSecurity::ShowPermissions(bool of40Bits) {
    m_panel40.ShowPanel(of40Bits);
    m_panel128.ShowPanel(!of40Bits);
}

// The position counts here, not the value. The change alone does not enable Apply: the level is stored along
// with the next change of anything else.
void CDlgSecurity::OnLevelSelected() {
    const int position = m_level.SelectedPosition();
    if (position == 0) ShowPermissions(true);
    if (position == 1) ShowPermissions(false);
}

}  // namespace

std::unique_ptr<PageWindow> MakeSecurityPage() {
    return std::make_unique<CDlgSecurity>();
}

}  // namespace vmk
