#include "settings/choices.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "settings/groups.h"

namespace vmk {
namespace {

struct StoredNumber {
    std::string name;
    std::int32_t byDefault = 0;
};

// Visitor that notes every setting that may be stored as a number, with its default.
struct NumberNoter {
    std::vector<StoredNumber>& numbers;

    void operator()(const char* name, std::int32_t number) const { numbers.push_back({name, number}); }
    void operator()(const char*, const std::wstring&) const {}
    void operator()(const char* name, const RunApplication& run) const {
        numbers.push_back({name, run.Use ? run.WithoutPath : 0});
    }
    void operator()(const char* name, const SwapToDisk& swap) const {
        numbers.push_back({name, swap.Enabled ? swap.Megabytes : 0});
    }
};

std::vector<StoredNumber> StoredNumbers() {
    const PrinterSettings defaults;
    std::vector<StoredNumber> numbers;
    WalkFields(page_bit::kAllPages, NumberNoter{numbers}, defaults);
    return numbers;
}

TEST(NumberValues, AreThoseOfEveryStoredNumberInTheOrderOfStoring) {
    std::vector<std::string> stored;
    for (const StoredNumber& number : StoredNumbers()) stored.push_back(number.name);
    std::vector<std::string> rows;
    for (const NumberValues& values : kNumberValues) rows.emplace_back(values.name);
    EXPECT_EQ(rows, stored);
}

TEST(NumberValues, HaveChoicesOrARange) {
    for (const NumberValues& values : kNumberValues) {
        EXPECT_TRUE(!values.choices.empty() || values.HasRange()) << values.name;
        EXPECT_LE(values.smallest, values.largest) << values.name;
        EXPECT_TRUE(values.unit.empty() || values.HasRange()) << values.name;
    }
}

void ExpectDistinctValuesAndTexts(std::span<const Choice> choices, std::string_view name) {
    std::set<std::int32_t> numbers;
    std::set<std::wstring_view> texts;
    for (const Choice& choice : choices) {
        EXPECT_TRUE(numbers.insert(choice.value).second) << name << ": " << choice.value;
        EXPECT_TRUE(texts.insert(choice.text).second) << name << ": the text of " << choice.value;
        EXPECT_FALSE(EnglishText(choice).empty()) << name << ": " << choice.value;
    }
}

TEST(Choices, HaveDistinctValuesAndTexts) {
    for (const NumberValues& values : kNumberValues)
        ExpectDistinctValuesAndTexts(values.choices, values.name);
    ExpectDistinctValuesAndTexts(choices::kOrdersOfTwo, "orders of two pages");
    ExpectDistinctValuesAndTexts(choices::kGraphics, "graphics of a signature");
    ExpectDistinctValuesAndTexts(choices::kShownTexts, "texts of a signature");
}

// The settings reference, with which the other texts are compared, lists these nowhere.
TEST(Choices, OfPartsOfASettingHaveTheirTexts) {
    const auto texts = [](std::span<const Choice> choices) {
        std::vector<std::pair<std::int32_t, std::wstring>> all;
        for (const Choice& choice : choices) all.emplace_back(choice.value, choice.text);
        return all;
    };
    using Texts = std::vector<std::pair<std::int32_t, std::wstring>>;
    EXPECT_EQ(texts(choices::kOrdersOfTwo), (Texts{{0, L"Left To Right"}, {1, L"Right To Left"}}));
    EXPECT_EQ(texts(choices::kGraphics), (Texts{{0, L"No Graphic"}, {0x10, L"Image"}, {0x20, L"Name"}}));
    EXPECT_EQ(texts(choices::kShownTexts), (Texts{{0x100, L"Name"},
                                                  {0x400, L"Location"},
                                                  {0x1000, L"Distinguished Name"},
                                                  {0x200, L"Date"},
                                                  {0x800, L"Reason"},
                                                  {0x8000, L"Labels"}}));
}

TEST(Choices, OfANumberThatIsNoneOfThemIsNone) {
    EXPECT_EQ(FindChoice(choices::kFlag, 1), &choices::kFlag[1]);
    EXPECT_EQ(FindChoice(choices::kFlag, 2), nullptr);
    EXPECT_EQ(FindChoice({}, 0), nullptr);
}

TEST(NumberValues, AreInTheRangeFromTheSmallestToTheLargest) {
    const NumberValues range = {.name = "a range", .smallest = 1, .largest = 8};
    EXPECT_FALSE(range.IsInRange(0));
    EXPECT_TRUE(range.IsInRange(1));
    EXPECT_TRUE(range.IsInRange(8));
    EXPECT_FALSE(range.IsInRange(9));
    const NumberValues none = {.name = "choices alone"};
    EXPECT_FALSE(none.IsInRange(0));
}

// No default is an exception.
TEST(NumberValues, IncludeTheDefaultOfEveryNumber) {
    for (const auto& [name, byDefault] : StoredNumbers()) {
        const NumberValues* values = FindNumberValues(name);
        ASSERT_TRUE(values) << name;
        EXPECT_TRUE(FindChoice(values->choices, byDefault) || values->IsInRange(byDefault))
            << name << ": " << byDefault;
    }
}

TEST(NumberValues, ReachFromTheSmallestToTheLargestWhereTheyHaveARange) {
    constexpr NumberValues kRange{.name = "A range", .smallest = 5, .largest = 50};
    EXPECT_FALSE(kRange.IsInRange(4));
    EXPECT_TRUE(kRange.IsInRange(5));
    EXPECT_TRUE(kRange.IsInRange(50));
    EXPECT_FALSE(kRange.IsInRange(51));
    EXPECT_FALSE((NumberValues{.name = "None"}.IsInRange(0)));
}

TEST(NumberValues, AreNoneOfTextsAndOtherNames) {
    EXPECT_FALSE(FindNumberValues("Info.Author"));
    EXPECT_FALSE(FindNumberValues("Paper.Nup "));
    EXPECT_FALSE(FindNumberValues(""));
}

TEST(NumberValues, OfTheSignaturesFlagsReachToTheLargestSum) {
    std::int32_t largestGraphic = 0;
    std::int32_t graphicBits = 0;
    for (const Choice& graphic : choices::kGraphics) {
        EXPECT_EQ(graphic.value & ~choices::kGraphicBits, 0) << graphic.value;
        largestGraphic = std::max(largestGraphic, graphic.value);
        graphicBits |= graphic.value;
    }
    EXPECT_EQ(choices::kGraphicBits, graphicBits);
    std::int32_t bits = 0;
    for (const Choice& text : choices::kShownTexts) {
        EXPECT_EQ(text.value & choices::kGraphicBits, 0) << text.value;
        bits |= text.value;
    }
    EXPECT_EQ(RangeOf("Security.Digisig.Flags").largest, bits | largestGraphic);
}

TEST(Choices, ReadWithoutTheBlankBehindThem) {
    EXPECT_EQ(EnglishText({.value = 0, .text = L"None "}), L"None");
    EXPECT_EQ(EnglishText({.value = 0, .text = L"Full Screen"}), L"Full Screen");
}

}  // namespace
}  // namespace vmk
