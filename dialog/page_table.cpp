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
    {page_bit::kPaper, 1, L"Paper", Create<CDlgPaper>},
    {page_bit::kCustomForms, 2, L"Custom Forms", Create<CDlgCustForm>},
    {page_bit::kGeneral, kNoIcon, L"General", Create<CDlgGeneral>},
    {page_bit::kCompression, kNoIcon, L"Compression", Create<CDlgCompression>},
    {page_bit::kGraphics, 6, L"Graphics", Create<CDlgGraphics>},
    {page_bit::kFonts, 5, L"Fonts", Create<CDlgFonts>},
    {page_bit::kWatermarks, kNoIcon, L"Watermarks", Create<CDlgWatermarks>},
    {page_bit::kOverlay, kNoIcon, L"Overlay", Create<CDlgOverlay>},
    {page_bit::kSecurity, 3, L"Security", Create<CDlgSecurity>},
    {page_bit::kDigitalSign, kNoIcon, L"Digital Signature", Create<CDlgDigSign>},
    {page_bit::kLinks, 4, L"Links", Create<CDlgLinks>},
    {page_bit::kBookmarks, kNoIcon, L"Bookmarks", Create<CDlgBookmarks>},
    {page_bit::kDocumentInfo, kNoIcon, L"Document Info", Create<CDlgDocInfo>},
    {page_bit::kSave, 7, L"Save", Create<CDlgSave>},
    {page_bit::kEmail, 8, L"e-Mail", Create<CDlgEMail>},
    {page_bit::kProfiles, kNoIcon, L"Profiles", Create<CDlgProfiles>},
    {page_bit::kOptimization, kNoIcon, L"Optimization", Create<CDlgOptimization>},
};

}  // namespace

std::span<const PageRow> PageTable() {
    return kPages;
}

}  // namespace vmk
