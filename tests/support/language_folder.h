#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vmk::test {

// The configured folder of the language files (VLF_PATH of this machine) as long as the object lives; what
// was configured before comes back afterwards.
class ConfiguredLanguageFolder {
  public:
    // `type`: REG_SZ or REG_EXPAND_SZ.
    explicit ConfiguredLanguageFolder(std::string_view ansiPath, DWORD type = REG_SZ);
    ~ConfiguredLanguageFolder();
    ConfiguredLanguageFolder(const ConfiguredLanguageFolder&) = delete;
    ConfiguredLanguageFolder& operator=(const ConfiguredLanguageFolder&) = delete;

  private:
    bool m_wasSet = false;
    std::string m_previous;
};

// English text and its translation.
using Translations = std::vector<std::pair<std::wstring, std::wstring>>;

// A configured folder with language files of this component; the files are deleted at the end.
class LanguageFolder {
  public:
    LanguageFolder();
    explicit LanguageFolder(const Translations& entries, std::uint32_t langid = 0x0407);
    ~LanguageFolder();
    LanguageFolder(const LanguageFolder&) = delete;
    LanguageFolder& operator=(const LanguageFolder&) = delete;

    const std::wstring& Path() const { return m_path; }
    void AddFile(const std::wstring& name, std::uint32_t langid, const Translations& entries) const;

  private:
    std::wstring m_path;
    ConfiguredLanguageFolder m_configured;
};

}  // namespace vmk::test
