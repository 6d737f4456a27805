#include "host/document.h"

#include "settings/groups.h"

namespace vmk {
namespace {

struct ValueNoter {
    std::vector<Value>& values;

    void operator()(const char*, std::int32_t number) const { values.emplace_back(number); }
    void operator()(const char*, const std::wstring& text) const { values.emplace_back(text); }
    void operator()(const char*, const RunApplication& run) const {
        if (run.Use && !run.WithoutPath) {
            values.emplace_back(run.Path);
        } else {
            values.emplace_back(run.Use ? 1 : 0);
        }
    }
    void operator()(const char*, const SwapToDisk& swap) const {
        values.emplace_back(swap.Enabled ? swap.Megabytes : 0);
    }
};

std::optional<Value> ValueIn(const Document& document, const SettingInfo& setting) {
    const auto found = document.find(&setting);
    return found == document.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace

std::vector<Value> StoredValues(const PrinterSettings& settings) {
    std::vector<Value> values;
    WalkFields(page_bit::kAllPages, ValueNoter{values}, settings);
    return values;
}

Document DocumentOf(const PrinterSettings& settings) {
    Document document;
    const std::vector<Value> values = StoredValues(settings);
    for (std::size_t place = 0; place != values.size(); ++place) {
        document.emplace(&Settings()[place], values[place]);
    }
    return document;
}

Document Defaults() {
    return DocumentOf({});
}

void RemovePasswords(Document& document) {
    std::erase_if(document, [](const auto& entry) { return entry.first->secret; });
}

std::vector<Difference> Differences(const Document& before, const Document& after) {
    std::vector<Difference> differences;
    for (const SettingInfo& setting : Settings()) {
        Difference difference{&setting, ValueIn(before, setting), ValueIn(after, setting)};
        if (difference.before != difference.after) differences.push_back(std::move(difference));
    }
    return differences;
}

std::vector<Difference> ChangesBy(const Document& after, const Document& before) {
    std::vector<Difference> changes = Differences(before, after);
    std::erase_if(changes, [](const Difference& difference) { return !difference.after; });
    return changes;
}

}  // namespace vmk
