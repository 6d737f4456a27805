#include "pages/security.h"

#include "resources/ids/security.h"

namespace vmk {
namespace {

constexpr std::int32_t k40Bits = 40;
constexpr std::int32_t k128Bits = 128;

constexpr ComboItem kLevels[] = {
    {k40Bits, L"40-bit RC4 (Acrobat 3.x, 4.x)"},
    {k128Bits, L"128-bit RC4 (Acrobat 5.x and above)"},
};

constexpr UINT kUsed[] = {
    IDC_SECURITY_PASSWORDS_GROUP,      IDC_SECURITY_USER_PASSWORD_LABEL,
    IDC_SECURITY_OWNER_PASSWORD_LABEL, IDC_SECURITY_PERMISSIONS_GROUP,
    IDC_SECURITY_LEVEL_LABEL,          IDC_SECURITY_USE_USER_PASSWORD,
    IDC_SECURITY_USER_PASSWORD,        IDC_SECURITY_USE_OWNER_PASSWORD,
    IDC_SECURITY_OWNER_PASSWORD,       IDC_SECURITY_LEVEL,
};
constexpr UINT kUserPassword[] = {IDC_SECURITY_USER_PASSWORD_LABEL, IDC_SECURITY_USER_PASSWORD};
constexpr UINT kOwnerPassword[] = {IDC_SECURITY_OWNER_PASSWORD_LABEL, IDC_SECURITY_OWNER_PASSWORD};

}  // namespace

CDlgSecurity::CDlgSecurity() : CPage(IDD_SECURITY) {}

void CDlgSecurity::LoadPage() {
    m_hasUserPassword = settings->Security.UserPwd.empty() ? 0 : 1;
    m_hasOwnerPassword = settings->Security.OwnerPwd.empty() ? 0 : 1;
    m_panel40.CreatePanel(*this, Item(IDC_SECURITY_PANELS));
    m_panel128.CreatePanel(*this, Item(IDC_SECURITY_PANELS));
    BindControls();
    m_use.Show();
    ShowUse(settings->Security.Level);
}

void CDlgSecurity::BindControls() {
    m_use.Bind(*this, IDC_SECURITY_USE, settings->Security.Use, {.ids = kUsed});
    m_useUserPassword.Bind(*this, IDC_SECURITY_USE_USER_PASSWORD, m_hasUserPassword, {.ids = kUserPassword});
    m_useUserPassword.ShowCheckOnly();
    m_useOwnerPassword.Bind(*this, IDC_SECURITY_USE_OWNER_PASSWORD, m_hasOwnerPassword,
                            {.ids = kOwnerPassword});
    m_useOwnerPassword.ShowCheckOnly();
    m_userPassword.Bind(*this, IDC_SECURITY_USER_PASSWORD, settings->Security.UserPwd);
    m_ownerPassword.Bind(*this, IDC_SECURITY_OWNER_PASSWORD, settings->Security.OwnerPwd);
    m_level.Bind(*this, IDC_SECURITY_LEVEL, settings->Security.Level, kLevels);
    m_level.Show();
}

void CDlgSecurity::StorePage() {
    m_use.Store();
    m_useUserPassword.Store();
    m_useOwnerPassword.Store();
    // A password that is not required is kept nevertheless.
    m_userPassword.Store();
    m_ownerPassword.Store();
    m_level.Store();
    m_panel40.StorePanel();
    m_panel128.StorePanel();
}

bool CDlgSecurity::OnCommand(Command command) {
    if (command.id == IDC_SECURITY_USE && command.code == BN_CLICKED) {
        OnUseClicked();
        return true;
    }
    if (command.id == IDC_SECURITY_LEVEL && command.code == CBN_SELCHANGE) {
        OnLevelSelected();
        return true;
    }
    return false;
}

void CDlgSecurity::OnUseClicked() {
    m_use.ReapplyDependents();
    ShowUse(m_level.SelectedValue());
    EnableApply();
}

// What goes beyond the enabling of the dependents when security is switched on or off: the panels are hidden
// together with their container and keep their own state.
void CDlgSecurity::ShowUse(std::int32_t level) {
    const bool used = m_use.IsChecked();
    ShowItem(IDC_SECURITY_PANELS, used);
    if (!used) return;
    m_useUserPassword.ReapplyDependents();
    m_useOwnerPassword.ReapplyDependents();
    ShowPermissions(level == k40Bits);
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

}  // namespace vmk
