#pragma once

#include "pages/page.h"

namespace vmk {

// Chooses how images are downsampled and converted.
class CDlgGraphics final : public CPage {
  public:
    CDlgGraphics();

  private:
    void LoadPage() override;
    void StorePage() override;
};

}  // namespace vmk
