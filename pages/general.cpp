#include "pages/general.h"

#include "resources/ids/general.h"

namespace vmk {
namespace {

using Settings = decltype(PrinterSettings::General);

constexpr RadioItem kVersions[] = {
    {.id = IDC_GENERAL_VERSION_13, .value = 3},
    {.id = IDC_GENERAL_VERSION_14, .value = 4},
    {.id = IDC_GENERAL_VERSION_15, .value = 5},
    {.id = IDC_GENERAL_VERSION_16, .value = 6},
};

constexpr ComboItem kPageLayouts[] = {
    {.value = 0, .text = L"Single Page"},
    {.value = 1, .text = L"One Column"},
    {.value = 2, .text = L"Two Columns Left"},
    {.value = 3, .text = L"Two Columns Right"},
};

constexpr ComboItem kPageModes[] = {
    {.value = 0, .text = L"Show None"},
    {.value = 1, .text = L"Show Bookmarks"},
    {.value = 2, .text = L"Show Thumbnails"},
    {.value = 3, .text = L"Full Screen"},
};

struct ViewerPreference {
    UINT id;
    std::int32_t Settings::ViewerPreferences::*field;
};

constexpr ViewerPreference kViewerPreferences[] = {
    {.id = IDC_GENERAL_HIDE_TOOLBARS, .field = &Settings::ViewerPreferences::HideToolbars},
    {.id = IDC_GENERAL_HIDE_UI, .field = &Settings::ViewerPreferences::HideUI},
    {.id = IDC_GENERAL_FIT_WINDOW, .field = &Settings::ViewerPreferences::Fit},
    {.id = IDC_GENERAL_CENTER_WINDOW, .field = &Settings::ViewerPreferences::Center},
    {.id = IDC_GENERAL_SHOW_TITLE, .field = &Settings::ViewerPreferences::ShowTitle},
    {.id = IDC_GENERAL_HIDE_MENUBAR, .field = &Settings::ViewerPreferences::HideMenubar},
};

}  // namespace

CDlgGeneral::CDlgGeneral() : CPage(IDD_GENERAL) {}

void CDlgGeneral::LoadPage() {
    Settings& group = settings->General;
    m_version.Bind(*this, group.PDFSpec, kVersions);
    m_version.Show();
    m_pageLayout.Bind(*this, IDC_GENERAL_PAGE_LAYOUT, group.PageLayout, kPageLayouts);
    m_pageLayout.Show();
    m_pageMode.Bind(*this, IDC_GENERAL_PAGE_MODE, group.PageMode, kPageModes);
    m_pageMode.Show();
    for (size_t index = 0; index < m_viewerPreferences.size(); ++index) {
        const ViewerPreference& preference = kViewerPreferences[index];
        m_viewerPreferences[index].Bind(*this, preference.id, group.VP.*preference.field);
        m_viewerPreferences[index].Show();
    }
    m_viewerPreferences.back().SetNextFocus(Item(IDC_GENERAL_VERSION_13));
}

void CDlgGeneral::StorePage() {
    m_version.Store();
    m_pageLayout.Store();
    m_pageMode.Store();
    for (CMyCheckbox& preference : m_viewerPreferences) preference.Store();
}

bool CDlgGeneral::OnCommand(Command command) {
    return command.code == BN_CLICKED && m_version.OnClicked(command.id);
}

}  // namespace vmk
