#include "settings/reset.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>

#include "tests/settings/member_values.h"

namespace vmk {
namespace {

using Names = std::set<std::string>;

// What a reset of the groups changes in a record without a single default. Checks that all of it became the
// default.
Names NamesReset(PageSet groups) {
    const auto before = MemberValues(ChangedSettings());
    const auto defaults = MemberValues(PrinterSettings{});
    PrinterSettings settings = ChangedSettings();
    ResetToDefaults(settings, groups);

    Names names;
    for (const auto& [name, value] : MemberValues(settings)) {
        if (value == before.at(name)) continue;
        EXPECT_EQ(value, defaults.at(name)) << name;
        names.insert(name);
    }
    return names;
}

TEST(Reset, ChangedRecordHasNoDefaultLeft) {
    const auto defaults = MemberValues(PrinterSettings{});
    for (const auto& [name, value] : MemberValues(ChangedSettings()))
        EXPECT_NE(value, defaults.at(name)) << name;
}

TEST(Reset, PaperTakesBackBothSettings) {
    EXPECT_EQ(NamesReset(0x1), (Names{"Paper.Nup", "Paper.NupOrder"}));
}

TEST(Reset, CustomFormsTakesBackItsWordAndThePdfVersion) {
    EXPECT_EQ(NamesReset(0x2), (Names{"(custom forms)", "General.PDFSpec"}));
}

TEST(Reset, GeneralTakesBackPdfVersionAndPageLayoutOnly) {
    EXPECT_EQ(NamesReset(0x4), (Names{"General.PDFSpec", "General.PageLayout"}));
}

TEST(Reset, CompressionTakesBackGraphicsAndAsciiOnly) {
    EXPECT_EQ(NamesReset(0x8), (Names{"Compression.Graphics", "Compression.ASCII"}));
}

TEST(Reset, GraphicsTakesBackUseAndResolutionOfColourImagesOnly) {
    EXPECT_EQ(NamesReset(0x10), (Names{"Downsample.Color.Use", "Downsample.Color.DPI"}));
}

TEST(Reset, FontsTakesBackBothListsButNotWhetherTheyAreUsed) {
    EXPECT_EQ(NamesReset(0x20), (Names{"Fonts.Embedd.All", "Fonts.Embedd.Protected", "Fonts.Embedd.Always",
                                       "Fonts.Embedd.Never"}));
}

TEST(Reset, WatermarksTakesBackItsOneSetting) {
    EXPECT_EQ(NamesReset(0x40), Names{"Watermarks.Print"});
}

TEST(Reset, SecurityTakesBackPasswordsAndHalfOfThePermissions) {
    EXPECT_EQ(NamesReset(0x80),
              (Names{"Security.Use", "Security.40.AllowChanging", "Security.40.AllowComments",
                     "Security.128.ContentAccess", "Security.128.AllowCopying", "Security.UserPwd",
                     "Security.OwnerPwd"}));
}

TEST(Reset, SecurityLeavesTheEncryptionLevelThatTheUserChose) {
    PrinterSettings settings;
    settings.Security.Level = 40;
    ResetToDefaults(settings, page_bit::kSecurity);
    EXPECT_EQ(settings.Security.Level, 40);
}

TEST(Reset, LinksTakesBackColourAndStyleOnly) {
    EXPECT_EQ(NamesReset(0x100), (Names{"Links.Border.Color", "Links.Border.Style"}));
}

TEST(Reset, BookmarksTakesBackPrintAndMultilineOnly) {
    EXPECT_EQ(NamesReset(0x200), (Names{"Bookmarks.Print", "Bookmarks.Multiline"}));
}

TEST(Reset, DocumentInfoTakesBackTheWholeGroupWithItsSixthText) {
    EXPECT_EQ(NamesReset(0x400), (Names{"Info.Use", "Info.Author", "Info.Creator", "Info.Keywords",
                                        "Info.Subject", "Info.Title", "(extra document information)"}));
}

TEST(Reset, SaveTakesBackTwoNumbersAndTheSixTexts) {
    EXPECT_EQ(NamesReset(0x800),
              (Names{"Save.UseSameFolder", "Save.Type", "Save.FileName", "Save.Folder", "Save.App.Run (path)",
                     "Save.App.Params", "Save.JobsGroupName", "Save.LeaveGroup"}));
}

TEST(Reset, SaveGivesTheApplicationTheParametersOfAFreshRecord) {
    PrinterSettings settings;
    settings.Save.App.Params = L"/quiet";
    ResetToDefaults(settings, page_bit::kSave);
    EXPECT_EQ(settings.Save.App.Params, L"%f");
}

TEST(Reset, EmailTakesBackTwoNumbersAndTheEightTexts) {
    EXPECT_EQ(NamesReset(0x1000),
              (Names{"Email.Type", "Email.ZIP", "Email.From", "Email.To", "Email.CC", "Email.Subject",
                     "Email.Content", "Email.SMTP.Address", "Email.SMTP.UserName", "Email.SMTP.Password"}));
}

TEST(Reset, ProfilesTakesBackItsWordAndTheBlendMode) {
    EXPECT_EQ(NamesReset(0x2000), (Names{"(profiles)", "Optimization.BlendMode"}));
}

TEST(Reset, OptimizationOverlayAndDigitalSignatureKeepEverything) {
    EXPECT_EQ(NamesReset(0x4000), Names{});
    EXPECT_EQ(NamesReset(0x8000), Names{});
    EXPECT_EQ(NamesReset(0x10000), Names{});
}

TEST(Reset, BitsWithoutAPageDoNothing) {
    EXPECT_EQ(NamesReset(0), Names{});
    EXPECT_EQ(NamesReset(0xFFFE0000), Names{});
}

TEST(Reset, AllPagesTakesBackWhatTheSingleBitsTakeBack) {
    Names together;
    for (int bit = 0; bit < 32; ++bit) together.merge(NamesReset(PageSet{1} << bit));
    EXPECT_EQ(NamesReset(page_bit::kAllPages), together);
}

}  // namespace
}  // namespace vmk
