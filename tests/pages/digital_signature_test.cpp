#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "tests/pages/digital_signature_page.h"
#include "tests/support/language_folder.h"

namespace vmk::test {
namespace {

// Every control but the switch itself.
const std::vector<UINT> kSignatureControls = {
    204, 257, 258, 259, 260, 261, 262, 264, 263, 268, 269, 270, 271, 272, 273, 370, 216, 218, 219, 201, 220,
    221, 223, 368, 208, 364, 230, 365, 225, 366, 217, 367, 224, 202, 222, 232, 207, 211, 209, 212, 377, 213};
const std::vector<UINT> kImageControls = {IDC_SIGNATURE_IMAGE, IDC_SIGNATURE_IMAGE_BROWSE};

const std::vector<std::pair<UINT, std::int32_t>> kFlagBoxes = {
    {IDC_SIGNATURE_SHOW_NAME, 0x100},
    {IDC_SIGNATURE_SHOW_LOCATION, 0x400},
    {IDC_SIGNATURE_SHOW_DISTINGUISHED_NAME, 0x1000},
    {IDC_SIGNATURE_SHOW_DATE, 0x200},
    {IDC_SIGNATURE_SHOW_REASON, 0x800},
    {IDC_SIGNATURE_SHOW_LABELS, 0x8000}};

const std::vector<std::wstring> kReasons = {
    L"<none>",
    L"I am the author of this document",
    L"I agree to specified portions of this document",
    L"I have reviewed this document",
    L"I am approving this document",
    L"I attest to the accuracy and integrity of this document",
    L"I agree to the terms defined by the placement of my signature on this document"};
const std::vector<std::wstring> kUnits = {L"mm", L"inches", L"points"};
const std::vector<std::wstring> kGraphics = {L"No Graphic", L"Image", L"Name"};

TEST_F(DigitalSignaturePage, HoldsItsControlsInTabOrder) {
    Open();
    EXPECT_EQ(ControlIds(page),
              (std::vector<int>{356, 204, 216, 218, 257, 219, 258, 259, 201, 260, 220, 261, 221, 262, 264,
                                223, 368, 263, 208, 268, 364, 230, 269, 365, 225, 270, 366, 217, 271, 367,
                                224, 272, 273, 202, 370, 222, 232, 207, 209, 377, 211, 212, 213}));
    EXPECT_EQ(BuddyOf(page, IDC_SIGNATURE_PAGE_SPIN), IDC_SIGNATURE_PAGE);
    for (size_t index = 0; index < kLengths.size(); ++index)
        EXPECT_EQ(BuddyOf(page, kLengthSpins[index]), static_cast<int>(kLengths[index]));
}

TEST_F(DigitalSignaturePage, LabelsItsControls) {
    Open();
    CheckTexts({{356, L"Use Certificate From File"},
                {204, L"Digital ID Filename:"},
                {218, L"Browse..."},
                {257, L"Digital ID Password:"},
                {258, L"Details"},
                {259, L"Reason for Signing:"},
                {260, L"Location:"},
                {261, L"Contact Information:"},
                {262, L"Position"},
                {264, L"Page:"},
                {263, L"Units:"},
                {268, L"Left:"},
                {269, L"Top:"},
                {270, L"Width:"},
                {271, L"Height:"},
                {272, L"Appearance"},
                {273, L"Show graphic"},
                {370, L"Image:"},
                {232, L"Browse..."},
                {207, L"Name"},
                {209, L"Location"},
                {377, L"Distinguished Name"},
                {211, L"Date"},
                {212, L"Reason"},
                {213, L"Labels"}});
}

TEST_F(DigitalSignaturePage, ShowsTheStoredValuesAndApplyStaysDisabled) {
    signature = {.Enable = 1,
                 .PFXFile = L"C:\\id.pfx",
                 .PFXPassword = L"key",
                 .Reason = L"because",
                 .Location = L"Bern",
                 .ContactInfo = L"me@example.com",
                 .Image = L"C:\\me.png",
                 .Flags = 0x10 | 0x200 | 0x8000,
                 .Page = 12,
                 .Left = 1,
                 .Top = 20,
                 .Width = 300,
                 .Height = 4005};
    Open();
    EXPECT_TRUE(page.IsChecked(IDC_SIGNATURE_ENABLE));
    CheckTexts({{IDC_SIGNATURE_FILE, L"C:\\id.pfx"},
                {IDC_SIGNATURE_PASSWORD, L"key"},
                {IDC_SIGNATURE_REASON, L"because"},
                {IDC_SIGNATURE_LOCATION, L"Bern"},
                {IDC_SIGNATURE_CONTACT, L"me@example.com"},
                {IDC_SIGNATURE_IMAGE, L"C:\\me.png"},
                {IDC_SIGNATURE_PAGE, L"12"}});
    EXPECT_EQ(ShownLengths(), (std::vector<std::wstring>{L"0.100", L"2.000", L"30.000", L"400.500"}));
    EXPECT_EQ(page.Selected(IDC_SIGNATURE_UNITS), L"mm");
    EXPECT_EQ(page.Selected(IDC_SIGNATURE_GRAPHIC), L"Image");
    for (const auto& [box, bit] : kFlagBoxes)
        EXPECT_EQ(page.IsChecked(box), (signature.Flags & bit) != 0) << box;
    EXPECT_FALSE(dialog->IsApplyEnabled());
}

TEST_F(DigitalSignaturePage, OffersItsReasonsUnitsAndGraphics) {
    Open();
    EXPECT_EQ(page.Items(IDC_SIGNATURE_REASON), kReasons);
    EXPECT_EQ(page.Items(IDC_SIGNATURE_UNITS), kUnits);
    EXPECT_EQ(page.Items(IDC_SIGNATURE_GRAPHIC), kGraphics);
}

TEST_F(DigitalSignaturePage, ThePasswordIsShownAsDots) {
    Open();
    EXPECT_TRUE(GetWindowLongW(page.Control(IDC_SIGNATURE_PASSWORD), GWL_STYLE) & ES_PASSWORD);
    EXPECT_NE(SendMessageW(page.Control(IDC_SIGNATURE_PASSWORD), EM_GETPASSWORDCHAR, 0, 0), 0);
}

TEST_F(DigitalSignaturePage, OkStoresEverySettingForTheRegistry) {
    Open();
    page.EnterText(IDC_SIGNATURE_FILE, L"D:\\cert.p12");
    page.EnterText(IDC_SIGNATURE_PASSWORD, L"s\x00F6 long");
    page.EnterText(IDC_SIGNATURE_REASON, L"just so");
    page.EnterText(IDC_SIGNATURE_LOCATION, L"Oslo");
    page.EnterText(IDC_SIGNATURE_CONTACT, L"you@example.com");
    page.EnterText(IDC_SIGNATURE_IMAGE, L"D:\\you.bmp");
    page.EnterTextAndLeave(IDC_SIGNATURE_PAGE, L"7", IDC_SIGNATURE_LEFT);
    for (size_t index = 0; index < kLengths.size(); ++index)
        page.EnterTextAndLeave(kLengths[index], std::to_wstring(10 + index), IDC_SIGNATURE_FILE);
    page.Choose(IDC_SIGNATURE_GRAPHIC, L"Name");
    page.Click(IDC_SIGNATURE_SHOW_LABELS);
    page.Click(IDC_SIGNATURE_ENABLE);
    EXPECT_EQ(dialog->Ok(), 1);

    const ScratchSettings target;
    StoreInRegistry(target);
    EXPECT_EQ(target.Number("Security.Digisig.Enable"), 0);
    EXPECT_EQ(target.Text("Security.Digisig.PFXFile"), L"D:\\cert.p12");
    EXPECT_EQ(target.Text("Security.Digisig.PFXPassword"), L"s\x00F6 long");
    EXPECT_EQ(target.Text("Security.Digisig.Reason"), L"just so");
    EXPECT_EQ(target.Text("Security.Digisig.Location"), L"Oslo");
    EXPECT_EQ(target.Text("Security.Digisig.ContactInfo"), L"you@example.com");
    EXPECT_EQ(target.Text("Security.Digisig.Image"), L"D:\\you.bmp");
    EXPECT_EQ(target.Number("Security.Digisig.Flags"), 0x20 | 0x300 | 0x8000);
    EXPECT_EQ(target.Number("Security.Digisig.Page"), 7);
    EXPECT_EQ(target.Number("Security.Digisig.Left"), 100);
    EXPECT_EQ(target.Number("Security.Digisig.Top"), 110);
    EXPECT_EQ(target.Number("Security.Digisig.Width"), 120);
    EXPECT_EQ(target.Number("Security.Digisig.Height"), 130);
}

TEST_F(DigitalSignaturePage, EachTextEnablesApply) {
    Open();
    for (const UINT edit :
         std::vector<UINT>{IDC_SIGNATURE_FILE, IDC_SIGNATURE_PASSWORD, IDC_SIGNATURE_LOCATION,
                           IDC_SIGNATURE_CONTACT, IDC_SIGNATURE_PAGE, IDC_SIGNATURE_LEFT, IDC_SIGNATURE_TOP,
                           IDC_SIGNATURE_WIDTH, IDC_SIGNATURE_HEIGHT, IDC_SIGNATURE_IMAGE}) {
        page.EnterText(edit, L"3");
        EXPECT_TRUE(dialog->IsApplyEnabled()) << edit;
        dialog->Apply();
    }
}

TEST_F(DigitalSignaturePage, CancelKeepsWhatWasAppliedAndNoMore) {
    Open();
    page.Choose(IDC_SIGNATURE_GRAPHIC, L"Name");
    dialog->Apply();
    page.Choose(IDC_SIGNATURE_GRAPHIC, L"Image");
    page.EnterText(IDC_SIGNATURE_REASON, L"no");
    page.EnterText(IDC_SIGNATURE_LEFT, L"99");
    EXPECT_EQ(dialog->Cancel(), 2);
    auto expected = signature;
    expected.Flags |= 0x20;
    EXPECT_EQ(dialog->Record().Security.Digisig, expected);
}

// The switch and the graphic

TEST_F(DigitalSignaturePage, WithoutACertificateEveryOtherControlIsDisabledWhateverTheGraphic) {
    signature.Enable = 0;
    for (const int graphic : {0, 0x10, 0x20}) {
        signature.Flags = graphic;
        Open();
        EXPECT_FALSE(page.IsChecked(IDC_SIGNATURE_ENABLE));
        EXPECT_TRUE(page.AreDisabled(kSignatureControls)) << graphic;
    }
}

TEST_F(DigitalSignaturePage, SwitchingTheCertificateOnLeavesTheImageToTheGraphic) {
    signature.Enable = 0;
    for (const int graphic : {0, 0x10, 0x20}) {
        signature.Flags = graphic;
        Open();
        page.Click(IDC_SIGNATURE_ENABLE);
        EXPECT_TRUE(dialog->IsApplyEnabled());
        if (graphic == 0x10) {
            EXPECT_TRUE(page.AreEnabled(kSignatureControls));
        } else {
            EXPECT_TRUE(page.AreDisabled(kImageControls)) << graphic;
            EXPECT_TRUE(
                page.AreEnabled({IDC_SIGNATURE_IMAGE_LABEL, IDC_SIGNATURE_GRAPHIC, IDC_SIGNATURE_FILE}));
        }
        EXPECT_EQ(Applied().Enable, 1);
        page.Click(IDC_SIGNATURE_ENABLE);
        EXPECT_TRUE(dialog->IsApplyEnabled());
        EXPECT_TRUE(page.AreDisabled(kSignatureControls));
    }
}

TEST_F(DigitalSignaturePage, TheImageFollowsTheGraphic) {
    for (const int graphic : {0, 0x10, 0x20}) {
        signature.Flags = graphic;
        Open();
        EXPECT_TRUE(graphic == 0x10 ? page.AreEnabled(kImageControls) : page.AreDisabled(kImageControls));
    }
    for (const wchar_t* other : {L"No Graphic", L"Name"}) {
        page.Choose(IDC_SIGNATURE_GRAPHIC, L"Image");
        EXPECT_TRUE(page.AreEnabled(kImageControls));
        page.Choose(IDC_SIGNATURE_GRAPHIC, other);
        EXPECT_TRUE(page.AreDisabled(kImageControls)) << other;
    }
}

// The flags

TEST_F(DigitalSignaturePage, EveryGraphicAndEveryBoxStoresItsBits) {
    signature.Flags = 0;
    Open();
    std::int32_t expected = 0;
    for (const auto& [box, bit] : kFlagBoxes) {
        page.Click(box);
        EXPECT_TRUE(dialog->IsApplyEnabled());
        expected |= bit;
        EXPECT_EQ(Applied().Flags, expected);
    }
    const std::vector<std::int32_t> graphics = {0, 0x10, 0x20};
    for (const size_t graphic : {1U, 2U, 0U}) {
        ASSERT_TRUE(page.Choose(IDC_SIGNATURE_GRAPHIC, kGraphics[graphic]));
        EXPECT_TRUE(dialog->IsApplyEnabled());
        EXPECT_EQ(Applied().Flags, expected | graphics[graphic]);
    }
    for (const auto& [box, bit] : kFlagBoxes) {
        page.Click(box);
        expected &= ~bit;
        EXPECT_EQ(Applied().Flags, expected);
    }
}

TEST_F(DigitalSignaturePage, FlagsThatThePageDoesNotShowAreCleared) {
    for (const std::int32_t flags : {-1 & ~0x10, -1 & ~0x20}) {
        signature.Flags = flags;
        Open();
        for (const auto& [box, bit] : kFlagBoxes) EXPECT_TRUE(page.IsChecked(box));
        EXPECT_EQ(Stored().Flags, (flags & 0x30) | 0x9F00);
    }
}

TEST_F(DigitalSignaturePage, AGraphicOutsideItsListSelectsNothingAndStays) {
    signature.Flags = 0x30 | 0x100;
    Open();
    EXPECT_EQ(page.Selected(IDC_SIGNATURE_GRAPHIC), L"");
    EXPECT_TRUE(page.AreEnabled(kSignatureControls));
    EXPECT_EQ(Stored().Flags, 0x30 | 0x100);
    page.Click(IDC_SIGNATURE_SHOW_NAME);
    EXPECT_EQ(Applied().Flags, 0x30);
    page.Choose(IDC_SIGNATURE_GRAPHIC, L"Name");
    EXPECT_EQ(Applied().Flags, 0x20);
}

// The reason

TEST_F(DigitalSignaturePage, ATypedReasonIsStoredAsTyped) {
    Open();
    page.EnterText(IDC_SIGNATURE_REASON, L"  for the record ");
    EXPECT_TRUE(dialog->IsApplyEnabled());
    EXPECT_EQ(Applied().Reason, L"  for the record ");
    page.EnterText(IDC_SIGNATURE_REASON, std::wstring(40'000, L'r'));
    EXPECT_TRUE(Applied().Reason == std::wstring(40'000, L'r'));
    page.EnterText(IDC_SIGNATURE_REASON, L"");
    EXPECT_EQ(Applied().Reason, L"");
}

TEST_F(DigitalSignaturePage, AReasonFromTheListIsStoredAsItsTextAlsoNone) {
    Open();
    for (const std::wstring& reason : kReasons) {
        ASSERT_TRUE(page.Choose(IDC_SIGNATURE_REASON, reason));
        EXPECT_TRUE(dialog->IsApplyEnabled());
        EXPECT_EQ(Applied().Reason, reason);
    }
}

// Translation and the keyboard

TEST_F(DigitalSignaturePage, TranslatedItemsKeepTheirValues) {
    const LanguageFolder german(Translations{
        {L"Image", L"Bild"}, {L"inches", L"Zoll"}, {L"<none>", L"<keiner>"}, {L"Date", L"Datum"}});
    signature.Left = 254;
    signature.Reason = L"<none>";
    Open(kGerman);
    EXPECT_EQ(page.Text(IDC_SIGNATURE_SHOW_DATE), L"Datum");
    EXPECT_EQ(page.Text(IDC_SIGNATURE_REASON), L"<none>");
    EXPECT_EQ(page.Items(IDC_SIGNATURE_REASON).front(), L"<keiner>");
    ASSERT_TRUE(page.Choose(IDC_SIGNATURE_UNITS, L"Zoll"));
    EXPECT_EQ(page.Text(IDC_SIGNATURE_LEFT), L"1.000");
    ASSERT_TRUE(page.Choose(IDC_SIGNATURE_GRAPHIC, L"Bild"));
    EXPECT_TRUE(page.AreEnabled(kImageControls));
    page.Choose(IDC_SIGNATURE_REASON, L"<keiner>");
    const Signature applied = Applied();
    EXPECT_EQ(applied.Flags, 0x310);
    EXPECT_EQ(applied.Left, 254);
    EXPECT_EQ(applied.Reason, L"<keiner>");
}

TEST_F(DigitalSignaturePage, OfTwoGraphicsWithTheSameTranslationTheFirstIsStored) {
    const LanguageFolder german(Translations{{L"Image", L"Zeichen"}, {L"Name", L"Zeichen"}});
    signature.Flags = 0x20;
    Open(kGerman);
    EXPECT_EQ(Stored().Flags, 0x10);
}

TEST_F(DigitalSignaturePage, TabAndEnterVisitTheControlsInOrder) {
    signature.Flags = 0x10;
    Open();
    const std::vector<int> toReason = {216, 218, 219, 1001};
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_SIGNATURE_ENABLE, toReason.size()), toReason);
    page.Focus(IDC_SIGNATURE_REASON);
    dialog->PressKey(VK_TAB);
    EXPECT_TRUE(FocusReaches(IDC_SIGNATURE_LOCATION));
    const std::vector<int> toImage = {221, 223, 208, 364, 365, 366, 367, 202, 222};
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_SIGNATURE_LOCATION, toImage.size()), toImage);
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_SIGNATURE_LOCATION, toImage.size(), VK_RETURN), toImage);
    const std::vector<int> toTheStart = {207, 209, 377, 211, 212, 213, 356};
    EXPECT_EQ(FocusSteps(*dialog, page, IDC_SIGNATURE_IMAGE_BROWSE, toTheStart.size()), toTheStart);
}

}  // namespace
}  // namespace vmk::test
