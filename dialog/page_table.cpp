#include "dialog/page_table.h"

#include "pages/placeholder.h"
#include "pages/watermarks.h"

namespace vmk {
namespace {

template <typename Page>
std::unique_ptr<PageWindow> Create() {
    return std::make_unique<Page>();
}

constexpr int kNoIcon = PageRow::kNoIcon;

constexpr PageRow kPages[] = {
    {page_bit::kPaper, L"Paper", 1, Create<CDlgCustForm>},
    {page_bit::kCustomForms, L"Custom Forms", 2, Create<CDlgCustForm>},
    {page_bit::kGeneral, L"General", kNoIcon, Create<CDlgCustForm>},
    {page_bit::kCompression, L"Compression", kNoIcon, Create<CDlgCustForm>},
    {page_bit::kGraphics, L"Graphics", 6, Create<CDlgCustForm>},
    {page_bit::kFonts, L"Fonts", 5, Create<CDlgCustForm>},
    {page_bit::kWatermarks, L"Watermarks", kNoIcon, Create<CDlgWatermarks>},
    {page_bit::kOverlay, L"Overlay", kNoIcon, Create<CDlgCustForm>},
    {page_bit::kSecurity, L"Security", 3, Create<CDlgCustForm>},
    {page_bit::kDigitalSign, L"Digital Signature", kNoIcon, Create<CDlgCustForm>},
    {page_bit::kLinks, L"Links", 4, Create<CDlgCustForm>},
    {page_bit::kBookmarks, L"Bookmarks", kNoIcon, Create<CDlgCustForm>},
    {page_bit::kDocumentInfo, L"Document Info", kNoIcon, Create<CDlgCustForm>},
    {page_bit::kSave, L"Save", 7, Create<CDlgCustForm>},
    {page_bit::kEmail, L"e-Mail", 8, Create<CDlgCustForm>},
    {page_bit::kProfiles, L"Profiles", kNoIcon, Create<CDlgProfiles>},
    {page_bit::kOptimization, L"Optimization", kNoIcon, Create<CDlgCustForm>},
};

}  // namespace

std::span<const PageRow> PageTable() { return kPages; }

}  // namespace vmk
