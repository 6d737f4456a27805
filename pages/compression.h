#pragma once

#include "pages/page.h"

namespace vmk {

// Chooses what is compressed and how.
class CDlgCompression final : public CPage {
  public:
    CDlgCompression();

  private:
    void LoadPage() override;
    void StorePage() override;
};

}  // namespace vmk
