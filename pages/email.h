#pragma once

#include "pages/page.h"

namespace vmk {

// Chooses whether and how the document is sent by e-mail.
class CDlgEMail final : public CPage {
  public:
    CDlgEMail();

  private:
    void LoadPage() override;
    void StorePage() override;
};

}  // namespace vmk
