#pragma once

#include "pages/page.h"

namespace vmk {

// Chooses what becomes a link and how links look.
class CDlgLinks final : public CPage {
  public:
    CDlgLinks();

  private:
    void LoadPage() override;
    void StorePage() override;
};

}  // namespace vmk
