#include "host/stored_settings.h"

#include <gtest/gtest.h>

#include "tests/support/scratch_key.h"

namespace vmk {
namespace {

TEST(GroupOfSetting, FollowsThePrefix) {
    EXPECT_EQ(GroupOfSetting("Paper.Nup"), 0x1U);
    EXPECT_EQ(GroupOfSetting("General.VP.Fit"), 0x4U);
    EXPECT_EQ(GroupOfSetting("Info.Author"), 0x400U);
    EXPECT_EQ(GroupOfSetting("Email.STMP.UseSSL"), 0x1000U);
    EXPECT_EQ(GroupOfSetting("Overlay.File"), 0x8000U);
}

TEST(GroupOfSetting, BringsDownsamplingAndConversionTogether) {
    EXPECT_EQ(GroupOfSetting("Downsample.Color.DPI"), 0x10U);
    EXPECT_EQ(GroupOfSetting("Convert.Drawing.To"), 0x10U);
}

TEST(GroupOfSetting, TellsTheSignatureFromTheRestOfSecurity) {
    EXPECT_EQ(GroupOfSetting("Security.Digisig.Page"), 0x10000U);
    EXPECT_EQ(GroupOfSetting("Security.128.Printing"), 0x80U);
}

TEST(GroupOfSetting, PutsAnUnknownNameBesideThoseThatBeginAlike) {
    EXPECT_EQ(GroupOfSetting("Info.Extra"), 0x400U);
    EXPECT_EQ(GroupOfSetting("Paper."), 0x1U);
    EXPECT_EQ(GroupOfSetting("Security.Digisig.Rotation"), 0x10000U);
    EXPECT_EQ(GroupOfSetting("Security.Digisig"), 0x80U);
    EXPECT_EQ(GroupOfSetting("Security.256.AllowCopying"), 0x80U);
    EXPECT_EQ(GroupOfSetting("Convert.Paper.To"), 0x10U);
}

TEST(GroupOfSetting, DoesNotRegardCase) {
    EXPECT_EQ(GroupOfSetting("FONTS.embedd.All"), 0x20U);
}

TEST(GroupOfSetting, IsNoneForOtherNames) {
    EXPECT_EQ(GroupOfSetting("Paperclip"), 0U);
    EXPECT_EQ(GroupOfSetting(""), 0U);
    EXPECT_EQ(GroupOfSetting("Profiles.Name"), 0U);
}

TEST(Quoted, KeepsEachValueOnItsLine) {
    EXPECT_EQ(Quoted("plain"), "\"plain\"");
    EXPECT_EQ(Quoted(""), "\"\"");
    EXPECT_EQ(Quoted("C:\\Out \"x\""), R"("C:\\Out \"x\"")");
    EXPECT_EQ(Quoted("a\r\nb\tc\x01\x7F"), "\"a\\r\\nb\\tc\\x01\\x7f\"");
    EXPECT_EQ(Quoted("\xC3\xA4"), "\"\xC3\xA4\"");
}

TEST(FormatSettings, HeadsEachGroupAndPutsTheRestUnderOther) {
    EXPECT_EQ(
        FormatSettings({{"Email.To", "\"x\""}, {"Flavour", "1"}, {"Paper.Nup", "2"}, {"Paper.NupOrder", "0"}},
                       std::nullopt),
        "[Paper]\nPaper.Nup = 2\nPaper.NupOrder = 0\n\n[eMail]\nEmail.To = \"x\"\n\n[Other]\nFlavour = 1\n");
}

TEST(FormatSettings, ListsOnlyTheGroupsAskedFor) {
    EXPECT_EQ(FormatSettings({{"Flavour", "1"}, {"Paper.Nup", "2"}, {"Watermarks.Print", "1"}}, 0x42),
              "[CustomForms]\n(nothing stored)\n\n[Watermarks]\nWatermarks.Print = 1\n");
}

TEST(FormatSettings, IsEmptyForAnEmptyKey) {
    EXPECT_EQ(FormatSettings({}, std::nullopt), "");
}

std::string DisplayOf(const test::ScratchKey& key) {
    const auto settings = ReadStoredSettings(key.SubKey());
    if (!settings || settings->size() != 1) return "(not one value)";
    return settings->front().display;
}

TEST(ReadStoredSettings, TellsAMissingKeyFromAnEmptyOne) {
    const test::ScratchKey key;
    EXPECT_FALSE(ReadStoredSettings(key.SubKey()).has_value());
    EXPECT_FALSE(SettingsKeyIsThere(key.SubKey()));
    key.Create();
    ASSERT_TRUE(ReadStoredSettings(key.SubKey()).has_value());
    EXPECT_TRUE(ReadStoredSettings(key.SubKey())->empty());
    EXPECT_TRUE(SettingsKeyIsThere(key.SubKey()));
}

TEST(ReadStoredSettings, SortsByName) {
    const test::ScratchKey key;
    for (const char* const name : {"Paper.Nup", "Info.Use", "Links.Analize"}) key.SetNumber(name, 1);
    const auto settings = ReadStoredSettings(key.SubKey());
    ASSERT_TRUE(settings.has_value());
    ASSERT_EQ(settings->size(), 3U);
    EXPECT_EQ((*settings)[0].name, "Info.Use");
    EXPECT_EQ((*settings)[1].name, "Links.Analize");
    EXPECT_EQ((*settings)[2].name, "Paper.Nup");
}

TEST(ReadStoredSettings, ShowsNumbersSigned) {
    const test::ScratchKey key;
    key.SetNumber("Security.Digisig.Page", -1);
    EXPECT_EQ(DisplayOf(key), "-1");
}

TEST(ReadStoredSettings, TellsNumbersFromTexts) {
    const test::ScratchKey key;
    key.SetNumber("Paper.Nup", 4);
    key.SetText("Paper.NupOrder", L"1");
    const auto settings = ReadStoredSettings(key.SubKey());
    ASSERT_TRUE(settings.has_value());
    ASSERT_EQ(settings->size(), 2U);
    EXPECT_EQ((*settings)[0].number, 4);
    EXPECT_EQ((*settings)[1].number, std::nullopt);
}

TEST(ReadStoredSettings, ShowsTextsOfTheAnsiCodePageAsUtf8) {
    const test::ScratchKey key;
    key.SetText("Info.Author", L"J\u00E4ger \"J\"");
    EXPECT_EQ(DisplayOf(key), "\"J\xC3\xA4ger \\\"J\\\"\"");
}

TEST(ReadStoredSettings, ReadsTextsOfAnyLength) {
    const test::ScratchKey key;
    key.SetText("Email.Content", std::wstring(10'000, L'x'));
    EXPECT_EQ(DisplayOf(key), '"' + std::string(10'000, 'x') + '"');
}

TEST(ReadStoredSettings, NeverGivesPasswordsAway) {
    for (const char* const name : {"Security.UserPwd", "Security.OwnerPwd", "Security.Digisig.PFXPassword",
                                   "Email.SMTP.Password", "Overlay.Password"}) {
        const test::ScratchKey key;
        key.SetText(name, L"secret");
        EXPECT_EQ(DisplayOf(key), "********");
    }
}

// The registry keeps the letters as they were first written and finds a name by any.
TEST(ReadStoredSettings, NeverGivesPasswordsAwayWhateverTheCaseOfTheirNames) {
    for (const char* const name : {"security.userpwd", "SECURITY.OWNERPWD", "Security.digisig.pfxPassWord",
                                   "email.smtp.password", "OVERLAY.PASSWORD"}) {
        const test::ScratchKey key;
        key.SetText(name, L"secret");
        EXPECT_EQ(DisplayOf(key), "********") << name;
    }
}

TEST(ReadStoredSettings, SortsWithoutRegardToCase) {
    const test::ScratchKey key;
    for (const char* const name : {"paper.nupOrder", "Info.Use", "links.Analize", "Paper.Nup"})
        key.SetNumber(name, 1);
    const auto settings = ReadStoredSettings(key.SubKey());
    ASSERT_TRUE(settings.has_value());
    ASSERT_EQ(settings->size(), 4U);
    EXPECT_EQ((*settings)[0].name, "Info.Use");
    EXPECT_EQ((*settings)[1].name, "links.Analize");
    EXPECT_EQ((*settings)[2].name, "Paper.Nup");
    EXPECT_EQ((*settings)[3].name, "paper.nupOrder");
}

TEST(ReadStoredSettings, ShowsThatAPasswordIsEmpty) {
    const test::ScratchKey key;
    key.SetText("Overlay.Password", L"");
    EXPECT_EQ(DisplayOf(key), "\"\"");
}

TEST(NameOfSettingsKey, EndsWithTheSubKey) {
    EXPECT_EQ(NameOfSettingsKey(L""),
              R"(HKEY_CURRENT_USER\SOFTWARE\Orrin Systems\vmkctrl.PdfPrinterPreferences)");
    EXPECT_EQ(NameOfSettingsKey(L"Office"),
              R"(HKEY_CURRENT_USER\SOFTWARE\Orrin Systems\vmkctrl.PdfPrinterPreferences\Office)");
}

}  // namespace
}  // namespace vmk
