#include "resources/ids/general.h"

#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/radio_group.h"
#include "pages/page.h"
#include "pages/pages.h"

namespace vmk {
namespace {

constexpr RadioItem kVersions[] = {
    {.id = IDC_GENERAL_VERSION_13, .value = 3},
    {.id = IDC_GENERAL_VERSION_14, .value = 4},
    {.id = IDC_GENERAL_VERSION_15, .value = 5},
    {.id = IDC_GENERAL_VERSION_16, .value = 6},
};

class CDlgGeneral final : public PageFrom<IDD_GENERAL> {
    void LoadPage() override {
        auto& general = settings->General;
        m_version.Bind(*this, general.PDFSpec, kVersions);
        m_pageLayout.Bind(*this, IDC_GENERAL_PAGE_LAYOUT, general.PageLayout,
                          ChoicesOf("General.PageLayout"));
        m_pageMode.Bind(*this, IDC_GENERAL_PAGE_MODE, general.PageMode, ChoicesOf("General.PageMode"));
        m_hideToolbars.Bind(*this, IDC_GENERAL_HIDE_TOOLBARS, general.VP.HideToolbars);
        m_hideUI.Bind(*this, IDC_GENERAL_HIDE_UI, general.VP.HideUI);
        m_fitWindow.Bind(*this, IDC_GENERAL_FIT_WINDOW, general.VP.Fit);
        m_centerWindow.Bind(*this, IDC_GENERAL_CENTER_WINDOW, general.VP.Center);
        m_showTitle.Bind(*this, IDC_GENERAL_SHOW_TITLE, general.VP.ShowTitle);
        m_hideMenubar.Bind(*this, IDC_GENERAL_HIDE_MENUBAR, general.VP.HideMenubar);
        m_hideMenubar.SetNextFocus(Item(IDC_GENERAL_VERSION_13));
    }

    RadioGroup m_version;
    CMyCombobox m_pageLayout;
    CMyCombobox m_pageMode;
    CMyCheckbox m_hideToolbars;
    CMyCheckbox m_hideUI;
    CMyCheckbox m_fitWindow;
    CMyCheckbox m_centerWindow;
    CMyCheckbox m_showTitle;
    CMyCheckbox m_hideMenubar;
};

}  // namespace

std::unique_ptr<PageWindow> MakeGeneralPage() {
    return std::make_unique<CDlgGeneral>();
}

}  // namespace vmk
