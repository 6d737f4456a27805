#include "pages/overlay.h"

#include <algorithm>
#include <iterator>

#include "controls/file_dialog.h"
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

// The buttons of a group, at the position that is their value.
constexpr UINT kRepeatButtons[] = {IDC_OVERLAY_REPEAT_NONE, IDC_OVERLAY_REPEAT_LAST, IDC_OVERLAY_REPEAT_ALL};
constexpr UINT kHorizontalButtons[] = {IDC_OVERLAY_LEFT, IDC_OVERLAY_CENTER, IDC_OVERLAY_RIGHT};
constexpr UINT kVerticalButtons[] = {IDC_OVERLAY_TOP, IDC_OVERLAY_MIDDLE, IDC_OVERLAY_BOTTOM};

// The button that shows a value; `other` for a value without a button.
UINT ButtonFor(std::span<const UINT> buttons, std::int32_t value, UINT other) {
    return value >= 0 && static_cast<size_t>(value) < buttons.size() ? buttons[static_cast<size_t>(value)]
                                                                     : other;
}

// Takes over a button's value if the button belongs to the group.
bool TakeValue(std::span<const UINT> buttons, UINT clicked, std::int32_t& value) {
    const auto found = std::ranges::find(buttons, clicked);
    if (found == buttons.end()) return false;
    value = static_cast<std::int32_t>(std::distance(buttons.begin(), found));
    return true;
}

}  // namespace

CDlgOverlay::CDlgOverlay() : CPage(IDD_OVERLAY) {}

void CDlgOverlay::LoadPage() {
    m_enable.Bind(*this, IDC_OVERLAY_ENABLE, settings->Overlay.Enable, {.ids = kOverlayControls});
    m_file.Bind(*this, IDC_OVERLAY_FILE, settings->Overlay.File);
    m_password.Bind(*this, IDC_OVERLAY_PASSWORD, settings->Overlay.Password);
    m_foreground.Bind(*this, IDC_OVERLAY_FOREGROUND, settings->Overlay.Foreground);
    m_fit.Bind(*this, IDC_OVERLAY_FIT, settings->Overlay.Fit, {.ids = kFitControls});
    m_keepAspect.Bind(*this, IDC_OVERLAY_KEEP_ASPECT, settings->Overlay.KeepAspect);

    m_file.Show();
    m_password.Show();
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
    // A real click: its handler sets the working copy and enables Apply.
    ClickItem(ButtonFor(kRepeatButtons, settings->Overlay.Repeat, IDC_OVERLAY_REPEAT_ALL));
    m_horizontal = settings->Overlay.HAlign;
    CheckItem(ButtonFor(kHorizontalButtons, m_horizontal, IDC_OVERLAY_CENTER), true);
    m_vertical = settings->Overlay.VAlign;
    CheckItem(ButtonFor(kVerticalButtons, m_vertical, IDC_OVERLAY_MIDDLE), true);
}

void CDlgOverlay::StorePage() {
    settings->Overlay.Repeat = m_repeat;
    settings->Overlay.HAlign = m_horizontal;
    settings->Overlay.VAlign = m_vertical;
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
        BrowseFile();
        return true;
    }
    if (TakeValue(kRepeatButtons, command.id, m_repeat) ||
        TakeValue(kHorizontalButtons, command.id, m_horizontal) ||
        TakeValue(kVerticalButtons, command.id, m_vertical)) {
        EnableApply();
        return true;
    }
    return false;
}

void CDlgOverlay::OnEnableClicked() {
    m_enable.ReapplyDependents();
    if (m_enable.IsChecked()) m_fit.ReapplyDependents();
    EnableApply();
}

void CDlgOverlay::BrowseFile() {
    const auto chosen =
        ChooseFile(GetActiveWindow(),
                   {.filters = {{.text = Translate(L"Adobe PDF Files (*.pdf)"), .patterns = L"*.pdf"}},
                    .defaultExtension = L"*.pdf",
                    .initialPath = m_file.Text()});
    if (!chosen) return;
    m_file.SetText(*chosen);
    EnableApply();
}

}  // namespace vmk
