#pragma once

#include "controls/checkbox.h"
#include "pages/page.h"

namespace vmk {

// Switches the printing of watermarks on or off.
class CDlgWatermarks final : public CPage {
  public:
    CDlgWatermarks();

  private:
    void LoadPage() override;
    void StorePage() override;

    CMyCheckbox m_print;
};

}  // namespace vmk
