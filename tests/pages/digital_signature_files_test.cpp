#include <gtest/gtest.h>

#include "resources/ids/digital_signature.h"
#include "tests/pages/file_chooser.h"
#include "tests/pages/page_fixture.h"
#include "tests/support/language_folder.h"

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

class DigitalSignatureFiles : public PageTest {
  protected:
    DigitalSignatureFiles() : PageTest(page_bit::kDigitalSign) {
        stored.Security.Digisig.Enable = 1;
        stored.Security.Digisig.Flags = 0x10;
    }

    FileChooser Press(const Chooser& chooser) const {
        page.PostClick(chooser.button);
        return FileChooser(dialog->WaitForModal());
    }

    void CloseWith(const FileChooser& chooser, UINT button) const {
        chooser.Window().PostClick(button);
        ASSERT_TRUE(dialog->WaitUntilClosed(chooser.Window()));
        ASSERT_TRUE(WaitUntil([&] { return IsWindowEnabled(dialog->Main().Handle()) != FALSE; }));
    }
};

TEST_F(DigitalSignatureFiles, ChoosingProposesTheFileAndShowsTheChosenPath) {
    const ExistingFile before(L" before.pfx");
    const ExistingFile after(L" after.pfx");
    const std::wstring folder = CurrentFolder();
    stored.Security.Digisig.PFXFile = before.Path();
    stored.Security.Digisig.Image = before.Path();
    for (const Chooser& expected : {kCertificate, kImage}) {
        Open();
        const FileChooser chooser = Press(expected);
        ASSERT_TRUE(chooser);
        EXPECT_EQ(GetWindow(chooser.Window().Handle(), GW_OWNER), dialog->Main().Handle());
        EXPECT_TRUE(GetWindowLongW(chooser.Window().Handle(), GWL_STYLE) & WS_SIZEBOX);
        EXPECT_EQ(chooser.ProposedName(), before.Name());
        EXPECT_EQ(chooser.Types(), std::vector<std::wstring>{expected.type});
        chooser.EnterName(after.Path());
        CloseWith(chooser, IDOK);
        EXPECT_TRUE(WaitUntil([&] { return page.Text(expected.box) == after.Path(); }));
        EXPECT_TRUE(WaitUntil([&] { return dialog->IsApplyEnabled(); }));
        EXPECT_EQ(CurrentFolder(), folder);

        dialog->Apply();
        auto signature = stored.Security.Digisig;
        (expected.box == kImage.box ? signature.Image : signature.PFXFile) = after.Path();
        EXPECT_EQ(dialog->Record().Security.Digisig, signature);
    }
}

TEST_F(DigitalSignatureFiles, ChoosingCanBeCancelled) {
    const std::wstring folder = CurrentFolder();
    stored.Security.Digisig.PFXFile = L"C:\\before";
    stored.Security.Digisig.Image = L"C:\\before";
    Open();
    for (const Chooser& expected : {kCertificate, kImage}) {
        const FileChooser chooser = Press(expected);
        ASSERT_TRUE(chooser);
        chooser.EnterName(L"after");
        CloseWith(chooser, IDCANCEL);
        EXPECT_EQ(page.Text(expected.box), L"C:\\before");
        EXPECT_FALSE(dialog->IsApplyEnabled());
        EXPECT_EQ(CurrentFolder(), folder);
    }
}

TEST_F(DigitalSignatureFiles, TheTypesOfFilesAreTranslated) {
    const LanguageFolder german(Translations{{kCertificate.type, L"Zertifikate (*.pfx; *.p12)"},
                                             {kImage.type, L"Alle Dateien (*.*)"}});
    Open(kGerman);
    const FileChooser certificate = Press(kCertificate);
    ASSERT_TRUE(certificate);
    EXPECT_EQ(certificate.Types(), std::vector<std::wstring>{L"Zertifikate (*.pfx; *.p12)"});
    CloseWith(certificate, IDCANCEL);
    const FileChooser image = Press(kImage);
    ASSERT_TRUE(image);
    EXPECT_EQ(image.Types(), std::vector<std::wstring>{L"Alle Dateien (*.*)"});
    CloseWith(image, IDCANCEL);
}

TEST_F(DigitalSignatureFiles, ChoosingOpensAlsoOnATextThatIsNoPath) {
    stored.Security.Digisig.PFXFile = L"a<b>|c?*\"";
    stored.Security.Digisig.Image = std::wstring(300, L'n');
    Open();
    for (const Chooser& expected : {kCertificate, kImage}) {
        const FileChooser chooser = Press(expected);
        ASSERT_TRUE(chooser);
        CloseWith(chooser, IDCANCEL);
    }
}

}  // namespace
}  // namespace vmk::test
