#include "pages/document_info.h"

#include "resources/ids/document_info.h"

namespace vmk {

CDlgDocInfo::CDlgDocInfo() : CPage(IDD_DOCUMENT_INFO) {}

void CDlgDocInfo::LoadPage() {}

void CDlgDocInfo::StorePage() {}

}  // namespace vmk
