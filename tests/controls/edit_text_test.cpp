#include "controls/edit_text.h"

#include <optional>

#include "tests/controls/live_page.h"

namespace vmk::test {
namespace {

class BoundEditText : public ControlTest {
  protected:
    void Open(const std::wstring& stored) {
        field = stored;
        password = stored;
        edit.emplace();
        passwordEdit.emplace();
        ControlTest::Open(IDD_TEST_EDIT_TEXT, [&](TestPage& bound) {
            edit->Bind(bound, IDC_TEST_SUBJECT, field);
            passwordEdit->Bind(bound, IDC_TEST_LAST_STOP, password);
        });
    }

    std::wstring field;
    std::wstring password;
    std::optional<CMyEditText> edit;
    std::optional<CMyEditText> passwordEdit;
};

TEST_F(BoundEditText, ShowsTheField) {
    for (const wchar_t* const stored : {L"", L"text", L"  blanks & more  "}) {
        Open(stored);
        EXPECT_EQ(Text(), stored);
        EXPECT_EQ(Text(IDC_TEST_LAST_STOP), stored);
    }
}

TEST_F(BoundEditText, TypingEnablesApplyAndLeavesTheFieldToTheStore) {
    Open(L"");
    Focus();
    PressKey('A');
    EXPECT_TRUE(Until([&] { return Text() == L"a"; }));
    EXPECT_TRUE(IsApplyEnabled());
    EXPECT_EQ(field, L"");
    edit->Store();
    EXPECT_EQ(field, L"a");
}

TEST_F(BoundEditText, StoresTheTextOnScreenWithoutTheBoxBeingLeft) {
    Open(L"before");
    Focus();
    EnterText(L"after");
    edit->Store();
    EXPECT_EQ(field, L"after");
    EnterText(L"");
    edit->Store();
    EXPECT_EQ(field, L"");
}

TEST_F(BoundEditText, StoresTextsOfAnyLengthWhole) {
    const std::wstring longText(100'000, L'x');
    Open(longText);
    field.clear();
    edit->Store();
    EXPECT_EQ(field, longText);
}

TEST_F(BoundEditText, TakesTextsOfAnyLengthFromTheUser) {
    const std::wstring longText(100'000, L'x');
    Open(L"");
    EnterText(longText);
    edit->Store();
    EXPECT_TRUE(field == longText) << field.size();
}

TEST_F(BoundEditText, APasswordBoxStoresWhatIsTyped) {
    Open(L"old secret");
    EnterText(L"new secret", IDC_TEST_LAST_STOP);
    EXPECT_TRUE(IsApplyEnabled());
    passwordEdit->Store();
    EXPECT_EQ(password, L"new secret");
}

}  // namespace
}  // namespace vmk::test
