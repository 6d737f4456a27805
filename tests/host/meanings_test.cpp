#include "host/meanings.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace vmk {
namespace {

StoredSetting Stored(std::string name, std::int32_t number) {
    return {.name = std::move(name), .display = std::to_string(number), .number = number};
}

// What is shown of a number that is stored alone.
std::string Shown(const std::string& name, std::int32_t number) {
    std::vector<StoredSetting> settings = {Stored(name, number)};
    AddMeanings(settings);
    return settings.front().display;
}

TEST(Meanings, OfAChoiceAreItsText) {
    EXPECT_EQ(Shown("Compression.Color.Method", 1), "1 (Auto)");
    EXPECT_EQ(Shown("Paper.Nup", 16), "16 (16 pages)");
    EXPECT_EQ(Shown("Save.App.Run", 1), "1 (Default Application for PDF files)");
}

TEST(Meanings, OfAFlagAreOffAndOn) {
    EXPECT_EQ(Shown("Security.Use", 0), "0 (Off)");
    EXPECT_EQ(Shown("Security.Use", 1), "1 (On)");
}

TEST(Meanings, OfANumberInARangeAreItsUnit) {
    EXPECT_EQ(Shown("Links.Border.Width", 10), "10 (tenths of a point)");
    EXPECT_EQ(Shown("Compression.Color.JPEGQuality", 100), "100 (percent)");
}

TEST(Meanings, OfAMereCountAreNone) {
    EXPECT_EQ(Shown("Save.AutoNumber.Digits", 3), "3");
    EXPECT_EQ(Shown("Save.Type", -5), "-5");
}

TEST(Meanings, AreToldOfWhatIsSpecialBesideARange) {
    EXPECT_EQ(Shown("Optimization.SwapToDisk", 0), "0 (Never)");
    EXPECT_EQ(Shown("Optimization.SwapToDisk", 1), "1 (megabytes)");
    EXPECT_EQ(Shown("Security.Digisig.Page", -1), "-1 (Last Page)");
    EXPECT_EQ(Shown("Security.Digisig.Page", 2), "2");
}

TEST(Meanings, AreUnknownBeyondChoicesAndRange) {
    EXPECT_EQ(Shown("Compression.Color.Method", 7), "7 (not a known value)");
    EXPECT_EQ(Shown("Security.Use", -1), "-1 (not a known value)");
    EXPECT_EQ(Shown("Links.Border.Width", 4), "4 (not a known value)");
    EXPECT_EQ(Shown("Save.AutoNumber.Digits", 7), "7 (not a known value)");
}

TEST(Meanings, HaveNoBlankBehindThem) {
    EXPECT_EQ(Shown("Email.Type", 0), "0 (None)");
}

TEST(Meanings, DoNotRegardTheCaseOfTheName) {
    EXPECT_EQ(Shown("compression.COLOR.method", 2), "2 (JPEG)");
}

TEST(Meanings, AreOnlyThoseOfNumbersThatAreSettings) {
    EXPECT_EQ(Shown("Flavour", 1), "1");
    EXPECT_EQ(Shown("Info.Author", 1), "1");
    std::vector<StoredSetting> settings = {{.name = "Paper.Nup", .display = "\"2\""}};
    AddMeanings(settings);
    EXPECT_EQ(settings.front().display, "\"2\"");
}

std::string ShownOrder(std::int32_t pages, std::int32_t order) {
    std::vector<StoredSetting> settings = {Stored("paper.nup", pages), Stored("Paper.NupOrder", order)};
    AddMeanings(settings);
    return settings.back().display;
}

TEST(Meanings, OfTheOrderGoByThePagesPerSheet) {
    EXPECT_EQ(ShownOrder(2, 1), "1 (Right To Left)");
    EXPECT_EQ(ShownOrder(2, 2), "2 (not a known value)");
    EXPECT_EQ(ShownOrder(4, 1), "1 (Down From Left)");
    EXPECT_EQ(ShownOrder(4, 2), "2 (Across From Right)");
}

}  // namespace
}  // namespace vmk
