#include "dialog/page_table.h"

#include <algorithm>

#include "pages/pages.h"
#include "settings/groups.h"

namespace vmk {
namespace {

// The page of a group, which does not compile when there is no such group.
consteval PageRow PageOf(PageSet bit, std::unique_ptr<PageWindow> (*create)()) {
    const auto* const group = std::ranges::find(kGroupInfos, bit, &GroupInfo::bit);
    return {.bit = bit, .icon = group->icon, .name = group->name, .create = create};
}

constexpr PageRow kPages[] = {
    PageOf(page_bit::kPaper, MakePaperPage),
    PageOf(page_bit::kCustomForms, MakeCustomFormsPage),
    PageOf(page_bit::kGeneral, MakeGeneralPage),
    PageOf(page_bit::kCompression, MakeCompressionPage),
    PageOf(page_bit::kGraphics, MakeGraphicsPage),
    PageOf(page_bit::kFonts, MakeFontsPage),
    PageOf(page_bit::kWatermarks, MakeWatermarksPage),
    PageOf(page_bit::kOverlay, MakeOverlayPage),
    PageOf(page_bit::kSecurity, MakeSecurityPage),
    PageOf(page_bit::kDigitalSign, MakeDigitalSignaturePage),
    PageOf(page_bit::kLinks, MakeLinksPage),
    PageOf(page_bit::kBookmarks, MakeBookmarksPage),
    PageOf(page_bit::kDocumentInfo, MakeDocumentInfoPage),
    PageOf(page_bit::kSave, MakeSavePage),
    PageOf(page_bit::kEmail, MakeEmailPage),
    PageOf(page_bit::kProfiles, MakeProfilesPage),
    PageOf(page_bit::kOptimization, MakeOptimizationPage),
};

static_assert(std::ranges::all_of(kGroupInfos,
                                  [](const GroupInfo& group) {
                                      return std::ranges::count(kPages, group.bit, &PageRow::bit) == 1;
                                  }),
              "each group has one page");

}  // namespace

std::span<const PageRow> PageTable() {
    return kPages;
}

}  // namespace vmk
