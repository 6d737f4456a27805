#include "language/language_table.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <iterator>
#include <numeric>
#include <utility>

namespace vmk {
namespace {

/// Texts of different lengths, which most are, are told apart without looking at them.
bool SourceLess(const LanguageEntry& a, const LanguageEntry& b) {
    if (a.source.size() != b.source.size()) return a.source.size() < b.source.size();
    return a.source < b.source;
}
bool SourceEqual(const LanguageEntry& a, const LanguageEntry& b) {
    return a.source == b.source;
}

/// Of so many buckets, which are a power of two.
std::size_t BucketOf(std::wstring_view source, std::size_t buckets) {
    return std::hash<std::wstring_view>{}(source) & (buckets - 1);
}

}  // namespace

LanguageTable::LanguageTable(LanguageFile file)
    : m_rows(std::move(file.entries)),
      m_begins(std::bit_ceil(m_rows.size()) + 1),
      m_texts(std::move(file.texts)) {
    std::vector<std::size_t> buckets;
    buckets.reserve(m_rows.size());
    for (const LanguageEntry& row : m_rows) buckets.push_back(BucketOf(row.source, m_begins.size() - 1));

    // First where each bucket ends; filling it from behind makes that its beginning.
    for (const std::size_t bucket : buckets) ++m_begins[bucket];
    std::partial_sum(m_begins.begin(), m_begins.end(), m_begins.begin());
    std::vector<LanguageEntry> rows(m_rows.size());
    for (std::size_t i = rows.size(); i-- > 0;) rows[--m_begins[buckets[i]]] = m_rows[i];

    auto begin = rows.begin();
    auto taken = m_rows.begin();
    for (std::size_t bucket = 0; bucket + 1 < m_begins.size(); ++bucket) {
        const auto end = rows.begin() + static_cast<std::ptrdiff_t>(m_begins[bucket + 1]);
        if (end - begin > 1) std::stable_sort(begin, end, SourceLess);
        m_begins[bucket] = static_cast<std::size_t>(taken - m_rows.begin());
        taken = std::unique_copy(begin, end, taken, SourceEqual);
        begin = end;
    }
    m_begins.back() = static_cast<std::size_t>(taken - m_rows.begin());
    m_rows.erase(taken, m_rows.end());
}

std::optional<std::wstring_view> LanguageTable::Find(std::wstring_view source) const {
    if (m_rows.empty()) return {};
    const std::size_t bucket = BucketOf(source, m_begins.size() - 1);
    const auto begin = m_rows.begin() + static_cast<std::ptrdiff_t>(m_begins[bucket]);
    const auto end = m_rows.begin() + static_cast<std::ptrdiff_t>(m_begins[bucket + 1]);
    const auto row = std::lower_bound(begin, end, LanguageEntry{source, {}}, SourceLess);
    if (row == end || row->source != source) return {};
    return row->translation;
}

}  // namespace vmk
