#include <gtest/gtest.h>

#include "tests/pages/digital_signature_page.h"
#include "tests/support/file_chooser.h"
#include "tests/support/language_folder.h"
#include "tests/support/temporary_folder.h"

namespace vmk::test {
namespace {

// A button of the page that chooses a file, and the box that shows it.
struct Chooser {
    UINT button;
    UINT box;
    const wchar_t* type;
};
constexpr Chooser kCertificate = {.button = IDC_SIGNATURE_FILE_BROWSE,
                                  .box = IDC_SIGNATURE_FILE,
                                  .type = L"Personal Information Exchange (*.pfx; *.p12)"};
constexpr Chooser kImage = {
    .button = IDC_SIGNATURE_IMAGE_BROWSE, .box = IDC_SIGNATURE_IMAGE, .type = L"All Files (*.*)"};

class DigitalSignatureFiles : public DigitalSignaturePage {
  protected:
    DigitalSignatureFiles() { signature.Flags = 0x10; }
};

TEST_F(DigitalSignatureFiles, ChoosingProposesTheFileAndShowsTheChosenPath) {
    const TemporaryFolder files;
    const std::wstring before = files.Write(L"before.pfx");
    const std::wstring after = files.Write(L"after.pfx");
    const std::wstring folder = CurrentFolder();
    signature.PFXFile = before;
    signature.Image = before;
    for (const Chooser& expected : {kCertificate, kImage}) {
        Open();
        const FileChooser chooser(OpenModal(expected.button));
        ASSERT_TRUE(chooser);
        EXPECT_EQ(GetWindow(chooser.Window().Handle(), GW_OWNER), dialog->Main().Handle());
        EXPECT_TRUE(GetWindowLongW(chooser.Window().Handle(), GWL_STYLE) & WS_SIZEBOX);
        EXPECT_EQ(chooser.ProposedName(), L"before.pfx");
        EXPECT_EQ(chooser.Types(), std::vector<std::wstring>{expected.type});
        chooser.EnterName(after);
        CloseModal(chooser.Window(), IDOK);
        EXPECT_TRUE(TextBecomes(expected.box, after));
        EXPECT_TRUE(ApplyBecomesEnabled());
        EXPECT_EQ(CurrentFolder(), folder);

        dialog->Apply();
        Signature applied = signature;
        (expected.box == kImage.box ? applied.Image : applied.PFXFile) = after;
        EXPECT_EQ(dialog->Record().Security.Digisig, applied);
    }
}

TEST_F(DigitalSignatureFiles, ChoosingCanBeCancelled) {
    const std::wstring folder = CurrentFolder();
    signature.PFXFile = L"C:\\before";
    signature.Image = L"C:\\before";
    Open();
    for (const Chooser& expected : {kCertificate, kImage}) {
        const FileChooser chooser(OpenModal(expected.button));
        ASSERT_TRUE(chooser);
        chooser.EnterName(L"after");
        CloseModal(chooser.Window(), IDCANCEL);
        EXPECT_EQ(page.Text(expected.box), L"C:\\before");
        EXPECT_FALSE(dialog->IsApplyEnabled());
        EXPECT_EQ(CurrentFolder(), folder);
    }
}

TEST_F(DigitalSignatureFiles, TheTypesOfFilesAreTranslated) {
    const LanguageFolder german(Translations{{kCertificate.type, L"Zertifikate (*.pfx; *.p12)"},
                                             {kImage.type, L"Alle Dateien (*.*)"}});
    Open(kGerman);
    const FileChooser certificate(OpenModal(kCertificate.button));
    ASSERT_TRUE(certificate);
    EXPECT_EQ(certificate.Types(), std::vector<std::wstring>{L"Zertifikate (*.pfx; *.p12)"});
    CloseModal(certificate.Window(), IDCANCEL);
    const FileChooser image(OpenModal(kImage.button));
    ASSERT_TRUE(image);
    EXPECT_EQ(image.Types(), std::vector<std::wstring>{L"Alle Dateien (*.*)"});
    CloseModal(image.Window(), IDCANCEL);
}

TEST_F(DigitalSignatureFiles, ChoosingOpensAlsoOnATextThatIsNoPath) {
    signature.PFXFile = L"a<b>|c?*\"";
    signature.Image = std::wstring(300, L'n');
    Open();
    for (const Chooser& expected : {kCertificate, kImage}) {
        const FileChooser chooser(OpenModal(expected.button));
        ASSERT_TRUE(chooser);
        CloseModal(chooser.Window(), IDCANCEL);
    }
}

}  // namespace
}  // namespace vmk::test
