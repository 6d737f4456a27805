#include "language/language_table.h"

#include <algorithm>
#include <utility>

namespace vmk {
namespace {

bool SourceLess(const LanguageEntry& a, const LanguageEntry& b) {
    return a.source < b.source;
}
bool SourceEqual(const LanguageEntry& a, const LanguageEntry& b) {
    return a.source == b.source;
}

}  // namespace

LanguageTable::LanguageTable(LanguageFile file)
    : m_rows(std::move(file.entries)), m_texts(std::move(file.texts)) {
    std::stable_sort(m_rows.begin(), m_rows.end(), SourceLess);
    m_rows.erase(std::unique(m_rows.begin(), m_rows.end(), SourceEqual), m_rows.end());
}

std::optional<std::wstring_view> LanguageTable::Find(std::wstring_view source) const {
    const auto row = std::lower_bound(m_rows.begin(), m_rows.end(), LanguageEntry{source, {}}, SourceLess);
    if (row == m_rows.end() || row->source != source) return {};
    return row->translation;
}

}  // namespace vmk
