#pragma once

#include "pages/page.h"

namespace vmk {

// Chooses where the file goes and what happens to it.
class CDlgSave final : public CPage {
  public:
    CDlgSave();

  private:
    void LoadPage() override;
    void StorePage() override;
};

}  // namespace vmk
