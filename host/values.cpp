#include "host/values.h"

#include <algorithm>
#include <charconv>

#include "host/meanings.h"
#include "host/stored_settings.h"
#include "host/text.h"

namespace vmk {
namespace {

constexpr std::string_view kOrderName = "Paper.NupOrder";

std::optional<std::int32_t> ReadNumber(std::string_view digits) {
    int base = 10;
    if (digits.starts_with("0x") || digits.starts_with("0X")) {
        digits.remove_prefix(2);
        base = 16;
    }
    const char* const end = digits.data() + digits.size();
    std::int32_t number = 0;
    const auto [stop, error] = std::from_chars(digits.data(), end, number, base);
    // A sign behind the prefix is none.
    const bool whole = error == std::errc() && stop == end && !(base == 16 && digits.starts_with('-'));
    return whole ? std::optional(number) : std::nullopt;
}

std::optional<std::int32_t> ReadChoice(std::span<const Choice> choices, std::string_view text) {
    const auto choice = std::ranges::find_if(choices, [&](const Choice& each) {
        return EqualsIgnoringCase(Utf8FromWide(EnglishText(each)), text);
    });
    return choice == choices.end() ? std::nullopt : std::optional(choice->value);
}

std::string Listed(std::span<const Choice> choices) {
    std::string list;
    for (const Choice& choice : choices) {
        if (!list.empty()) list += ", ";
        list += std::to_string(choice.value) + " (" + Utf8FromWide(EnglishText(choice)) + ")";
    }
    return list;
}

std::string ExpectedNumber(const NumberValues& values) {
    std::string text;
    if (values.HasRange()) {
        text = "a number from " + std::to_string(values.smallest) + " to " + std::to_string(values.largest);
        if (!values.unit.empty()) text.append(" (").append(values.unit).append(")");
    }
    if (values.choices.empty()) return text;
    return text + (text.empty() ? "one of " : " or ") + Listed(values.choices);
}

}  // namespace

std::optional<Value> ReadValue(const SettingInfo& setting, const std::wstring& text) {
    if (setting.TakesNumbers()) {
        const std::string narrow = Utf8FromWide(text);
        std::optional<std::int32_t> number = ReadNumber(narrow);
        if (!number) number = ReadChoice(setting.numbers->choices, narrow);
        if (!number && setting.name == kOrderName) number = ReadChoice(choices::kOrdersOfTwo, narrow);
        if (number) return *number;
    }
    return setting.TakesTexts() ? std::optional<Value>(text) : std::nullopt;
}

std::optional<std::string> Complaint(const SettingInfo& setting, const Value& value) {
    if (const auto* const text = std::get_if<std::wstring>(&value)) {
        if (text->find(L'\0') == std::wstring::npos) return std::nullopt;
        return "a text cannot hold a zero character";
    }
    const auto number = std::get<std::int32_t>(value);
    const NumberValues& values = *setting.numbers;
    if (FindChoice(values.choices, number) || values.IsInRange(number)) return std::nullopt;
    return std::to_string(number) + " is not " + Expected(setting);
}

std::string Expected(const SettingInfo& setting) {
    if (setting.kind == Kind::Text) return "a text";
    return ExpectedNumber(*setting.numbers) + (setting.TakesTexts() ? " or a text" : "");
}

std::string Shown(const SettingInfo& setting, const Value& value, const Showing& showing) {
    if (const auto* const number = std::get_if<std::int32_t>(&value)) {
        const std::string meaning = Meaning(setting.name, *number, showing.pagesPerSheet);
        return std::to_string(*number) + (meaning.empty() ? "" : " (" + meaning + ")");
    }
    const auto& text = std::get<std::wstring>(value);
    if (setting.secret && !showing.withPasswords) return text.empty() ? "\"\"" : "********";
    return Quoted(Utf8FromWide(text));
}

std::int32_t PagesPerSheet(const Document& document) {
    const auto found = document.find(FindSetting("Paper.Nup"));
    return found == document.end() ? 0 : std::get<std::int32_t>(found->second);
}

std::wstring AsReadBack(const std::wstring& text) {
    // One byte more than the text has characters is stored, and read up to the first zero.
    const std::string stored = AnsiFromWide(text).substr(0, text.size() + 1);
    return WideFromAnsi(stored.substr(0, stored.find('\0')));
}

}  // namespace vmk
