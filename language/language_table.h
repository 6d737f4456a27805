#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "language/language_file.h"

namespace vmk {

/// The translations of one language, found by their source texts. Texts are compared code unit by code unit,
/// so the user's locale plays no part.
class LanguageTable {
  public:
    LanguageTable() = default;

    /// Takes over the file's entries. Of entries with the same source the first one counts.
    explicit LanguageTable(LanguageFile file);

    /// The translation of exactly this text, which lives as long as the table.
    std::optional<std::wstring_view> Find(std::wstring_view source) const;

    std::size_t size() const { return m_rows.size(); }
    bool empty() const { return m_rows.empty(); }

  private:
    std::vector<LanguageEntry> m_rows;   // bucket after bucket
    std::vector<std::size_t> m_begins;   // of each bucket, and where the last one ends
    std::unique_ptr<wchar_t[]> m_texts;  // what the rows point into
};

}  // namespace vmk
