#include "base/code_page.h"

#include <gtest/gtest.h>

namespace vmk::test {
namespace {

TEST(CodePage, TakesATextThereAndBack) {
    EXPECT_EQ(Narrow(L"\u00e4\u20ac", 1252), "\xE4\x80");
    EXPECT_EQ(Widen("\xE4\x80", 1252), L"\u00e4\u20ac");
    EXPECT_EQ(Widen(Narrow(L"\u3042\U0001F600", CP_UTF8), CP_UTF8), L"\u3042\U0001F600");
}

TEST(CodePage, KeepsZerosInsideAText) {
    const std::wstring text(L"a\0b", 3);
    EXPECT_EQ(Narrow(text, CP_UTF8), std::string("a\0b", 3));
    EXPECT_EQ(Widen(std::string("a\0b", 3), CP_UTF8), text);
}

TEST(CodePage, GivesItsDefaultForACharacterThatItLacks) {
    EXPECT_EQ(Narrow(L"a\u3042", 1252), "a?");
}

TEST(CodePage, ThatDoesNotExistGivesAnEmptyText) {
    EXPECT_EQ(Narrow(L"a", 47), "");
    EXPECT_EQ(Widen("a", 47), L"");
}

TEST(CodePage, HasNothingForAnEmptyText) {
    EXPECT_EQ(Narrow(L"", CP_UTF8), "");
    EXPECT_EQ(Widen("", CP_UTF8), L"");
}

}  // namespace
}  // namespace vmk::test
