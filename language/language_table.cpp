#include "language/language_table.h"

#include <algorithm>

namespace vmk {
namespace {

bool SourceLess(const LanguageEntry& a, const LanguageEntry& b) {
    return a.source < b.source;
}
bool SourceEqual(const LanguageEntry& a, const LanguageEntry& b) {
    return a.source == b.source;
}

}  // namespace

LanguageTable::LanguageTable(std::span<const LanguageEntry> entries)
    : m_rows(entries.begin(), entries.end()) {
    std::stable_sort(m_rows.begin(), m_rows.end(), SourceLess);
    m_rows.erase(std::unique(m_rows.begin(), m_rows.end(), SourceEqual), m_rows.end());

    std::size_t length = 0;
    for (const LanguageEntry& row : m_rows) length += row.source.size() + row.translation.size();
    m_texts = std::make_unique_for_overwrite<wchar_t[]>(length);

    wchar_t* next = m_texts.get();
    const auto keep = [&next](std::wstring_view& text) {
        wchar_t* const begin = next;
        next = std::copy(text.begin(), text.end(), begin);
        text = {begin, next};
    };
    // All sources side by side, in order: a search touches few cache lines.
    for (LanguageEntry& row : m_rows) keep(row.source);
    for (LanguageEntry& row : m_rows) keep(row.translation);
}

std::optional<std::wstring_view> LanguageTable::Find(std::wstring_view source) const {
    const auto row = std::lower_bound(m_rows.begin(), m_rows.end(), LanguageEntry{source, {}}, SourceLess);
    if (row == m_rows.end() || row->source != source) return {};
    return row->translation;
}

}  // namespace vmk
