#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "settings/page_set.h"
#include "settings/printer_settings.h"

namespace vmk {

// What the component does, without COM: one settings record, and the pages and the caption of the dialog that
// edits it. Belongs to one thread.
class PreferencesEditor {
  public:
    // No longer caption reaches the dialog, in characters.
    static constexpr std::size_t kLongestTitle = 255;

    // What RunDialog returns when there is no dialog to run.
    static constexpr LONG kNoDialog = -1;

    PreferencesEditor() = default;
    PreferencesEditor(const PreferencesEditor&) = delete;
    PreferencesEditor& operator=(const PreferencesEditor&) = delete;
    // Overwrites the record's passwords, so that they are not found in freed memory.
    ~PreferencesEditor();

    void EnablePages(PageSet pages) noexcept { m_pages |= pages; }
    void DisablePages(PageSet pages) noexcept { m_pages &= ~pages; }

    // A longer title is cut; an empty one keeps the dialog's own caption. Throws std::bad_alloc.
    void SetTitle(std::wstring_view title) { m_title = title.substr(0, kLongestTitle); }

    // Throws std::bad_alloc; the record is then as it was.
    void UseDefaults(PageSet groups);

    // The sub-key may be null, for the root key. A registry that cannot be read or written is no failure.
    // Throw std::bad_alloc; after Load the record is then as it was.
    void Load(PageSet groups, const wchar_t* subKey);
    void Store(PageSet groups, const wchar_t* subKey) const;

    // Runs the modal dialog on the record: IDOK, IDCANCEL, what the host ended it with, or kNoDialog when it
    // cannot be created, with the thread's last error set, and when it is open already.
    LONG RunDialog(LANGID language) noexcept;

  private:
    PrinterSettings m_settings;
    PageSet m_pages = 0;
    std::wstring m_title;
    bool m_open = false;
};

}  // namespace vmk
