#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "host/document.h"

namespace vmk {

// What a host reads from a key; nothing when there is no such key. Throws Failure when it cannot be opened.
std::optional<Document> ReadSettings(const std::wstring& subKey);

// The same; throws Failure when there is no such key.
Document RequireSettings(const std::wstring& subKey);

// The keys that hold at least one setting, by their sub-keys, in order. That of the root key is empty.
std::vector<std::wstring> KeysWithSettings();

// Changes of keys that are all made or none: what is not committed is taken back. Every change throws Failure
// when the registry refuses it.
class SettingsChange {
  public:
    SettingsChange();
    ~SettingsChange();
    SettingsChange(const SettingsChange&) = delete;
    SettingsChange& operator=(const SettingsChange&) = delete;

    // Stores the settings in a key, which is made when it is missing.
    void Store(const Document& document, const std::wstring& subKey);
    // Makes every setting of a key the same as in another one, damaged and missing values included.
    void Copy(const std::wstring& from, const std::wstring& to);
    void Commit() { m_committed = true; }

  private:
    struct Before;

    void MakeKey(const std::string& path);
    void Remember(HKEY key, const std::string& path, const char* name);
    void TakeBack() noexcept;

    std::vector<Before> m_before;
    std::vector<std::string> m_made;  // paths of keys, outer before inner ones
    bool m_committed = false;
};

}  // namespace vmk
