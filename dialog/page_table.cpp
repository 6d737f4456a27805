#include "dialog/page_table.h"

#include "pages/pages.h"

namespace vmk {
namespace {

constexpr int kNoIcon = PageRow::kNoIcon;

constexpr PageRow kPages[] = {
    {page_bit::kPaper, 1, L"Paper", MakePaperPage},
    {page_bit::kCustomForms, 2, L"Custom Forms", MakeCustomFormsPage},
    {page_bit::kGeneral, kNoIcon, L"General", MakeGeneralPage},
    {page_bit::kCompression, kNoIcon, L"Compression", MakeCompressionPage},
    {page_bit::kGraphics, 6, L"Graphics", MakeGraphicsPage},
    {page_bit::kFonts, 5, L"Fonts", MakeFontsPage},
    {page_bit::kWatermarks, kNoIcon, L"Watermarks", MakeWatermarksPage},
    {page_bit::kOverlay, kNoIcon, L"Overlay", MakeOverlayPage},
    {page_bit::kSecurity, 3, L"Security", MakeSecurityPage},
    {page_bit::kDigitalSign, kNoIcon, L"Digital Signature", MakeDigitalSignaturePage},
    {page_bit::kLinks, 4, L"Links", MakeLinksPage},
    {page_bit::kBookmarks, kNoIcon, L"Bookmarks", MakeBookmarksPage},
    {page_bit::kDocumentInfo, kNoIcon, L"Document Info", MakeDocumentInfoPage},
    {page_bit::kSave, 7, L"Save", MakeSavePage},
    {page_bit::kEmail, 8, L"e-Mail", MakeEmailPage},
    {page_bit::kProfiles, kNoIcon, L"Profiles", MakeProfilesPage},
    {page_bit::kOptimization, kNoIcon, L"Optimization", MakeOptimizationPage},
};

}  // namespace

std::span<const PageRow> PageTable() {
    return kPages;
}

}  // namespace vmk
