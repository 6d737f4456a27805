#include <windows.h>

#include "framework/dialog.h"
#include "pages/pages.h"
#include "resources/ids/main.h"

namespace vmk {
namespace {

// A page that is listed but has no content: an empty dialog that handles nothing.
class PlaceholderPage final : public PageWindow, public Dialog {
  public:
    explicit PlaceholderPage(UINT templateId) : m_templateId(templateId) {}

    HWND CreatePage(const CDialogEnv& /*env*/, HWND frame) override { return Create(m_templateId, frame); }

  private:
    std::optional<LRESULT> ProcessWindowMessage(HWND /*hwnd*/, UINT /*msg*/, WPARAM /*wParam*/,
                                                LPARAM /*lParam*/) override {
        return std::nullopt;
    }

    UINT m_templateId;
};

}  // namespace

std::unique_ptr<PageWindow> MakeCustomFormsPage() {
    return std::make_unique<PlaceholderPage>(IDD_CUSTOM_FORMS);
}

std::unique_ptr<PageWindow> MakeProfilesPage() {
    return std::make_unique<PlaceholderPage>(IDD_PROFILES);
}

}  // namespace vmk
