#include "resources/ids/overlay.h"

#include "controls/checkbox.h"
#include "controls/edit_text.h"
#include "controls/path_box.h"
#include "controls/radio_group.h"
#include "pages/page.h"
#include "pages/pages.h"

namespace vmk {
namespace {

constexpr UINT kOverlayControls[] = {IDC_OVERLAY_FILE_LABEL,
                                     IDC_OVERLAY_FILE,
                                     IDC_OVERLAY_BROWSE,
                                     IDC_OVERLAY_PASSWORD_LABEL,
                                     IDC_OVERLAY_PASSWORD,
                                     IDC_OVERLAY_FOREGROUND,
                                     IDC_OVERLAY_REPEAT_GROUP,
                                     IDC_OVERLAY_REPEAT_NONE,
                                     IDC_OVERLAY_REPEAT_LAST,
                                     IDC_OVERLAY_REPEAT_ALL,
                                     IDC_OVERLAY_POSITIONS_GROUP,
                                     IDC_OVERLAY_ALIGN_LABEL,
                                     IDC_OVERLAY_HORIZONTAL_LABEL,
                                     IDC_OVERLAY_VERTICAL_LABEL,
                                     IDC_OVERLAY_LEFT,
                                     IDC_OVERLAY_CENTER,
                                     IDC_OVERLAY_RIGHT,
                                     IDC_OVERLAY_TOP,
                                     IDC_OVERLAY_MIDDLE,
                                     IDC_OVERLAY_BOTTOM,
                                     IDC_OVERLAY_FIT,
                                     IDC_OVERLAY_KEEP_ASPECT};

constexpr UINT kFitControls[] = {IDC_OVERLAY_KEEP_ASPECT};

constexpr RadioItem kRepeat[] = {
    {.id = IDC_OVERLAY_REPEAT_NONE, .value = 0},
    {.id = IDC_OVERLAY_REPEAT_LAST, .value = 1},
    {.id = IDC_OVERLAY_REPEAT_ALL, .value = 2},
};
constexpr RadioItem kHorizontal[] = {
    {.id = IDC_OVERLAY_LEFT, .value = 0},
    {.id = IDC_OVERLAY_CENTER, .value = 1},
    {.id = IDC_OVERLAY_RIGHT, .value = 2},
};
constexpr RadioItem kVertical[] = {
    {.id = IDC_OVERLAY_TOP, .value = 0},
    {.id = IDC_OVERLAY_MIDDLE, .value = 1},
    {.id = IDC_OVERLAY_BOTTOM, .value = 2},
};

class CDlgOverlay final : public PageFrom<IDD_OVERLAY> {
    void LoadPage() override;
    bool OnCommand(Command command) override;

    RadioGroup m_repeat;
    RadioGroup m_horizontal;
    RadioGroup m_vertical;
    CMyCheckbox m_enable;
    CMyCheckbox m_fit;
    CMyCheckbox m_keepAspect;
    CMyCheckbox m_foreground;
    CMyEditText m_file;
    CMyEditText m_password;
};

void CDlgOverlay::LoadPage() {
    auto& overlay = settings->Overlay;
    m_repeat.Bind(*this, overlay.Repeat, kRepeat);
    m_horizontal.Bind(*this, overlay.HAlign, kHorizontal, IDC_OVERLAY_CENTER);
    m_vertical.Bind(*this, overlay.VAlign, kVertical, IDC_OVERLAY_MIDDLE);
    m_enable.Bind(*this, IDC_OVERLAY_ENABLE, overlay.Enable, {.ids = kOverlayControls});
    m_fit.Bind(*this, IDC_OVERLAY_FIT, overlay.Fit, {.ids = kFitControls});
    m_keepAspect.Bind(*this, IDC_OVERLAY_KEEP_ASPECT, overlay.KeepAspect);
    m_foreground.Bind(*this, IDC_OVERLAY_FOREGROUND, overlay.Foreground);
    m_file.Bind(*this, IDC_OVERLAY_FILE, overlay.File);
    m_password.Bind(*this, IDC_OVERLAY_PASSWORD, overlay.Password);

    // With the overlay enabled "fit" is checked whatever is stored; what the box shows is stored in the end.
    if (m_enable.IsChecked()) m_fit.SetCheck(true);
    // A real click: it sets the working value, also for a value without a button, and enables Apply.
    ClickItem(m_repeat.Button(IDC_OVERLAY_REPEAT_ALL));
}

bool CDlgOverlay::OnCommand(Command command) {
    if (command.id != IDC_OVERLAY_BROWSE || command.code != BN_CLICKED) return false;
    BrowseForFile(m_file, L"Adobe PDF Files (*.pdf)", L"*.pdf");
    return true;
}

}  // namespace

std::unique_ptr<PageWindow> MakeOverlayPage() {
    return std::make_unique<CDlgOverlay>();
}

}  // namespace vmk
