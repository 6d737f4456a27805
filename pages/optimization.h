#pragma once

#include "pages/page.h"

namespace vmk {

// Tunes blending, work-arounds and the use of memory.
class CDlgOptimization final : public CPage {
  public:
    CDlgOptimization();

  private:
    void LoadPage() override;
    void StorePage() override;
};

}  // namespace vmk
