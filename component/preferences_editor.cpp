#include "component/preferences_editor.h"

#include <new>

#include "dialog/preferences_dialog.h"
#include "settings/all_or_nothing.h"
#include "settings/passwords.h"
#include "settings/reset.h"
#include "settings/settings_key.h"

namespace vmk {
namespace {

class Raised {
  public:
    explicit Raised(bool& flag) noexcept : m_flag(flag) { m_flag = true; }
    ~Raised() { m_flag = false; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;

  private:
    bool& m_flag;
};

}  // namespace

PreferencesEditor::~PreferencesEditor() {
    WipePasswords(m_settings);
}

void PreferencesEditor::UseDefaults(PageSet groups) {
    AllOrNothing(m_settings, [&] { ResetToDefaults(m_settings, groups); });
}

void PreferencesEditor::Load(PageSet groups, const wchar_t* subKey) {
    AllOrNothing(m_settings, [&] { LoadFromRegistry(groups, subKey, m_settings); });
}

void PreferencesEditor::Store(PageSet groups, const wchar_t* subKey) const {
    StoreToRegistry(groups, subKey, m_settings);
}

LONG PreferencesEditor::RunDialog(LANGID language) noexcept {
    if (m_open) return kNoDialog;
    const Raised open(m_open);
    try {
        const INT_PTR result =
            RunPreferencesDialog(m_settings, {.language = language, .pages = m_pages, .title = m_title});
        return static_cast<LONG>(result);
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_OUTOFMEMORY);
    } catch (...) {
        SetLastError(ERROR_INTERNAL_ERROR);
    }
    return kNoDialog;
}

}  // namespace vmk
