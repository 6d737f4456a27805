#include <optional>

#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/radio_button.h"
#include "tests/controls/live_page.h"

namespace vmk::test {
namespace {

constexpr UINT kOuterControls[] = {IDC_TEST_INNER, IDC_TEST_LIST, IDC_TEST_DEPENDENT_EDIT};
constexpr UINT kInnerControls[] = {IDC_TEST_LIST, IDC_TEST_DEPENDENT_EDIT};
constexpr UINT kEdit[] = {IDC_TEST_DEPENDENT_EDIT};
constexpr std::int32_t kEditable[] = {1};
constexpr std::int32_t kNotEditable[] = {0};
constexpr ComboRule kListRules[] = {
    {.ids = kEdit, .values = kEditable, .enable = true},
    {.ids = kEdit, .values = kNotEditable, .enable = false},
};
constexpr Choice kChoices[] = {{0, L"None"}, {1, L"Some"}};

using Ids = std::vector<UINT>;

// A check box that switches another one, which switches a list, which switches an edit box.
class DependentsWithDependents : public ControlTest {
  protected:
    struct Stored {
        std::int32_t outer = 1;
        std::int32_t inner = 1;
        std::int32_t choice = 1;
    };

    void Open(const Stored& values, const Dependents& ofOuter = {.ids = kOuterControls}) {
        stored = values;
        outer.emplace();
        inner.emplace();
        list.emplace();
        ControlTest::Open(IDD_TEST_DEPENDENTS, [&, ofOuter](TestPage& bound) {
            outer->Bind(bound, IDC_TEST_SUBJECT, stored.outer, ofOuter);
            inner->Bind(bound, IDC_TEST_INNER, stored.inner, {.ids = kInnerControls});
            list->Bind(bound, IDC_TEST_LIST, stored.choice, kChoices, kListRules);
        });
    }
    Ids Enabled() const {
        return ControlTest::Enabled({IDC_TEST_INNER, IDC_TEST_LIST, IDC_TEST_DEPENDENT_EDIT});
    }
    void Click(UINT id = IDC_TEST_SUBJECT) const { SendMessageW(Control(id), BM_CLICK, 0, 0); }

    Stored stored;
    std::optional<CMyCheckbox> outer;
    std::optional<CMyCheckbox> inner;
    std::optional<CMyCombobox> list;
};

const Ids kAll = {IDC_TEST_INNER, IDC_TEST_LIST, IDC_TEST_DEPENDENT_EDIT};

TEST_F(DependentsWithDependents, AreAsTheLastOfTheChainSaysWhenThePageOpens) {
    Open({});
    EXPECT_EQ(Enabled(), kAll);
    Open({.choice = 0});
    EXPECT_EQ(Enabled(), (Ids{IDC_TEST_INNER, IDC_TEST_LIST}));
    Open({.inner = 0});
    EXPECT_EQ(Enabled(), Ids{IDC_TEST_INNER});
}

TEST_F(DependentsWithDependents, StayOffWhileTheFirstOfTheChainIsOff) {
    Open({.outer = 0});
    EXPECT_EQ(Enabled(), Ids{});
}

TEST_F(DependentsWithDependents, AreSwitchedOnByTheWholeChain) {
    Open({.outer = 0, .choice = 0});
    Click();
    EXPECT_EQ(Enabled(), (Ids{IDC_TEST_INNER, IDC_TEST_LIST}));
    Click();
    EXPECT_EQ(Enabled(), Ids{});
    Open({.outer = 0, .inner = 0});
    Click();
    EXPECT_EQ(Enabled(), Ids{IDC_TEST_INNER});
    Click(IDC_TEST_INNER);
    EXPECT_EQ(Enabled(), kAll);
}

TEST_F(DependentsWithDependents, StayAsTheyAreAtAStoredOffThatOnlyAClickSwitches) {
    Open({.outer = 0}, {.ids = kOuterControls, .offByClickOnly = true});
    EXPECT_EQ(Enabled(), kAll);
    Click();
    Click();
    EXPECT_EQ(Enabled(), Ids{});
}

TEST_F(DependentsWithDependents, OfARadioButtonAreSwitchedWithoutTheirOwn) {
    CMyRadioButton radio;
    CMyCombobox rules;
    std::int32_t chosen = 0;
    std::int32_t choice = 0;
    ControlTest::Open(IDD_TEST_DEPENDENTS, [&](TestPage& bound) {
        rules.Bind(bound, IDC_TEST_LIST, choice, kChoices, kListRules);
        radio.Bind(bound, IDC_TEST_OTHER_RADIO, chosen,
                   {.value = 1, .dependents = {.ids = kInnerControls, .enabledWhenOn = false}});
    });
    EXPECT_EQ(Enabled(), (Ids{IDC_TEST_INNER, IDC_TEST_LIST}));
    Click(IDC_TEST_OTHER_RADIO);
    EXPECT_EQ(Enabled(), kAll);
    Close();
}

// What a page stores: its values, in the order of binding.
class ValuesOfAPage : public ControlTest {
  protected:
    void Open(const std::function<void(TestPage&)>& bind) { ControlTest::Open(IDD_TEST_DEPENDENTS, bind); }
};

TEST_F(ValuesOfAPage, AreStoredInTheOrderOfBinding) {
    std::int32_t field = 0;
    CMyCheckbox first;
    CMyCheckbox second;
    Open([&](TestPage& bound) {
        first.Bind(bound, IDC_TEST_SUBJECT, field);
        second.BindBit(bound, IDC_TEST_INNER, field, 0x40);
    });
    first.SetCheck(true);
    second.SetCheck(true);
    page.StoreValues();
    EXPECT_EQ(field, 0x41);
    Close();
}

TEST_F(ValuesOfAPage, AreNoLongerStoredWhenTheyAreGone) {
    std::int32_t field = 0;
    {
        CMyCheckbox box;
        Open([&](TestPage& bound) { box.Bind(bound, IDC_TEST_SUBJECT, field); });
        box.SetCheck(true);
    }
    page.StoreValues();
    EXPECT_EQ(field, 0);
}

TEST_F(ValuesOfAPage, AreThoseOfTheWindowThatIsThere) {
    std::int32_t before = 0;
    std::int32_t now = 0;
    CMyCheckbox box;
    CMyCheckbox other;
    Open([&](TestPage& bound) { box.Bind(bound, IDC_TEST_SUBJECT, before); });
    Open([&](TestPage& bound) { other.Bind(bound, IDC_TEST_SUBJECT, now); });
    other.SetCheck(true);
    before = 7;
    page.StoreValues();
    EXPECT_EQ(before, 7);
    EXPECT_EQ(now, 1);
    Close();
}

// Controls that share a field.
class PartsOfAField : public ControlTest {
  protected:
    ~PartsOfAField() override { Close(); }

    static constexpr Choice kKinds[] = {{0, L"none"}, {0x10, L"first"}, {0x20, L"second"}};

    void Open(std::int32_t stored) {
        field = stored;
        box.emplace();
        list.emplace();
        ControlTest::Open(IDD_TEST_DEPENDENTS, [&](TestPage& bound) {
            box->BindBit(bound, IDC_TEST_SUBJECT, field, 0x100);
            list->BindBits(bound, IDC_TEST_LIST, field, 0x30, kKinds);
        });
    }

    std::int32_t field = 0;
    std::optional<CMyCheckbox> box;
    std::optional<CMyCombobox> list;
};

TEST_F(PartsOfAField, ShowTheirOwnBits) {
    Open(0x8110);
    EXPECT_TRUE(box->IsChecked());
    EXPECT_EQ(list->SelectedValue(), 0x10);
    Open(0x8020);
    EXPECT_FALSE(box->IsChecked());
    EXPECT_EQ(list->SelectedValue(), 0x20);
}

TEST_F(PartsOfAField, StoreTheirOwnBitsAndLeaveTheOthers) {
    Open(0x8110);
    box->SetCheck(false);
    list->SelectByValue(0x20);
    page.StoreValues();
    EXPECT_EQ(field, 0x8020);
    box->SetCheck(true);
    list->SelectByValue(0);
    page.StoreValues();
    EXPECT_EQ(field, 0x8100);
}

TEST_F(PartsOfAField, KeepBitsThatNoChoiceStandsFor) {
    Open(0x30);
    EXPECT_EQ(list->SelectedValue(), CMyCombobox::kNoSelection);
    page.StoreValues();
    EXPECT_EQ(field, 0x30);
}

}  // namespace
}  // namespace vmk::test
