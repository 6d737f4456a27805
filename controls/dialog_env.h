#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "settings/page_set.h"
#include "settings/printer_settings.h"

namespace vmk {

class Translator;

// What every dialog, page and bound control carries: the services and state of the one preferences dialog
// that it is part of. All of it is borrowed; the main dialog outlives whatever it hands this to.
struct CDialogEnv {
    Translator* translator = nullptr;
    PrinterSettings* settings = nullptr;
    HWND applyButton = nullptr;  // enabled means: there are changes that are not applied yet
    PageSet pageSet = 0;         // the pages to list; used by the navigator only
    std::int32_t bound = 0;      // 1 once the owner has filled this in

    // The environment for something that this owner creates.
    CDialogEnv ForChild() const {
        return {.translator = translator,
                .settings = settings,
                .applyButton = applyButton,
                .pageSet = 0,
                .bound = 1};
    }

    void EnableApply() const { EnableWindow(applyButton, TRUE); }
    bool IsApplyEnabled() const { return IsWindowEnabled(applyButton) != FALSE; }

    std::wstring Translate(std::wstring_view text) const;
    // Translates a window with everything in it.
    void TranslateWindowTexts(HWND window) const;
    // Translates the items of a menu, those of its submenus included.
    void TranslateMenuTexts(HMENU menu) const;
};

// Controls report whatever they are made to show as a change. While this lives, such reports do not count:
// Apply is in the end as it was before.
class NoChangeByUser {
  public:
    explicit NoChangeByUser(const CDialogEnv& env) noexcept
        : m_applyButton(env.applyButton), m_wasEnabled(env.IsApplyEnabled()) {}
    ~NoChangeByUser() { EnableWindow(m_applyButton, m_wasEnabled); }
    NoChangeByUser(const NoChangeByUser&) = delete;
    NoChangeByUser& operator=(const NoChangeByUser&) = delete;

  private:
    HWND m_applyButton;
    bool m_wasEnabled;
};

}  // namespace vmk
