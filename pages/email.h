#pragma once

#include "controls/checkbox.h"
#include "controls/combobox.h"
#include "controls/edit_text.h"
#include "pages/page.h"

namespace vmk {

// Chooses whether and how the document is sent by e-mail, and with which message. Unlike the other pages it
// writes what it shows also when nothing was changed, and when the dialog is cancelled.
class CDlgEMail final : public CPage {
  public:
    CDlgEMail();

  private:
    void LoadPage() override;
    void StorePage() override;
    bool StoresAlways() const override { return true; }
    bool OnCommand(Command command) override;

    void ShowContent();
    void EditServer();

    CMyCombobox m_method;
    CMyCheckbox m_zip;
    CMyEditText m_from;
    CMyEditText m_to;
    CMyEditText m_cc;
    CMyEditText m_subject;
    CMyEditText m_server;
};

}  // namespace vmk
