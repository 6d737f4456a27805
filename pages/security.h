#pragma once

#include <cstdint>

#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/edit_text.h"
#include "pages/page.h"
#include "pages/security_panels.h"

namespace vmk {

// Switches encryption on, sets the two passwords and the encryption level, and shows the permissions that the
// level knows.
class CDlgSecurity final : public CPage {
  public:
    CDlgSecurity();

  private:
    void LoadPage() override;
    void StorePage() override;
    bool OnCommand(Command command) override;

    void BindControls();
    void ShowUse(std::int32_t level);
    void ShowPermissions(bool of40Bits);
    void OnUseClicked();
    void OnLevelSelected();

    CMyCheckbox m_use;
    CMyCheckbox m_useUserPassword;
    CMyCheckbox m_useOwnerPassword;
    CMyEditText m_userPassword;
    CMyEditText m_ownerPassword;
    CMyCombobox m_level;

    // Whether a password is wanted is no setting of its own: a stored password says so.
    std::int32_t m_hasUserPassword = 0;
    std::int32_t m_hasOwnerPassword = 0;

    CDlgSec40 m_panel40;
    CDlgSec128 m_panel128;
};

}  // namespace vmk
