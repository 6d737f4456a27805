#include "controls/dialog_env.h"

#include "language/translator.h"

namespace vmk {

std::wstring CDialogEnv::Translate(std::wstring_view text) const {
    return translator ? translator->TranslateString(text) : std::wstring(text);
}

void CDialogEnv::TranslateWindowTexts(HWND window) const {
    if (translator) translator->TranslateWindow(window, true);
}

void CDialogEnv::TranslateMenuTexts(HMENU menu) const {
    if (translator) translator->TranslateMenu(menu);
}

}  // namespace vmk
