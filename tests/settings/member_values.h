#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "settings/groups.h"

// A record as a list of its members, so that tests can say which of them changed.

namespace vmk {

// Visitor that notes every member under its stored name; the parts of a special form get names of their own.
struct MemberNoter {
    std::map<std::string, std::wstring>& values;

    void operator()(const std::string& name, std::int32_t number) const {
        values[name] = std::to_wstring(number);
    }
    void operator()(const std::string& name, const std::wstring& text) const { values[name] = text; }
    void operator()(const std::string& name, const RunApplication& run) const {
        (*this)(name + " (use)", run.Use);
        (*this)(name + " (without path)", run.WithoutPath);
        (*this)(name + " (path)", run.Path);
    }
    void operator()(const std::string& name, const SwapToDisk& swap) const {
        (*this)(name + " (enabled)", swap.Enabled);
        (*this)(name + " (megabytes)", swap.Megabytes);
    }
};

// Every member of the record, those that are never stored included.
inline std::map<std::string, std::wstring> MemberValues(const PrinterSettings& settings) {
    std::map<std::string, std::wstring> values;
    const MemberNoter note{values};
    WalkFields(page_bit::kAllPages, note, settings);
    note("(custom forms)", settings.CustomForms);
    note("(profiles)", settings.Profiles);
    note("(extra document information)", settings.Info.Extra);
    return values;
}

// Visitor that gives each member a value of its own that is no default.
struct MemberChanger {
    std::int32_t& serial;

    void operator()(const char*, std::int32_t& number) const { number = 1000 + serial++; }
    void operator()(const char*, std::wstring& text) const { text = L"text " + std::to_wstring(serial++); }
    void operator()(const char*, RunApplication& run) const {
        run = {.Use = 1, .WithoutPath = 0, .Path = L"C:\\Tools\\viewer.exe"};
    }
    void operator()(const char*, SwapToDisk& swap) const { swap = {.Enabled = 0, .Megabytes = 7}; }
};

// A record in which no member has its default.
inline PrinterSettings ChangedSettings() {
    PrinterSettings settings;
    std::int32_t serial = 1;
    const MemberChanger change{serial};
    WalkFields(page_bit::kAllPages, change, settings);
    change("", settings.CustomForms);
    change("", settings.Profiles);
    change("", settings.Info.Extra);
    return settings;
}

}  // namespace vmk
