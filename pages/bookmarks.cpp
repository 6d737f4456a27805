#include "pages/bookmarks.h"

#include "resources/ids/bookmarks.h"

namespace vmk {

CDlgBookmarks::CDlgBookmarks() : CPage(IDD_BOOKMARKS) {}

void CDlgBookmarks::LoadPage() {}

void CDlgBookmarks::StorePage() {}

}  // namespace vmk
