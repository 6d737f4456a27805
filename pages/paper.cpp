#include "pages/paper.h"

#include "resources/ids/paper.h"

namespace vmk {
namespace {

constexpr std::int32_t kOnePage = 1;
constexpr std::int32_t kFirstOrder = 0;

constexpr ComboItem kCounts[] = {
    {kOnePage, L"1 page"}, {2, L"2 pages"}, {4, L"4 pages"},
    {8, L"8 pages"},       {9, L"9 pages"}, {16, L"16 pages"},
};

constexpr ComboItem kOrdersOfTwo[] = {
    {kFirstOrder, L"Left To Right"},
    {1, L"Right To Left"},
};

constexpr ComboItem kOrdersOfMore[] = {
    {kFirstOrder, L"Across From Left"},
    {1, L"Down From Left"},
    {2, L"Across From Right"},
    {3, L"Down From Right"},
};

}  // namespace

CDlgPaper::CDlgPaper() : CPage(IDD_PAPER) {}

void CDlgPaper::LoadPage() {
    PrinterSettings::PaperGroup& paper = settings->Paper;
    m_count.Bind(*this, IDC_PAPER_COUNT, paper.Nup, kCounts);
    m_noOrder.Bind(*this, IDC_PAPER_NO_ORDER, paper.NupOrder, {});
    m_orderOfTwo.Bind(*this, IDC_PAPER_ORDER_OF_TWO, paper.NupOrder, kOrdersOfTwo);
    m_orderOfMore.Bind(*this, IDC_PAPER_ORDER_OF_MORE, paper.NupOrder, kOrdersOfMore);
    for (CMyCombobox* const list : {&m_noOrder, &m_orderOfTwo, &m_orderOfMore})
        list->SetNextFocus(m_count.Handle());

    m_count.Show();
    ShowOrder(paper.Nup, paper.NupOrder);
}

void CDlgPaper::StorePage() {
    m_count.Store();
    if (CMyCombobox* const list = OrderListFor(settings->Paper.Nup)) list->Store();
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
    if (!wanted && count != kOnePage) return;
    for (const CMyCombobox* const list : {&m_noOrder, &m_orderOfTwo, &m_orderOfMore}) {
        if (list != wanted) ShowWindow(list->Handle(), SW_HIDE);
    }
    if (!wanted) return;
    wanted->SelectByValue(order);
    ShowWindow(wanted->Handle(), SW_SHOWNA);
}

}  // namespace vmk
