#pragma once

#include <windows.h>

#include <string_view>

#include "controls/dialog_env.h"
#include "framework/menu.h"

namespace vmk {

// The menu of the macros that a file name may have, which is made of the module's resource.
class FileNameMacros {
  public:
    FileNameMacros();

    // Shows the menu below a button, in the language of the dialog. The text of the chosen macro, empty for
    // none.
    std::wstring_view Ask(const CDialogEnv& env, HWND button) const;

  private:
    UniqueMenu m_menu;
};

}  // namespace vmk
