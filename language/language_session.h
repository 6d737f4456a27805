#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "language/language_file.h"
#include "language/language_table.h"

namespace vmk {

/// One language found in the folder of a session.
struct LanguageRecord {
    std::string file;  ///< ANSI path: the session's folder and the file's name
    LanguageHeader header;
    std::string langname;  ///< header.langname in the system's ANSI code page
    LanguageTable table;   ///< empty unless the language is selected
};

/// The languages that a folder of "*.vlf" files offers for one product, and the selected one among them.
class LanguageSession {
  public:
    /// Scans the folder (ANSI path). Files that cannot be read, belong to another product or lack a language
    /// identifier are passed over silently; of several files for one language the first one found is taken.
    /// An empty folder stands for the path of the host's executable file, in which nothing is ever found.
    /// The product is kept as the text field of 64 characters that it is: 63 of them and a terminator.
    LanguageSession(std::string folder, std::wstring_view product);

    /// Selects the language with exactly this identifier, all 32 bits. False when there is none; the
    /// selection then stays as it was.
    bool SelectLanguage(std::uint32_t langid);

    /// The translation of exactly this text, valid as long as the language stays selected, or else the
    /// argument.
    std::wstring_view TranslateString(std::wstring_view text) const;

    /// The folder that was searched, ending with a backslash.
    const std::string& Folder() const { return m_folder; }

    /// The languages in the order in which their files were found.
    const std::vector<LanguageRecord>& Languages() const { return m_languages; }

    /// Index of the selected language in Languages(), -1 when none is selected.
    std::int32_t Current() const { return m_current; }

  private:
    void Scan();
    void Accept(std::string file);

    std::string m_folder;
    std::wstring m_product;
    std::vector<LanguageRecord> m_languages;
    std::int32_t m_current = -1;
};

}  // namespace vmk
