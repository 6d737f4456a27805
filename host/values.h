#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/catalogue.h"
#include "host/document.h"

namespace vmk {

// Reads a value as a person writes it: a number in decimal or as 0x..., the English text of a choice in any
// case, or a text as it is. Nothing when it is none of these; whether the setting may have the value is
// another question.
std::optional<Value> ReadValue(const SettingInfo& setting, const std::wstring& text);

// Why a setting may not have a value of its own kind: "7 is not one of 0 (Off), 1 (On)". Nothing when it may.
std::optional<std::string> Complaint(const SettingInfo& setting, const Value& value);

// What a setting may be, for messages: "one of 0 (Off), 1 (On)", "a number from 50 to 2400 (dots per inch)".
std::string Expected(const SettingInfo& setting);

// How a value is shown.
struct Showing {
    bool withPasswords = false;
    std::int32_t pagesPerSheet = 0;  // by which the order of pages has its meaning
};

// A value on one line: a number with its meaning, a text in quotes. A password is asterisks unless it is
// empty.
std::string Shown(const SettingInfo& setting, const Value& value, const Showing& showing = {});

// The pages per sheet of a document; 0 when it does not say.
std::int32_t PagesPerSheet(const Document& document);

// The text that a host reads when this one has been stored, in the thread's ANSI code page.
std::wstring AsReadBack(const std::wstring& text);

}  // namespace vmk
