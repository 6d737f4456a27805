#include "pages/save.h"

#include "resources/ids/save.h"

namespace vmk {

CDlgSave::CDlgSave() : CPage(IDD_SAVE) {}

void CDlgSave::LoadPage() {}

void CDlgSave::StorePage() {}

}  // namespace vmk
