#pragma once

#include "pages/page.h"

namespace vmk {

// Sets up the digital signature of the document.
class CDlgDigSign final : public CPage {
  public:
    CDlgDigSign();

  private:
    void LoadPage() override;
    void StorePage() override;
};

}  // namespace vmk
