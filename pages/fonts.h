#pragma once

#include "pages/page.h"

namespace vmk {

// Chooses which fonts are embedded.
class CDlgFonts final : public CPage {
  public:
    CDlgFonts();

  private:
    void LoadPage() override;
    void StorePage() override;
};

}  // namespace vmk
