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

// Empty when there is nothing to say.
std::string Meaning(const NumberValues& values, std::int32_t number) {
    if (const Choice* choice = FindChoice(values.choices, number)) return Utf8FromWide(EnglishText(*choice));
    return values.IsInRange(number) ? std::string(values.unit) : "not a known value";
}

}  // namespace

void AddMeanings(std::vector<StoredSetting>& settings) {
    const bool ordersTwo = NumberOf(settings, kPagesPerSheetName) == 2;
    for (StoredSetting& setting : settings) {
        const NumberValues* const row = FindRow(setting.name);
        if (!row || !setting.number) continue;
        NumberValues values = *row;
        if (ordersTwo && values.name == kOrderName) values.choices = choices::kOrdersOfTwo;
        const std::string meaning = Meaning(values, *setting.number);
        if (!meaning.empty()) setting.display += " (" + meaning + ")";
    }
}

}  // namespace vmk
