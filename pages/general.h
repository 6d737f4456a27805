#pragma once

#include "pages/page.h"

namespace vmk {

// Chooses the PDF version and how a viewer opens the document.
class CDlgGeneral final : public CPage {
  public:
    CDlgGeneral();

  private:
    void LoadPage() override;
    void StorePage() override;
};

}  // namespace vmk
