#pragma once

#include <windows.h>

#include <map>
#include <optional>
#include <string>

// What the tests read in the registry.

namespace vmk::test {

// Everything below a key: "path" for each key itself and "path|value name" for each of its values. Texts as
// they are, numbers in decimal. Empty when the key is missing.
using RegistryContent = std::map<std::wstring, std::wstring>;
RegistryContent ReadTree(HKEY root, const std::wstring& path);

// The entries that registration makes or removes, from HKEY_CLASSES_ROOT.
RegistryContent ReadRegistration();

// Removes those entries, whoever made them.
void WipeRegistration();

// A sub-key of the component's settings that is empty at first and gone afterwards.
class ScratchSettings {
  public:
    explicit ScratchSettings(std::wstring subKey);
    ~ScratchSettings();
    ScratchSettings(const ScratchSettings&) = delete;
    ScratchSettings& operator=(const ScratchSettings&) = delete;

    const std::wstring& SubKey() const noexcept { return m_subKey; }
    // Whether the key is there, and one of its values.
    bool Exists() const;
    std::optional<DWORD> Number(const char* name) const;
    void SetNumber(const char* name, DWORD value) const;

  private:
    std::wstring Path() const;
    std::wstring m_subKey;
};

}  // namespace vmk::test
