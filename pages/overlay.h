#pragma once

#include "pages/page.h"

namespace vmk {

// Lays the pages of an existing PDF file over the document.
class CDlgOverlay final : public CPage {
  public:
    CDlgOverlay();

  private:
    void LoadPage() override;
    void StorePage() override;
};

}  // namespace vmk
