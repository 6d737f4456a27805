#include "pages/bookmarks.h"

#include "resources/ids/bookmarks.h"

namespace vmk {
namespace {

constexpr UINT kDetectionOptions[] = {IDC_BOOKMARKS_MULTILINE, IDC_BOOKMARKS_MATCH_LEVEL};

}  // namespace

CDlgBookmarks::CDlgBookmarks() : CPage(IDD_BOOKMARKS) {}

void CDlgBookmarks::LoadPage() {
    PrinterSettings::BookmarksGroup& bookmarks = settings->Bookmarks;
    m_print.Bind(*this, IDC_BOOKMARKS_PRINT, bookmarks.Print, {.ids = kDetectionOptions});
    m_multiline.Bind(*this, IDC_BOOKMARKS_MULTILINE, bookmarks.Multiline);
    m_matchLevel.Bind(*this, IDC_BOOKMARKS_MATCH_LEVEL, bookmarks.MatchLevel);
    m_print.Show();
    m_multiline.Show();
    m_matchLevel.Show();
}

void CDlgBookmarks::StorePage() {
    m_print.Store();
    m_multiline.Store();
    m_matchLevel.Store();
}

}  // namespace vmk
