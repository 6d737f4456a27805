#include "dialog/page_table.h"

#include "pages/bookmarks.h"
#include "pages/compression.h"
#include "pages/digital_signature.h"
#include "pages/document_info.h"
#include "pages/email.h"
#include "pages/fonts.h"
#include "pages/general.h"
#include "pages/graphics.h"
#include "pages/links.h"
#include "pages/optimization.h"
#include "pages/overlay.h"
#include "pages/paper.h"
#include "pages/placeholder.h"
#include "pages/save.h"
#include "pages/security.h"
#include "pages/watermarks.h"

namespace vmk {
namespace {

template <typename Page>
std::unique_ptr<PageWindow> Create() {
    return std::make_unique<Page>();
}

constexpr int kNoIcon = PageRow::kNoIcon;

constexpr PageRow kPages[] = {
    {page_bit::kPaper, L"Paper", 1, Create<CDlgPaper>},
    {page_bit::kCustomForms, L"Custom Forms", 2, Create<CDlgCustForm>},
    {page_bit::kGeneral, L"General", kNoIcon, Create<CDlgGeneral>},
    {page_bit::kCompression, L"Compression", kNoIcon, Create<CDlgCompression>},
    {page_bit::kGraphics, L"Graphics", 6, Create<CDlgGraphics>},
    {page_bit::kFonts, L"Fonts", 5, Create<CDlgFonts>},
    {page_bit::kWatermarks, L"Watermarks", kNoIcon, Create<CDlgWatermarks>},
    {page_bit::kOverlay, L"Overlay", kNoIcon, Create<CDlgOverlay>},
    {page_bit::kSecurity, L"Security", 3, Create<CDlgSecurity>},
    {page_bit::kDigitalSign, L"Digital Signature", kNoIcon, Create<CDlgDigSign>},
    {page_bit::kLinks, L"Links", 4, Create<CDlgLinks>},
    {page_bit::kBookmarks, L"Bookmarks", kNoIcon, Create<CDlgBookmarks>},
    {page_bit::kDocumentInfo, L"Document Info", kNoIcon, Create<CDlgDocInfo>},
    {page_bit::kSave, L"Save", 7, Create<CDlgSave>},
    {page_bit::kEmail, L"e-Mail", 8, Create<CDlgEMail>},
    {page_bit::kProfiles, L"Profiles", kNoIcon, Create<CDlgProfiles>},
    {page_bit::kOptimization, L"Optimization", kNoIcon, Create<CDlgOptimization>},
};

}  // namespace

std::span<const PageRow> PageTable() {
    return kPages;
}

}  // namespace vmk
