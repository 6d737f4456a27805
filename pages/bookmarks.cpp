#include "resources/ids/bookmarks.h"

#include "controls/checkbox.h"
#include "pages/page.h"
#include "pages/pages.h"

namespace vmk {
namespace {

constexpr UINT kDetectionOptions[] = {IDC_BOOKMARKS_MULTILINE, IDC_BOOKMARKS_MATCH_LEVEL};

class CDlgBookmarks final : public PageFrom<IDD_BOOKMARKS> {
    void LoadPage() override {
        auto& bookmarks = settings->Bookmarks;
        m_print.Bind(*this, IDC_BOOKMARKS_PRINT, bookmarks.Print, {.ids = kDetectionOptions});
        m_multiline.Bind(*this, IDC_BOOKMARKS_MULTILINE, bookmarks.Multiline);
        m_matchLevel.Bind(*this, IDC_BOOKMARKS_MATCH_LEVEL, bookmarks.MatchLevel);
    }

    CMyCheckbox m_print;
    CMyCheckbox m_multiline;
    CMyCheckbox m_matchLevel;
};

}  // namespace

std::unique_ptr<PageWindow> MakeBookmarksPage() {
    return std::make_unique<CDlgBookmarks>();
}

}  // namespace vmk
