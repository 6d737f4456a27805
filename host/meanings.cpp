#include "host/meanings.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

#include "host/text.h"
#include "settings/choices.h"

namespace vmk {
namespace {

constexpr std::string_view kPagesPerSheetName = "Paper.Nup";
constexpr std::string_view kOrderName = "Paper.NupOrder";

std::optional<std::int32_t> NumberOf(const std::vector<StoredSetting>& settings, std::string_view name) {
    const auto found = std::ranges::find_if(
        settings, [&](const StoredSetting& setting) { return EqualsIgnoringCase(setting.name, name); });
    return found == settings.end() ? std::nullopt : found->number;
}

// The row of a name as the registry may have it. Null for the name of anything but a number.
const NumberValues* FindRow(std::string_view name) {
    const auto* const row = std::ranges::find_if(
        kNumberValues, [&](const NumberValues& values) { return EqualsIgnoringCase(values.name, name); });
    return row == std::end(kNumberValues) ? nullptr : row;
}

std::string MeaningAmong(const NumberValues& values, std::int32_t number) {
    if (const Choice* choice = FindChoice(values.choices, number)) return Utf8FromWide(EnglishText(*choice));
    return values.IsInRange(number) ? std::string(values.unit) : "not a known value";
}

}  // namespace

std::span<const Choice> ChoicesFor(const NumberValues& values, std::int32_t pagesPerSheet) {
    return pagesPerSheet == 2 && values.name == kOrderName ? choices::kOrdersOfTwo : values.choices;
}

std::string Meaning(std::string_view name, std::int32_t number, std::int32_t pagesPerSheet) {
    const NumberValues* const row = FindRow(name);
    if (!row) return "";
    NumberValues values = *row;
    values.choices = ChoicesFor(values, pagesPerSheet);
    return MeaningAmong(values, number);
}

void AddMeanings(std::vector<StoredSetting>& settings) {
    const std::int32_t pagesPerSheet = NumberOf(settings, kPagesPerSheetName).value_or(0);
    for (StoredSetting& setting : settings) {
        if (!setting.number) continue;
        const std::string meaning = Meaning(setting.name, *setting.number, pagesPerSheet);
        if (!meaning.empty()) setting.display += " (" + meaning + ")";
    }
}

}  // namespace vmk
