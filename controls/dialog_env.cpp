#include "controls/dialog_env.h"

#include "language/translator.h"

namespace vmk {

std::wstring CDialogEnv::Translate(std::wstring_view text) const {
    return translator ? translator->TranslateString(text) : std::wstring(text);
}

void CDialogEnv::TranslateWindowTexts(HWND window) const {
    // Without a language each text would only be set again as it is.
    if (translator && translator->HasLanguage()) translator->TranslateWindow(window, true);
}

void CDialogEnv::TranslateMenuTexts(HMENU menu) const {
    if (translator) translator->TranslateMenu(menu);
}

}  // namespace vmk
