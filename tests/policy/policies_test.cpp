#include "tools/policy/policies.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <iterator>
#include <map>
#include <string>
#include <string_view>

#include "tests/settings/expected_settings.h"
#include "tools/policy/policy_definitions.h"
#include "tools/policy/registry_files.h"
#include "tools/policy/settings_list.h"
#include "tools/policy/text.h"
#include "tools/policy/translation.h"

namespace vmk::policy {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

TEST(Policies, EverySettingIsOneOrIsLeftOutForAReason) {
    std::map<std::string_view, int> rows;
    for (const PolicyName& policy : kPolicyNames) ++rows[policy.setting];
    for (const NoPolicy& none : kNoPolicies) {
        ++rows[none.setting];
        EXPECT_FALSE(none.reason.empty()) << none.setting;
    }
    for (const ExpectedSetting& setting : kExpectedSettings)
        EXPECT_EQ(rows[setting.name], 1) << setting.name << " belongs into one of the tables of policies.h";
    EXPECT_EQ(rows.size(), std::size(kExpectedSettings));
}

TEST(Policies, NoPasswordIsOneNorInAFileOfDefaults) {
    int passwords = 0;
    for (const ExpectedSetting& setting : kExpectedSettings) {
        const std::string_view name = setting.name;
        const bool isPassword = name.ends_with("Password") || name.ends_with("Pwd");
        EXPECT_EQ(IsPassword(name), isPassword) << name;
        passwords += isPassword;
        if (!isPassword) continue;
        const std::string attribute = "name=\"" + std::string(name) + "\"";
        EXPECT_THAT(PreferenceItems(PolicyKey(""), Defaults()), Not(HasSubstr(attribute)));
        EXPECT_THAT(PolicyDefinitions(PolicyKey("")), Not(HasSubstr("\"" + std::string(name) + "\"")));
    }
    EXPECT_EQ(passwords, 5);
    EXPECT_EQ(Defaults().size(), std::size(kExpectedSettings) - 5);
}

TEST(GermanPolicies, AreTranslatedAsAWholeWithoutATextTooMany) {
    const FromLanguageFiles german({VMK_GERMAN_TEXTS, VMK_GERMAN_POLICY_TEXTS});
    PolicyTexts(PolicyKey(""), german);
    EXPECT_THAT(german.Unused(1), IsEmpty()) << "tools/policy/german.txt";
    EXPECT_THAT(german.Repeated(1), IsEmpty()) << "languages/german.txt has it already";
}

TEST(GermanPolicies, AreRefusedWhereATextIsMissing) {
    const FromLanguageFiles dialogAlone({VMK_GERMAN_TEXTS});
    EXPECT_THROW(PolicyTexts(PolicyKey(""), dialogAlone), Refusal);
    EXPECT_THROW(FromLanguageFiles({"there is no such file"}), Refusal);
}

TEST(GermanPolicies, ReadAsNamesWithoutMarksOfKeysAndColons) {
    const FromLanguageFiles german({VMK_GERMAN_TEXTS, VMK_GERMAN_POLICY_TEXTS});
    EXPECT_EQ(german.Of(L"JPEG Quality:"), "JPEG-Qualität");
    EXPECT_EQ(german.Of(L"Compress Text"), "Text komprimieren");
    EXPECT_EQ(german.Of(L"Never"), "Nie");
}

TEST(Keys, AreThatOfTheSettingsOrOneBelow) {
    EXPECT_EQ(PolicyKey("").Path(), R"(SOFTWARE\Orrin Systems\vmkctrl.PdfPrinterPreferences)");
    EXPECT_EQ(PolicyKey("Office").Path(), R"(SOFTWARE\Orrin Systems\vmkctrl.PdfPrinterPreferences\Office)");
    for (const char* const name : {"\\a", "a\\", "a\\\\b", "a\nb", "a]b", "\xC3"})
        EXPECT_THROW(PolicyKey{name}, Refusal);
}

TEST(Keys, HaveIdentifiersOfTheirOwn) {
    EXPECT_EQ(PolicyKey("").Identifier(), "vmkctrl");
    EXPECT_EQ(PolicyKey("Office").Identifier(), "vmkctrl_Office");
    EXPECT_NE(PolicyKey("a b").Identifier(), PolicyKey("a_b").Identifier());
    EXPECT_NE(PolicyKey("a b").Identifier(), PolicyKey("a\\b").Identifier());
    for (const char c : PolicyKey("Büro 2").Identifier()) EXPECT_TRUE(std::isalnum(c) || c == '_') << c;
}

TEST(Keys, HaveItemsOfTheirOwn) {
    EXPECT_EQ(StableGuid("a"), StableGuid("a"));
    EXPECT_NE(StableGuid("a"), StableGuid("b"));
    EXPECT_THAT(StableGuid("a"), testing::MatchesRegex("\\{[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\\}"));
}

Value ValueOf(std::string_view assignment) {
    return ReadAssignment(assignment).second;
}

TEST(Assignments, AreNumbersOrTexts) {
    EXPECT_EQ(ValueOf("Paper.Nup=4"), Value(4));
    EXPECT_EQ(ValueOf("Security.Digisig.Page=-1"), Value(-1));
    EXPECT_EQ(ValueOf("Info.Title=a=b"), Value("a=b"));
    EXPECT_EQ(ValueOf("Info.Title="), Value(""));
    EXPECT_EQ(ValueOf("Info.Title=4"), Value("4"));
}

TEST(Assignments, OfWhatMayBeEitherAreNumbersWhereTheyCan) {
    EXPECT_EQ(ValueOf("Save.App.Run=1"), Value(1));
    EXPECT_EQ(ValueOf(R"(Save.App.Run=C:\a.exe)"), Value(R"(C:\a.exe)"));
}

TEST(Assignments, AreRefusedWhereTheSettingCannotHaveThem) {
    for (const char* const wrong :
         {"Paper.Nup", "Paper.Nup=3", "Paper.Nup=", "Paper.Nup=4x", "Paper.Nup=99999999999", "Paper.Nop=4",
          "Save.App.Run=2", "Security.UserPwd=secret"})
        EXPECT_THROW(ReadAssignment(wrong), Refusal) << wrong;
}

TEST(PolicyText, IsWrittenInTheFormOfEachFile) {
    EXPECT_EQ(Utf8(L"ä€"), "ä€");
    EXPECT_EQ(Utf8(std::wstring{static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)}), "😀");
    EXPECT_EQ(Utf16Bytes("A😀"), std::string("A\0\x3D\xD8\x00\xDE", 6));
    EXPECT_EQ(Xml("<a & \"b\"\r\n>"), "&lt;a &amp; &quot;b&quot;&#13;&#10;&gt;");
    EXPECT_EQ(Filled("%2 of %1, 5 %", "%2", "one"), "one of %2, 5 %");
}

TEST(PolicyText, IsRefusedWhereNoFileCanHoldIt) {
    EXPECT_THROW(Utf8(std::wstring(1, static_cast<wchar_t>(0xD83D))), Refusal);
    EXPECT_THROW(Utf8(std::wstring(1, static_cast<wchar_t>(0xDE00))), Refusal);
    EXPECT_THROW(Xml("\x01"), Refusal);
    for (const char* const broken : {"\xFF", "\xC3", "\xC3(", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80"})
        EXPECT_THROW(Utf16Bytes(broken), Refusal);
}

}  // namespace
}  // namespace vmk::policy
