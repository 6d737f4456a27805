#include "language/language_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/utf16_bytes.h"

namespace vmk::test {
namespace {

using namespace std::string_literals;
using Texts = std::vector<std::pair<std::wstring, std::wstring>>;

Texts EntriesOf(std::span<const std::byte> bytes) {
    Texts texts;
    if (const auto file = ReadLanguageFile(bytes))
        for (const LanguageEntry& entry : file->entries) texts.emplace_back(entry.source, entry.translation);
    return texts;
}

struct EntryCase {
    const char* name;
    std::wstring text;
    Texts entries;
};
void PrintTo(const EntryCase& value, std::ostream* out) {
    *out << value.name;
}

class LanguageEntries : public testing::TestWithParam<EntryCase> {};

TEST_P(LanguageEntries, AreReadFromTheText) {
    EXPECT_EQ(EntriesOf(LanguageFileBytes(GetParam().text)), GetParam().entries);
}

TEST_P(LanguageEntries, AreReadFromTheTextWithBytesCutOffAnywhere) {
    const std::vector<std::byte> bytes = LanguageFileBytes(GetParam().text);
    for (std::size_t length = 0; length <= bytes.size(); ++length) {
        // A copy of exactly this length, so that reading on behind it is found out.
        const std::vector<std::byte> cut(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_EQ(ReadLanguageFile(cut).has_value(), length >= 2);
        EXPECT_EQ(ReadLanguageHeader(cut).has_value(), length >= 2);
    }
}

const Texts kNone;
const Texts kOk = {{L"OK", L"Ja"}};
const Texts kTwo = {{L"a", L"1"}, {L"b", L"2"}};

const EntryCase kEntryCases[] = {
    {"NothingBehindTheMark", L"", kNone},
    {"OneEntry", L"\"OK\" = \"Ja\"\r\n", kOk},
    {"LastLineWithoutLineEnd", L"\"OK\" = \"Ja\"", kOk},
    {"NoBlanksAroundTheEqualsSign", L"\"OK\"=\"Ja\"", kOk},
    {"SpacesAndTabsAroundTheEqualsSign", L"\"OK\" \t = \t \"Ja\"", kOk},
    {"LeadingSpacesAndTabs", L" \t \"OK\" = \"Ja\"", kOk},
    {"TextBehindTheTranslation", L"\"OK\" = \"Ja\" and \"more\" = \"things\"", kOk},

    {"LinesEndWithCr", L"\"a\" = \"1\"\r\"b\" = \"2\"\r", kTwo},
    {"LinesEndWithLf", L"\"a\" = \"1\"\n\"b\" = \"2\"\n", kTwo},
    {"LinesEndWithCrLf", L"\"a\" = \"1\"\r\n\"b\" = \"2\"\r\n", kTwo},
    {"LineEndsMixed", L"\n\r\"a\" = \"1\"\n\r\r\n\n\"b\" = \"2\"\r", kTwo},
    {"EmptyAndBlankLines", L"\r\n \t \r\n\"a\" = \"1\"\r\n\t\r\n\"b\" = \"2\"\r\n  ", kTwo},
    {"EntryDoesNotGoOnInTheNextLine", L"\"OK\" =\r\n\"Ja\"", kNone},
    {"OtherSpacesAreNoBlanks", L"\u00A0\"a\" = \"1\"\r\n\"b\" = \u3000\"2\"\r\n\"OK\" = \"Ja\"", kOk},
    {"OtherLineSeparatorsEndNoLine",
     L"\"a\u2028b\" = \"1\u0085\u000B2\"",
     {{L"a\u2028b", L"1\u0085\u000B2"}}},

    {"CommentLine", L"; \"a\" = \"1\"\r\n\"OK\" = \"Ja\"", kOk},
    {"CommentLineBehindBlanks", L" \t; \"a\" = \"1\"\r\n\"OK\" = \"Ja\"", kOk},
    {"CommentWithUnbalancedQuoteEndsWithItsLine", L"; \"\r\n\"OK\" = \"Ja\"", kOk},
    {"CommentBehindTheEntry", L"\"OK\" = \"Ja\" ; \"yes\"", kOk},
    {"CommentBeforeTheEqualsSign", L"\"OK\" ;= \"Ja\"", kNone},
    {"CommentBeforeTheTranslation", L"\"OK\" = ; \"Ja\"", kNone},
    {"SemicolonInTexts", L"\"a;b\" = \"1;2\"", {{L"a;b", L"1;2"}}},
    {"SemicolonBehindAnEscapedQuote", L"\"a\\\";b\" = \"1\\\";2\" ; \"c\"", {{L"a\";b", L"1\";2"}}},
    // While a line is cut each quote behind a backslash stays open, so this semicolon is seen as outside.
    {"SemicolonBehindAnEscapedBackslashAtTheEndOfAText", L"\"C:\\\\\" = \"1;2\"", {{L"C:\\", L"1"}}},
    {"SemicolonInATranslationWithoutClosingQuote", L"\"a\" = \"1;2 ", {{L"a", L"1;2 "}}},

    {"Escapes", L"\"a\\nb\\rc\\td\" = \"1\\n\\r\\t2\"", {{L"a\nb\rc\td", L"1\n\r\t2"}}},
    {"EscapedQuotes", L"\"say \\\"a\\\"\" = \"\\\"1\\\"\"", {{L"say \"a\"", L"\"1\""}}},
    {"EscapedBackslashes", L"\"a\\\\b\" = \"1\\\\2\"", {{L"a\\b", L"1\\2"}}},
    {"EscapedBackslashBeforeTheClosingQuote", L"\"C:\\\\\" = \"D:\\\\\"", {{L"C:\\", L"D:\\"}}},
    {"BackslashBeforeAnyOtherCharacter", L"\"\\a\\N\\;\\ \" = \"\\0\\x\\=\"", {{L"aN; ", L"0x="}}},
    {"EscapesAreNotReadTwice", L"\"a\" = \"\\\\n\"", {{L"a", L"\\n"}}},
    {"BackslashAtTheEndOfTheLine", L"\"a\" = \"1\\\r\n\"b\" = \"2\\", kTwo},

    {"EmptySource", L"\"\" = \"1\"\r\n\"OK\" = \"Ja\"", kOk},
    {"EmptyTranslation", L"\"a\" = \"\"", {{L"a", L""}}},
    {"BlankTextsAreTexts", L"\" \" = \"\t\"", {{L" ", L"\t"}}},
    {"NoEqualsSign", L"\"a\" \"1\"\r\n\"b\"\r\n\"OK\" = \"Ja\"", kOk},
    {"ColonForTheEqualsSign", L"\"a\" : \"1\"", kNone},
    {"TwoEqualsSigns", L"\"a\" == \"1\"", kNone},
    {"NoTranslation", L"\"a\" =\r\n\"b\" = ", kNone},
    {"TranslationWithoutOpeningQuote", L"\"a\" = 1\"\r\n\"b\" = '2'", kNone},
    {"TranslationWithoutClosingQuote", L"\"a\" = \"1\r\n\"b\" = \"2", kTwo},
    {"SourceWithoutClosingQuote", L"\"a = 1\r\n\"b", kNone},
    {"SourceWithoutClosingQuoteTakesTheNextOne", L"\"a = \"1\"", kNone},
    {"SourceWithoutClosingQuoteDoesNotGoOnInTheNextLine", L"\"a\n= \"1\"", kNone},
    {"LoneQuote", L"\"", kNone},
    {"OtherLines", L"a = 1\r\n'b' = '2'\r\n= \"c\"\r\n#\r\n\"OK\" = \"Ja\"", kOk},
    {"EntryBehindOtherTextIsNone", L"x \"a\" = \"1\"", kNone},
    {"SourceTwiceIsReadTwice", L"\"a\" = \"1\"\r\n\"a\" = \"2\"", {{L"a", L"1"}, {L"a", L"2"}}},
    {"SourcesKeepTheirCaseAndBlanks",
     L"\"None \" = \"1\"\r\n\"NONE\" = \"2\"",
     {{L"None ", L"1"}, {L"NONE", L"2"}}},

    {"ZeroEndsTheText", L"\"a\" = \"1\"\r\n\0\"b\" = \"2\""s, {{L"a", L"1"}}},
    {"ZeroEndsATranslation", L"\"a\" = \"1\0 2\""s, {{L"a", L"1"}}},
    {"ZeroEndsALineOfAnotherKind", L"abc\0\r\n\"a\" = \"1\""s, kNone},
    {"UnpairedSurrogates", L"\"a\xD800\" = \"\xDC00\xD800\"", {{L"a\xD800", L"\xDC00\xD800"}}},
    {"HighestCodeUnits", L"\"\xFFFF\xFEFF\" = \"\xFFFE\"", {{L"\xFFFF\xFEFF", L"\xFFFE"}}},
    {"SecondMarkIsPartOfALineOfAnotherKind", L"\xFEFF\"a\" = \"1\"", kNone},
    {"LowBytesOfSyntaxCharactersAreText", L"\u0122a\u0122 \u013D \u0122b\u0122\u010D\u010A\"OK\" = \"Ja\"",
     kNone},
};
INSTANTIATE_TEST_SUITE_P(File, LanguageEntries, testing::ValuesIn(kEntryCases),
                         [](const auto& entryCase) { return std::string(entryCase.param.name); });

struct HeaderCase {
    const char* name;
    std::wstring text;
    LanguageHeader header;
};
void PrintTo(const HeaderCase& value, std::ostream* out) {
    *out << value.name;
}

class LanguageHeaders : public testing::TestWithParam<HeaderCase> {};

TEST_P(LanguageHeaders, AreReadWithTheEntries) {
    const auto file = ReadLanguageFile(LanguageFileBytes(GetParam().text));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->header.langid, GetParam().header.langid);
    EXPECT_EQ(file->header, GetParam().header);
}

TEST_P(LanguageHeaders, AreReadWithoutTheEntries) {
    EXPECT_EQ(ReadLanguageHeader(LanguageFileBytes(GetParam().text)), GetParam().header);
}

LanguageHeader Header(std::uint32_t langid, const wchar_t* langname, const wchar_t* flag,
                      const wchar_t* productID, const wchar_t* tipsfile) {
    return {
        .langid = langid, .langname = langname, .flag = flag, .productID = productID, .tipsfile = tipsfile};
}
LanguageHeader Langid(std::uint32_t langid) {
    return Header(langid, L"", L"", L"", L"");
}
LanguageHeader Langname(const wchar_t* name) {
    return Header(kNoLangid, name, L"", L"", L"");
}

const HeaderCase kHeaderCases[] = {
    {"NoHeaderLine", L"\"a\" = \"1\"", {}},
    {"AllKeys",
     L"$langid = 0407\r\n$langname = Deutsch\r\n$flag = de\r\n$productID = some.Product\r\n$tipsfile = "
     L"tips.txt\r\n",
     {.langid = 0x407,
      .langname = L"Deutsch",
      .flag = L"de",
      .productID = L"some.Product",
      .tipsfile = L"tips.txt"}},
    {"KeysInAnyCase", L"$LANGID = 0407\n$LangName = a\n$FLAG = b\n$PRODUCTid = c\n$TipsFile = d",
     Header(0x407, L"a", L"b", L"c", L"d")},
    {"HeaderLinesBetweenEntries", L"\"a\" = \"1\"\r\n$langid = 0407\r\n\"b\" = \"2\"\r\n$flag = x",
     Header(0x407, L"", L"x", L"", L"")},
    {"OtherKeys", L"$langids = 1\r\n$lang = 2\r\n$ = 3\r\n$version = 4\r\n$", {}},
    {"KeysAreComparedInAsciiOnly", L"$t\u0130psfile = x\r\n$tips\uFF26ile = x", {}},

    {"LangidWithPrefix", L"$langid = 0x0407", Langid(0x407)},
    {"LangidWithUpperCasePrefix", L"$langid = 0X0407", Langid(0x407)},
    {"LangidInUpperAndLowerCaseDigits", L"$langid = aBcDeF09", Langid(0xABCDEF09)},
    {"LangidOfTheFirstAndLastDigits", L"$langid = 09AFaf", Langid(0x9AFAF)},
    {"LangidEndsBeforeTheCharacterBelow0", L"$langid = 1/", Langid(1)},
    {"LangidEndsBeforeTheCharacterAbove9", L"$langid = 1:", Langid(1)},
    {"LangidEndsBeforeTheCharacterBelowA", L"$langid = 1@", Langid(1)},
    {"LangidEndsBeforeTheCharacterAboveF", L"$langid = 1G", Langid(1)},
    {"LangidEndsBeforeTheCharacterBelowSmallA", L"$langid = 1`", Langid(1)},
    {"LangidEndsBeforeTheCharacterAboveSmallF", L"$langid = 1g", Langid(1)},
    {"LangidWithPrefixAndNoLeadingZero", L"$langid = 0x10407", Langid(0x10407)},
    {"LangidWithTrailingJunk", L"$langid = 0407h", Langid(0x407)},
    {"LangidInQuotes", L"$langid = \"0407\"", Langid(0x407)},
    {"LangidWithSecondPrefix", L"$langid = 0x0x407", Langid(0)},
    {"LangidWithoutDigits", L"$langid = german", Langid(0)},
    {"LangidOfOtherDigits", L"$langid = \uFF14\u0664", Langid(0)},
    {"LangidWithSign", L"$langid = -1", Langid(0)},
    {"LangidEmpty", L"$langid =", Langid(0)},
    {"LangidWithMoreThanEightDigits", L"$langid = 0x1200000407", Langid(0x407)},
    {"LangidOfAllOnesIsLikeNone", L"$langid = FFFFFFFF", Langid(kNoLangid)},
    {"LangidTwice", L"$langid = 0407\r\n$langid = 0409", Langid(0x409)},

    {"ValueCutAtTheFirstSpace", L"$langname = Deutsch (alt)", Langname(L"Deutsch")},
    {"ValueCutAtTheFirstTab", L"$langname = Deutsch\t(alt)", Langname(L"Deutsch")},
    {"QuotedValue", L"$langname = \"Deutsch\"", Langname(L"Deutsch")},
    {"QuotedValueCutAtItsBlank", L"$langname = \"Bahasa Indonesia\"", Langname(L"Bahasa")},
    {"OneQuoteIsStrippedAtEachEnd", L"$langname = \"\"a\"\"", Langname(L"\"a\"")},
    {"OnlyTrailingQuote", L"$langname = a\"", Langname(L"a")},
    {"ValueOfOneQuote", L"$langname = \"", Langname(L"")},
    {"ValueOfTwoQuotes", L"$langname = \"\"", Langname(L"")},
    {"BackslashesInValuesAreText", L"$langname = a\\nb\\\\", Langname(L"a\\nb\\\\")},
    {"NoBlanksAroundTheEqualsSign", L"$langname=Deutsch", Langname(L"Deutsch")},
    {"BlanksAroundTheEqualsSign", L" \t$langname \t = \t Deutsch", Langname(L"Deutsch")},
    {"TabBelongsToTheKey", L"$langname\t= Deutsch", Langname(L"")},
    {"BlankBeforeTheKey", L"$ langname = Deutsch", Langname(L"")},
    {"NoEqualsSign", L"$langname Deutsch\r\n$langname", Langname(L"")},
    {"SecondEqualsSignIsPartOfTheValue", L"$langname==a=b", Langname(L"=a=b")},
    {"EmptyValueReplacesTheOneBefore", L"$langname = a\r\n$langname =", Langname(L"")},
    {"CommentBehindTheValue", L"$langname = Deutsch;alt", Langname(L"Deutsch")},
    {"CommentBeforeTheValue", L"$langname = ; Deutsch", Langname(L"")},
    {"CommentInTheKey", L"$langname;= Deutsch", Langname(L"")},
    {"SemicolonInAQuotedValue", L"$langname = \"a;b\";c", Langname(L"a;b")},
    {"SemicolonBehindAQuoteBehindABackslash", L"$langname = \\\";a", Langname(L"\\\";a")},
    {"HeaderLineInAComment", L"; $langname = Deutsch", Langname(L"")},
    {"HeaderLineBehindOtherText", L"x $langname = Deutsch", Langname(L"")},
    {"HeaderLineInAnEntry", L"\"$langname = Deutsch\" = \"x\"", Langname(L"")},
    {"ZeroEndsTheHeader", L"$langname = Deu\0tsch\r\n$langid = 0407"s, Langname(L"Deu")},
    {"UnpairedSurrogateInAValue", L"$langname = \xD801", Langname(L"\xD801")},
};
INSTANTIATE_TEST_SUITE_P(File, LanguageHeaders, testing::ValuesIn(kHeaderCases),
                         [](const auto& headerCase) { return std::string(headerCase.param.name); });

TEST(LanguageFile, WithoutByteOrderMarkIsIgnored) {
    EXPECT_FALSE(ReadLanguageFile(Utf16Bytes(L"\"a\" = \"1\"")));
    EXPECT_FALSE(ReadLanguageHeader(Utf16Bytes(L"$langid = 0407")));
}

TEST(LanguageFile, InOtherEncodingsIsIgnored) {
    for (const std::string& start :
         {"\xFE\xFF\0$"s, "\xFE\xFE"s, "\xEF\xBB\xBF$a"s, "$a"s, "\xFF"s, "\xFF\xFF"s, ""s}) {
        const auto bytes = std::as_bytes(std::span(start));
        EXPECT_FALSE(ReadLanguageFile(bytes)) << testing::PrintToString(start);
        EXPECT_FALSE(ReadLanguageHeader(bytes)) << testing::PrintToString(start);
    }
}

TEST(LanguageFile, WithHalfAMarkIsIgnoredWhateverLiesBehindIt) {
    const std::string start = "\xFF\xFE";
    const auto half = std::as_bytes(std::span(start).first(1));
    EXPECT_FALSE(ReadLanguageFile(half));
    EXPECT_FALSE(ReadLanguageHeader(half));
}

TEST(LanguageFile, OddLastByteIsLeftOut) {
    std::vector<std::byte> bytes = LanguageFileBytes(L"$langname = De\r\n\"a\" = \"1");
    bytes.push_back(std::byte{'2'});
    const auto file = ReadLanguageFile(bytes);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->header.langname, L"De");
    EXPECT_EQ(EntriesOf(bytes), (Texts{{L"a", L"1"}}));
}

TEST(LanguageFile, MayLieAtAnyAddress) {
    std::vector<std::byte> bytes = LanguageFileBytes(L"\"OK\" = \"Ja\"");
    bytes.insert(bytes.begin(), std::byte{});
    EXPECT_EQ(EntriesOf(std::span(bytes).subspan(1)), kOk);
}

TEST(LanguageFile, EntriesOutliveTheBytesAndAMoveOfTheFile) {
    std::vector<std::byte> bytes = LanguageFileBytes(L"\"OK\" = \"Ja\"");
    auto read = ReadLanguageFile(bytes);
    ASSERT_TRUE(read);
    std::fill(bytes.begin(), bytes.end(), std::byte{});
    const LanguageFile file = std::move(*read);
    read.reset();
    ASSERT_EQ(file.entries.size(), 1U);
    EXPECT_EQ(file.entries[0].source, L"OK");
    EXPECT_EQ(file.entries[0].translation, L"Ja");
}

constexpr std::size_t kLargeFile = std::size_t{64} << 20;

/// The start and then the repeated text until the file is large.
std::vector<std::byte> LargeFile(std::wstring_view start, std::wstring_view repeated) {
    std::vector<std::byte> tail = Utf16Bytes(repeated);
    while (tail.size() < kLargeFile) {
        const std::size_t length = tail.size();
        tail.resize(length * 2);
        std::memcpy(&tail[length], tail.data(), length);
    }
    std::vector<std::byte> bytes = LanguageFileBytes(start);
    bytes.insert(bytes.end(), tail.begin(), tail.end());
    return bytes;
}

TEST(LanguageFile, Of64MebibytesOfEntriesIsRead) {
    constexpr std::wstring_view kLine = L"\"Some text\" = \"Ein Text davon\"\r\n";
    const std::vector<std::byte> bytes = LargeFile(L"$langid = 0407\r\n", kLine);
    const auto file = ReadLanguageFile(bytes);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->header.langid, 0x407U);
    EXPECT_EQ(file->entries.size(), bytes.size() / 2 / kLine.size());
    EXPECT_EQ(file->entries.back().translation, L"Ein Text davon");
}

TEST(LanguageFile, Of64MebibytesInOneEntryIsRead) {
    const std::vector<std::byte> bytes = LargeFile(L"\"a\" = \"", L"abcdefgh");
    const auto file = ReadLanguageFile(bytes);
    ASSERT_TRUE(file);
    ASSERT_EQ(file->entries.size(), 1U);
    EXPECT_EQ(file->entries[0].translation.size(), bytes.size() / 2 - 8);
}

TEST(LanguageFile, Of64MebibytesOfOtherThingsIsRead) {
    for (const wchar_t* repeated : {L"\n", L"\"", L"$\r", L"x"}) {
        const auto file = ReadLanguageFile(LargeFile(L"$langid = 0407\r\n", repeated));
        ASSERT_TRUE(file);
        EXPECT_EQ(file->header.langid, 0x407U);
        EXPECT_TRUE(file->entries.empty());
    }
}

}  // namespace
}  // namespace vmk::test
