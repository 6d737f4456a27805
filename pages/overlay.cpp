#include "pages/overlay.h"

#include "controls/path_box.h"
#include "resources/ids/overlay.h"

namespace vmk {
namespace {

constexpr UINT kOverlayControls[] = {
    IDC_OVERLAY_FILE_LABEL,
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
    IDC_OVERLAY_KEEP_ASPECT,
};

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

}  // namespace

CDlgOverlay::CDlgOverlay() : CPage(IDD_OVERLAY) {}

void CDlgOverlay::LoadPage() {
    m_enable.Bind(*this, IDC_OVERLAY_ENABLE, settings->Overlay.Enable, {.ids = kOverlayControls});
    m_file.Bind(*this, IDC_OVERLAY_FILE, settings->Overlay.File);
    m_password.Bind(*this, IDC_OVERLAY_PASSWORD, settings->Overlay.Password);
    m_foreground.Bind(*this, IDC_OVERLAY_FOREGROUND, settings->Overlay.Foreground);
    m_fit.Bind(*this, IDC_OVERLAY_FIT, settings->Overlay.Fit, {.ids = kFitControls});
    m_keepAspect.Bind(*this, IDC_OVERLAY_KEEP_ASPECT, settings->Overlay.KeepAspect);
    m_repeat.Bind(*this, settings->Overlay.Repeat, kRepeat);
    m_horizontal.Bind(*this, settings->Overlay.HAlign, kHorizontal);
    m_vertical.Bind(*this, settings->Overlay.VAlign, kVertical);

    ShowFlags();
    ShowChoices();
}

// With the overlay enabled "fit" is checked whatever is stored; what the box shows is stored in the end.
void CDlgOverlay::ShowFlags() {
    m_foreground.Show();
    m_keepAspect.Show();
    m_fit.Show();
    m_enable.Show();
    if (m_enable.IsChecked()) m_fit.SetCheck(true);
}

void CDlgOverlay::ShowChoices() {
    // A real click: it sets the working value, also for a value without a button, and enables Apply.
    ClickItem(m_repeat.Button(IDC_OVERLAY_REPEAT_ALL));
    m_horizontal.Show(IDC_OVERLAY_CENTER);
    m_vertical.Show(IDC_OVERLAY_MIDDLE);
}

void CDlgOverlay::StorePage() {
    m_repeat.Store();
    m_horizontal.Store();
    m_vertical.Store();
    m_enable.Store();
    m_fit.Store();
    m_keepAspect.Store();
    m_foreground.Store();
    m_file.Store();
    m_password.Store();
}

bool CDlgOverlay::OnCommand(Command command) {
    if (command.code != BN_CLICKED) return false;
    if (command.id == IDC_OVERLAY_ENABLE) {
        OnEnableClicked();
        return true;
    }
    if (command.id == IDC_OVERLAY_BROWSE) {
        BrowseForFile(m_file, L"Adobe PDF Files (*.pdf)", L"*.pdf");
        return true;
    }
    return m_repeat.OnClicked(command.id) || m_horizontal.OnClicked(command.id) ||
           m_vertical.OnClicked(command.id);
}

void CDlgOverlay::OnEnableClicked() {
    m_enable.ReapplyDependents();
    if (m_enable.IsChecked()) m_fit.ReapplyDependents();
    EnableApply();
}

}  // namespace vmk
