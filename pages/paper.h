#pragma once

#include <cstdint>

#include "controls/combobox.h"
#include "pages/page.h"

namespace vmk {

// Chooses how many pages a sheet holds and in which order. The order is chosen from one of three lists that
// lie on top of one another, because the same number means another order for two pages than for more.
class CDlgPaper final : public CPage {
  public:
    CDlgPaper();

  private:
    void LoadPage() override;
    void StorePage() override;
    bool OnCommand(Command command) override;

    // The list that offers the orders of so many pages; null when there is nothing to order.
    CMyCombobox* OrderListFor(std::int32_t count);
    void ShowOrder(std::int32_t count, std::int32_t order);

    CMyCombobox m_count;
    CMyCombobox m_noOrder;
    CMyCombobox m_orderOfTwo;
    CMyCombobox m_orderOfMore;
};

}  // namespace vmk
