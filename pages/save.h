#pragma once

#include <array>
#include <string>

#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/edit_double.h"
#include "controls/edit_text.h"
#include "controls/radio_button.h"
#include "framework/menu.h"
#include "pages/page.h"

namespace vmk {

// Chooses where the file goes, how it is named, what happens when it exists already, and which application is
// started on it.
class CDlgSave final : public CPage {
  public:
    CDlgSave();

  private:
    void LoadPage() override;
    void StorePage() override;
    bool OnCommand(Command command) override;
    std::span<const Spin> Spins() override { return m_spins; }

    void BindTarget();
    void BindApplication();
    void ShowTarget();
    void ShowApplication();
    void OnRunClicked();
    void ClickChosenApplication() const;
    void AppendMacro();
    UINT AskForMacro() const;

    CMyRadioButton m_ask;
    CMyRadioButton m_predefined;
    CMyCheckbox m_sameFolder;
    CMyEditText m_folder;
    CMyEditText m_fileName;
    CMyCombobox m_whenExists;
    CMyEditDouble m_start;
    CMyEditDouble m_digits;
    CMyCheckbox m_run;
    CMyRadioButton m_defaultApplication;
    CMyRadioButton m_givenApplication;
    CMyEditText m_application;
    CMyEditText m_parameters;

    // What the number boxes edit; the settings hold whole numbers.
    double m_startNumber = 0.0;
    double m_digitsNumber = 0.0;

    std::array<Spin, 2> m_spins;
    UniqueMenu m_macros;  // goes before the controls do
};

}  // namespace vmk
