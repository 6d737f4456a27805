#pragma once

#include "pages/page.h"

namespace vmk {

// Switches encryption on and sets passwords and permissions.
class CDlgSecurity final : public CPage {
  public:
    CDlgSecurity();

  private:
    void LoadPage() override;
    void StorePage() override;
};

}  // namespace vmk
