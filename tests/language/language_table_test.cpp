#include "language/language_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/utf16_bytes.h"

namespace vmk::test {
namespace {

/// A table of texts that live elsewhere.
LanguageTable TableOf(const std::vector<LanguageEntry>& entries) {
    LanguageFile file;
    file.entries = entries;
    return LanguageTable(std::move(file));
}

std::wstring Translated(const LanguageTable& table, std::wstring_view source) {
    return std::wstring(table.Find(source).value_or(L"<none>"));
}

TEST(LanguageTable, EmptyTableFindsNothing) {
    const LanguageTable table;
    EXPECT_TRUE(table.empty());
    EXPECT_FALSE(table.Find(L""));
    EXPECT_FALSE(table.Find(L"OK"));
}

TEST(LanguageTable, TextsAreFoundWhateverTheirOrder) {
    const std::vector<LanguageEntry> entries = {{L"b", L"2"}, {L"ab", L"3"}, {L"a", L"1"}, {L"abc", L"4"}};
    const LanguageTable table = TableOf(entries);
    EXPECT_EQ(table.size(), 4U);
    for (const LanguageEntry& entry : entries) EXPECT_EQ(table.Find(entry.source), entry.translation);
}

TEST(LanguageTable, FirstOfSeveralEntriesWithOneSourceCounts) {
    const std::vector<LanguageEntry> entries = {
        {L"b", L"1"}, {L"a", L"2"}, {L"b", L"3"}, {L"b", L"4"}, {L"a", L"5"}};
    const LanguageTable table = TableOf(entries);
    EXPECT_EQ(table.size(), 2U);
    EXPECT_EQ(Translated(table, L"a"), L"2");
    EXPECT_EQ(Translated(table, L"b"), L"1");
}

TEST(LanguageTable, OnlyTheWholeTextInItsCaseIsFound) {
    const std::vector<LanguageEntry> entries = {{L"None ", L"Keine"}, {L"Stra\u00DFe", L"street"}};
    const LanguageTable table = TableOf(entries);
    EXPECT_EQ(Translated(table, L"None "), L"Keine");
    for (const wchar_t* other :
         {L"None", L"none ", L"NONE ", L"None  ", L" None ", L"N", L"Strasse", L"STRASSE", L""})
        EXPECT_EQ(Translated(table, other), L"<none>");
}

TEST(LanguageTable, TextsThatALocaleTakesForEqualAreDifferent) {
    // The two spellings of an umlaut, a soft hyphen, a zero-width joiner, half and full width.
    const std::vector<LanguageEntry> entries = {
        {L"\u00E4", L"1"},     {L"a\u0308", L"2"},    {L"co-op", L"3"},  {L"coop", L"4"},
        {L"co\u00ADop", L"5"}, {L"co\u200Dop", L"6"}, {L"\uFF21", L"7"}, {L"A", L"8"}};
    const LanguageTable table = TableOf(entries);
    EXPECT_EQ(table.size(), entries.size());
    for (const LanguageEntry& entry : entries) EXPECT_EQ(table.Find(entry.source), entry.translation);
}

TEST(LanguageTable, TextsBeyondAsciiAreFound) {
    const std::vector<LanguageEntry> entries = {{L"\xFFFF", L"1"}, {L"\xD800", L"2"},       {L"\x7FFF", L"3"},
                                                {L"\x8000", L"4"}, {L"\xD83D\xDE00", L"5"}, {L"z", L"6"}};
    const LanguageTable table = TableOf(entries);
    for (const LanguageEntry& entry : entries) EXPECT_EQ(table.Find(entry.source), entry.translation);
}

TEST(LanguageTable, EmptyTranslationIsATranslation) {
    const std::vector<LanguageEntry> entries = {{L"a", L""}};
    EXPECT_EQ(TableOf(entries).Find(L"a"), L"");
}

TEST(LanguageTable, TextWithAZeroInItIsNotFoundByItsBeginning) {
    const std::vector<LanguageEntry> entries = {{L"a", L"1"}};
    EXPECT_FALSE(TableOf(entries).Find(std::wstring_view(L"a\0b", 3)));
    EXPECT_FALSE(TableOf(entries).Find(std::wstring_view(L"a\0", 2)));
}

TEST(LanguageTable, KeepsTheTextsOfItsFileThroughAMove) {
    auto file = ReadLanguageFile(LanguageFileBytes(L"\"b\" = \"1\"\r\n\"a\" = \"2\""));
    ASSERT_TRUE(file);
    LanguageTable first(std::move(*file));
    file.reset();
    const LanguageTable table = std::move(first);
    EXPECT_EQ(Translated(table, L"a"), L"2");
    EXPECT_EQ(Translated(table, L"b"), L"1");
}

TEST(LanguageTable, AgreesWithAMapOnManyTextsThatShareTheirBeginnings) {
    std::mt19937 random(1);  // NOLINT(cert-msc51-cpp): the same texts each time
    std::vector<std::pair<std::wstring, std::wstring>> texts;
    for (int i = 0; i < 20000; ++i) {
        std::wstring source;
        for (auto length = random() % 12 + 1; length > 0; --length) source += L"ab\xFFFF"[random() % 3];
        texts.emplace_back(source, std::to_wstring(i));
    }
    std::vector<LanguageEntry> entries;
    std::map<std::wstring_view, std::wstring_view> expected;
    for (const auto& [source, translation] : texts) {
        entries.push_back({source, translation});
        expected.emplace(source, translation);  // keeps the first
    }
    const LanguageTable table = TableOf(entries);
    ASSERT_EQ(table.size(), expected.size());
    for (const auto& [source, translation] : expected) {
        EXPECT_EQ(table.Find(source), translation);
        EXPECT_EQ(table.Find(std::wstring(source) + L'c').has_value(), false);
    }
}

/// Texts that a table of twice as many puts all in one place, as somebody would choose them to make it slow.
/// Places are counted from the first, which is 0, or with negative numbers from the last, which is -1.
std::vector<std::wstring> TextsInOneBucket(std::size_t count, std::ptrdiff_t place) {
    const std::size_t buckets = std::bit_ceil(2 * count);
    std::vector<std::wstring> texts;
    for (int i = 0; texts.size() < count; ++i) {
        std::wstring text = L"text " + std::to_wstring(i);
        if ((std::hash<std::wstring_view>{}(text) - static_cast<std::size_t>(place)) % buckets == 0)
            texts.push_back(text);
    }
    return texts;
}

class LanguageTableOfOneBucket : public testing::TestWithParam<std::ptrdiff_t> {};

TEST_P(LanguageTableOfOneBucket, FindsAllTextsAndTheFirstOfEachCounts) {
    const std::vector<std::wstring> texts = TextsInOneBucket(100, GetParam());
    std::vector<LanguageEntry> entries;
    for (const std::wstring& text : texts) entries.push_back({text, text});
    for (const std::wstring& text : texts) entries.push_back({text, L"later"});
    std::shuffle(entries.begin(), entries.begin() + 100, std::mt19937(1));  // NOLINT(cert-msc51-cpp)
    const LanguageTable table = TableOf(entries);
    EXPECT_EQ(table.size(), texts.size());
    for (const std::wstring& text : texts) {
        EXPECT_EQ(table.Find(text), text);
        EXPECT_FALSE(table.Find(text + L'a'));
    }
}

INSTANTIATE_TEST_SUITE_P(FirstAndLast, LanguageTableOfOneBucket, testing::Values(0, -1));

}  // namespace
}  // namespace vmk::test
