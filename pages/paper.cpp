#include "resources/ids/paper.h"

#include "controls/combobox.h"
#include "pages/page.h"
#include "pages/pages.h"

namespace vmk {
namespace {

constexpr std::int32_t kFirstOrder = 0;

// The order is chosen from one of three lists that lie on top of one another, because the same number means
// another order for two pages than for more.
class CDlgPaper final : public PageFrom<IDD_PAPER> {
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
    std::int32_t m_order =
        CMyCombobox::kNoSelection;  // what all lists begin with; the page shows the one that counts
};

void CDlgPaper::LoadPage() {
    auto& paper = settings->Paper;
    m_count.Bind(*this, IDC_PAPER_COUNT, paper.Nup, ChoicesOf("Paper.Nup"));
    m_noOrder.Bind(*this, IDC_PAPER_NO_ORDER, m_order, {});
    m_orderOfTwo.Bind(*this, IDC_PAPER_ORDER_OF_TWO, m_order, choices::kOrdersOfTwo);
    m_orderOfMore.Bind(*this, IDC_PAPER_ORDER_OF_MORE, m_order, choices::kOrdersOfMore);
    for (CMyCombobox* const list : {&m_noOrder, &m_orderOfTwo, &m_orderOfMore})
        list->SetNextFocus(m_count.Handle());
    ShowOrder(paper.Nup, paper.NupOrder);
}

// Of the lists of orders only the one for the count has a say.
void CDlgPaper::StorePage() {
    m_count.Store();
    if (const CMyCombobox* const list = OrderListFor(settings->Paper.Nup))
        settings->Paper.NupOrder = list->SelectedValue();
}

bool CDlgPaper::OnCommand(Command command) {
    if (command.id != IDC_PAPER_COUNT || command.code != CBN_SELCHANGE) return false;
    // An order is not carried over, not even between counts that share a list.
    ShowOrder(m_count.SelectedValue(), kFirstOrder);
    EnableApply();
    return true;
}

CMyCombobox* CDlgPaper::OrderListFor(std::int32_t count) {
    switch (count) {
        case 2:
            return &m_orderOfTwo;
        case 4:
        case 6:  // not offered, but it may stand in the settings
        case 8:
        case 9:
        case 16:
            return &m_orderOfMore;
        default:
            return nullptr;
    }
}

// A count that is not known leaves all lists as the template made them.
void CDlgPaper::ShowOrder(std::int32_t count, std::int32_t order) {
    CMyCombobox* const wanted = OrderListFor(count);
    if (!wanted && count != choices::kOnePage) return;
    for (const CMyCombobox* const list : {&m_noOrder, &m_orderOfTwo, &m_orderOfMore}) {
        if (list != wanted) ShowWindow(list->Handle(), SW_HIDE);
    }
    if (!wanted) return;
    wanted->SelectByValue(order);
    ShowWindow(wanted->Handle(), SW_SHOWNA);
}

}  // namespace

std::unique_ptr<PageWindow> MakePaperPage() {
    return std::make_unique<CDlgPaper>();
}

}  // namespace vmk
