#pragma once

#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "host/catalogue.h"
#include "settings/printer_settings.h"

namespace vmk {

// Settings with their values, in the order of storing; not always all of them.
using Document = std::map<const SettingInfo*, Value>;

// The values of a record as they are stored, in the order of storing.
std::vector<Value> StoredValues(const PrinterSettings& settings);

// All settings of a record.
Document DocumentOf(const PrinterSettings& settings);

// The defaults of a fresh record.
Document Defaults();

void RemovePasswords(Document& document);

// A setting that two documents differ in; a value that a document lacks is empty.
struct Difference {
    const SettingInfo* setting = nullptr;
    std::optional<Value> before;
    std::optional<Value> after;
};
std::vector<Difference> Differences(const Document& before, const Document& after);

// The same, but for settings that `after` does not say anything about.
std::vector<Difference> ChangesBy(const Document& after, const Document& before);

}  // namespace vmk
