#pragma once

#include "pages/page.h"

namespace vmk {

// Edits the texts that describe the document.
class CDlgDocInfo final : public CPage {
  public:
    CDlgDocInfo();

  private:
    void LoadPage() override;
    void StorePage() override;
};

}  // namespace vmk
