#include "resources/ids/paper.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "resources/ids/main.h"
#include "tests/support/language_folder.h"
#include "tests/support/page_fixture.h"
#include "tests/support/sent_messages.h"

namespace vmk::test {
namespace {

using Texts = std::vector<std::wstring>;

const std::vector<UINT> kOrderLists = {IDC_PAPER_NO_ORDER, IDC_PAPER_ORDER_OF_TWO, IDC_PAPER_ORDER_OF_MORE};

// The Paper page, opened on what the settings hold.
class PaperPage : public PageTest {
  protected:
    PaperPage() : PageTest(page_bit::kPaper) {}

    void Open(int count, int order, LANGID language = kEnglish) {
        settings.SetNumber("Paper.Nup", count);
        settings.SetNumber("Paper.NupOrder", order);
        OpenOn(settings, language);
    }

    std::vector<UINT> ShownOrderLists() const {
        std::vector<UINT> shown;
        for (const UINT id : kOrderLists)
            if (page.IsShown(id)) shown.push_back(id);
        return shown;
    }

    // What the record and, after OK, the settings key hold.
    void ExpectStored(int count, int order) {
        dialog->Apply();
        const PrinterSettings::PaperGroup record = dialog->Record().Paper;
        EXPECT_EQ(record.Nup, count);
        EXPECT_EQ(record.NupOrder, order);
        EXPECT_FALSE(dialog->IsApplyEnabled());
    }

    void MakeApplyEnabled() const { EnableWindow(dialog->Main().Control(IDC_MAIN_APPLY), TRUE); }
};

TEST_F(PaperPage, OffersItsCountsAndOrders) {
    Open(1, 0);
    EXPECT_EQ(page.Items(IDC_PAPER_COUNT),
              (Texts{L"1 page", L"2 pages", L"4 pages", L"8 pages", L"9 pages", L"16 pages"}));
    EXPECT_EQ(page.Items(IDC_PAPER_NO_ORDER), Texts{});
    EXPECT_EQ(page.Items(IDC_PAPER_ORDER_OF_TWO), (Texts{L"Left To Right", L"Right To Left"}));
    EXPECT_EQ(page.Items(IDC_PAPER_ORDER_OF_MORE),
              (Texts{L"Across From Left", L"Down From Left", L"Across From Right", L"Down From Right"}));
    EXPECT_FALSE(dialog->IsApplyEnabled());
}

TEST_F(PaperPage, ShowsTheStoredCountAndOrder) {
    struct Case {
        int count;
        int order;
        std::wstring countText;
        std::vector<UINT> shown;
        std::wstring orderText;
    };
    const Case cases[] = {
        {1, 3, L"1 page", {}, L""},
        {2, 0, L"2 pages", {IDC_PAPER_ORDER_OF_TWO}, L"Left To Right"},
        {2, 1, L"2 pages", {IDC_PAPER_ORDER_OF_TWO}, L"Right To Left"},
        {4, 1, L"4 pages", {IDC_PAPER_ORDER_OF_MORE}, L"Down From Left"},
        {8, 2, L"8 pages", {IDC_PAPER_ORDER_OF_MORE}, L"Across From Right"},
        {9, 3, L"9 pages", {IDC_PAPER_ORDER_OF_MORE}, L"Down From Right"},
        {16, 0, L"16 pages", {IDC_PAPER_ORDER_OF_MORE}, L"Across From Left"},
    };
    for (const Case& expected : cases) {
        SCOPED_TRACE(expected.count);
        Open(expected.count, expected.order);
        EXPECT_EQ(page.Selected(IDC_PAPER_COUNT), expected.countText);
        EXPECT_EQ(ShownOrderLists(), expected.shown);
        for (const UINT list : expected.shown) EXPECT_EQ(page.Selected(list), expected.orderText);
    }
}

TEST_F(PaperPage, ASheetOfSixIsOrderedLikeTheLargerOnesThoughItIsNotOffered) {
    Open(6, 2);
    EXPECT_EQ(page.Selected(IDC_PAPER_COUNT), L"");
    EXPECT_EQ(ShownOrderLists(), std::vector<UINT>{IDC_PAPER_ORDER_OF_MORE});
    EXPECT_EQ(page.Selected(IDC_PAPER_ORDER_OF_MORE), L"Across From Right");
}

TEST_F(PaperPage, AnUnknownCountLeavesTheOrderListsVisibleOnTopOfOneAnother) {
    for (const int count : {3, 0, -1, 32}) {
        SCOPED_TRACE(count);
        Open(count, 1);
        EXPECT_EQ(page.Selected(IDC_PAPER_COUNT), L"");
        EXPECT_EQ(ShownOrderLists(), kOrderLists);
        RECT first{};
        GetWindowRect(page.Control(IDC_PAPER_NO_ORDER), &first);
        for (const UINT id : kOrderLists) {
            EXPECT_EQ(page.Selected(id), L"");
            EXPECT_TRUE(page.IsEnabled(id));
            RECT rect{};
            GetWindowRect(page.Control(id), &rect);
            EXPECT_TRUE(EqualRect(&rect, &first));
        }
    }
}

TEST_F(PaperPage, AnUnknownCountIsStoredAsMinusOneAndKeepsItsOrder) {
    for (const int count : {3, 6}) {
        Open(count, 2);
        MakeApplyEnabled();
        ExpectStored(-1, 2);
    }
}

TEST_F(PaperPage, ACountChosenAfterAnUnknownOneBringsTheListsInOrder) {
    Open(3, 1);
    ASSERT_TRUE(page.Choose(IDC_PAPER_COUNT, L"9 pages"));
    EXPECT_EQ(ShownOrderLists(), std::vector<UINT>{IDC_PAPER_ORDER_OF_MORE});
    ExpectStored(9, 0);
    ASSERT_TRUE(page.Choose(IDC_PAPER_COUNT, L"1 page"));
    EXPECT_EQ(ShownOrderLists(), std::vector<UINT>{});
}

TEST_F(PaperPage, EveryCountStoresItsOwnNumberAndOffersItsOrders) {
    const std::vector<UINT> none;
    const std::vector<UINT> two = {IDC_PAPER_ORDER_OF_TWO};
    const std::vector<UINT> more = {IDC_PAPER_ORDER_OF_MORE};
    const std::tuple<std::wstring, int, std::vector<UINT>> cases[] = {
        {L"2 pages", 2, two},  {L"4 pages", 4, more},   {L"8 pages", 8, more},
        {L"9 pages", 9, more}, {L"16 pages", 16, more}, {L"1 page", 1, none},
    };
    Open(1, 0);
    for (const auto& [text, count, shown] : cases) {
        ASSERT_TRUE(page.Choose(IDC_PAPER_COUNT, text));
        EXPECT_EQ(ShownOrderLists(), shown) << count;
        EXPECT_TRUE(dialog->IsApplyEnabled());
        ExpectStored(count, 0);
    }
}

TEST_F(PaperPage, EveryOrderStoresItsPositionInTheVisibleList) {
    for (const auto& [count, list] :
         {std::pair<int, UINT>(2, IDC_PAPER_ORDER_OF_TWO), {8, IDC_PAPER_ORDER_OF_MORE}}) {
        Open(count, 0);
        int order = 0;
        for (const std::wstring& text : page.Items(list)) {
            ASSERT_TRUE(page.Choose(list, text));
            EXPECT_TRUE(dialog->IsApplyEnabled());
            ExpectStored(count, order++);
        }
    }
}

TEST_F(PaperPage, TheListThatAnotherCountSharesIsNotHiddenMeanwhile) {
    Open(4, 0);
    const SentMessages showing(WM_SHOWWINDOW, GetWindowThreadProcessId(page.Handle(), nullptr));
    const auto timesHidden = [&] {
        return std::ranges::count(showing.To(IDC_PAPER_ORDER_OF_MORE), WPARAM{FALSE});
    };
    ASSERT_TRUE(page.Choose(IDC_PAPER_COUNT, L"8 pages"));
    EXPECT_EQ(timesHidden(), 0);
    ASSERT_TRUE(page.Choose(IDC_PAPER_COUNT, L"2 pages"));
    EXPECT_EQ(timesHidden(), 1);
}

TEST_F(PaperPage, AnotherCountStartsWithTheFirstOrder) {
    Open(4, 3);
    EXPECT_EQ(page.Selected(IDC_PAPER_ORDER_OF_MORE), L"Down From Right");
    ASSERT_TRUE(page.Choose(IDC_PAPER_COUNT, L"8 pages"));
    EXPECT_EQ(page.Selected(IDC_PAPER_ORDER_OF_MORE), L"Across From Left");
    ASSERT_TRUE(page.Choose(IDC_PAPER_ORDER_OF_MORE, L"Down From Right"));
    ASSERT_TRUE(page.Choose(IDC_PAPER_COUNT, L"2 pages"));
    EXPECT_EQ(page.Selected(IDC_PAPER_ORDER_OF_TWO), L"Left To Right");
    ASSERT_TRUE(page.Choose(IDC_PAPER_ORDER_OF_TWO, L"Right To Left"));
    ASSERT_TRUE(page.Choose(IDC_PAPER_COUNT, L"8 pages"));
    ExpectStored(8, 0);
}

TEST_F(PaperPage, OnePageKeepsTheStoredOrder) {
    Open(4, 3);
    ASSERT_TRUE(page.Choose(IDC_PAPER_COUNT, L"1 page"));
    ExpectStored(1, 3);
}

TEST_F(PaperPage, AnOrderThatTwoPagesDoNotHaveShowsNoSelectionAndIsStoredAsMinusOne) {
    Open(2, 3);
    EXPECT_EQ(page.Selected(IDC_PAPER_COUNT), L"2 pages");
    EXPECT_TRUE(page.IsShown(IDC_PAPER_ORDER_OF_TWO));
    EXPECT_EQ(page.Selected(IDC_PAPER_ORDER_OF_TWO), L"");
    MakeApplyEnabled();
    ExpectStored(2, -1);
}

TEST_F(PaperPage, TabAndEnterInAnOrderListGoBackToTheCount) {
    for (const auto& [count, list] :
         {std::pair<int, UINT>(2, IDC_PAPER_ORDER_OF_TWO), {16, IDC_PAPER_ORDER_OF_MORE}}) {
        Open(count, 0);
        for (const WORD key : {WORD{VK_TAB}, WORD{VK_RETURN}}) {
            page.Focus(list);
            ASSERT_TRUE(FocusReaches(list));
            dialog->PressKey(key);
            EXPECT_TRUE(FocusReaches(IDC_PAPER_COUNT)) << key;
        }
    }
}

TEST_F(PaperPage, TabInTheCountGoesToTheVisibleOrderList) {
    Open(2, 0);
    page.Focus(IDC_PAPER_COUNT);
    dialog->PressKey(VK_TAB);
    EXPECT_TRUE(FocusReaches(IDC_PAPER_ORDER_OF_TWO));
}

TEST_F(PaperPage, TheArrowKeysChooseACount) {
    Open(1, 0);
    page.Focus(IDC_PAPER_COUNT);
    dialog->PressKey(VK_DOWN);
    EXPECT_TRUE(WaitUntil([&] { return page.IsShown(IDC_PAPER_ORDER_OF_TWO); }));
    EXPECT_EQ(page.Selected(IDC_PAPER_COUNT), L"2 pages");
    EXPECT_TRUE(dialog->IsApplyEnabled());
}

TEST_F(PaperPage, OkStoresAndCancelDoesNot) {
    Open(1, 0);
    page.Choose(IDC_PAPER_COUNT, L"4 pages");
    page.Choose(IDC_PAPER_ORDER_OF_MORE, L"Across From Right");
    EXPECT_EQ(dialog->Ok(), IDOK);
    EXPECT_EQ(dialog->Record().Paper.Nup, 4);
    EXPECT_EQ(dialog->Record().Paper.NupOrder, 2);

    Open(1, 0);
    page.Choose(IDC_PAPER_COUNT, L"2 pages");
    dialog->Apply();
    page.Choose(IDC_PAPER_COUNT, L"4 pages");
    EXPECT_EQ(dialog->Cancel(), IDCANCEL);
    EXPECT_EQ(dialog->Record().Paper.Nup, 2);
}

TEST_F(PaperPage, OkWithoutAChangeKeepsValuesThatNoListOffers) {
    Open(3, 7);
    EXPECT_EQ(dialog->Ok(), IDOK);
    EXPECT_EQ(dialog->Record().Paper.Nup, 3);
    EXPECT_EQ(dialog->Record().Paper.NupOrder, 7);
}

TEST_F(PaperPage, TranslatedItemsStoreTheSameNumbers) {
    const LanguageFolder german({{L"4 pages", L"4 Seiten"}, {L"Down From Left", L"Spaltenweise"}});
    Open(1, 0, kGerman);
    EXPECT_EQ(page.Items(IDC_PAPER_COUNT)[2], L"4 Seiten");
    ASSERT_TRUE(page.Choose(IDC_PAPER_COUNT, L"4 Seiten"));
    ASSERT_TRUE(page.Choose(IDC_PAPER_ORDER_OF_MORE, L"Spaltenweise"));
    ExpectStored(4, 1);
}

TEST_F(PaperPage, OfOrdersWithTheSameTranslationTheFirstIsStored) {
    const LanguageFolder german({{L"Across From Right", L"Rechts"}, {L"Down From Right", L"Rechts"}});
    Open(4, 3, kGerman);
    EXPECT_EQ(page.Selected(IDC_PAPER_ORDER_OF_MORE), L"Rechts");
    MakeApplyEnabled();
    ExpectStored(4, 2);
}

}  // namespace
}  // namespace vmk::test
