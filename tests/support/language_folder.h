#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "tests/support/language_files.h"

// The dialog's language files, where it looks for them:
//
//     const LanguageFolder german({{L"OK", L"Gut"}, {L"Cancel", L"Abbrechen"}});
//     const LiveDialog dialog({.language = kGerman});
//     EXPECT_EQ(dialog.Main().Text(IDOK), L"Gut");

namespace vmk::test {

inline constexpr LANGID kGerman = 0x0407;

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

// Language files whose folder is configured.
class LanguageFolder : public LanguageFiles {
  public:
    LanguageFolder() : m_configured(NarrowPath()) {}
    // With one file, language.vlf.
    explicit LanguageFolder(const Translations& entries, std::uint32_t langid = kGerman) : LanguageFolder() {
        WriteTranslations(L"language.vlf", langid, entries);
    }

  private:
    ConfiguredLanguageFolder m_configured;
};

}  // namespace vmk::test
