#pragma once

#include "pages/page.h"

namespace vmk {

// Chooses how many pages a sheet holds and in which order.
class CDlgPaper final : public CPage {
  public:
    CDlgPaper();

  private:
    void LoadPage() override;
    void StorePage() override;
};

}  // namespace vmk
