// Loading and storing every setting, against a bare loop of one registry call for each value of the same key.
// The work around the calls should not be felt.

#include <windows.h>

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "base/registry_key.h"
#include "bench/figures.h"
#include "settings/groups.h"
#include "settings/registry_store.h"

namespace vmk {
namespace {

constexpr char kPath[] = "SOFTWARE\\vmkctrl registry benchmark";
constexpr int kRounds = 200;

struct Value {
    const char* name;
    DWORD type;
    std::vector<BYTE> bytes;
};

// Every value of the key, read beforehand, so that the bare loops do nothing but call.
std::vector<Value> ReadValues(HKEY key) {
    std::vector<Value> values;
    const PrinterSettings settings;
    WalkFields(
        page_bit::kAllPages,
        [&](const char* name, const auto&) {
            Value value{.name = name, .type = REG_NONE, .bytes = std::vector<BYTE>(1024)};
            DWORD size = 1024;
            RegQueryValueExA(key, name, nullptr, &value.type, value.bytes.data(), &size);
            value.bytes.resize(size);
            values.push_back(value);
        },
        settings);
    return values;
}

void QueryEachValue(HKEY key, const std::vector<Value>& values) {
    BYTE buffer[1024];
    for (const Value& value : values) {
        DWORD size = value.type == REG_DWORD ? sizeof(DWORD) : sizeof buffer;
        RegQueryValueExA(key, value.name, nullptr, nullptr, buffer, &size);
    }
}

void SetEachValue(HKEY key, const std::vector<Value>& values) {
    for (const Value& value : values) {
        RegSetValueExA(key, value.name, 0, value.type, value.bytes.data(),
                       static_cast<DWORD>(value.bytes.size()));
    }
}

// In microseconds.
double Duration(const std::function<void()>& work) {
    LARGE_INTEGER start;
    LARGE_INTEGER end;
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&start);
    work();
    QueryPerformanceCounter(&end);
    return 1e6 * static_cast<double>(end.QuadPart - start.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// The two are timed in turn, so that whatever else the machine does meets both.
void Compare(const char* what, const std::function<void()>& ours, const std::function<void()>& bare) {
    std::vector<double> ourTimes;
    std::vector<double> bareTimes;
    for (int round = 0; round < kRounds; ++round) {
        ourTimes.push_back(Duration(ours));
        bareTimes.push_back(Duration(bare));
    }
    std::printf("%s: %.0f us, bare calls %.0f us\n", what, Median(ourTimes), Median(bareTimes));
    PrintRow(what, RatioOf(ourTimes, bareTimes), AtMost(1.05));
}

// Texts of a usual length in place of the mostly empty defaults.
PrinterSettings UsualSettings() {
    PrinterSettings settings;
    settings.Info.Author = L"Accounting department";
    settings.Info.Title = L"Quarterly report";
    settings.Save.Folder = L"C:\\Users\\Public\\Documents\\Reports";
    settings.Save.App.Run = {.Use = 1, .WithoutPath = 0, .Path = L"C:\\Program Files\\Viewer\\viewer.exe"};
    settings.Email.Content = std::wstring(400, L'x');
    return settings;
}

int Run() {
    UniqueRegistryKey key;
    if (RegCreateKeyExA(HKEY_CURRENT_USER, kPath, 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS, nullptr,
                        key.put(), nullptr) != ERROR_SUCCESS) {
        std::fputs("cannot create the benchmark's key\n", stderr);
        return 1;
    }
    HKEY open = key.get();
    PrinterSettings settings = UsualSettings();
    StoreGroups(open, page_bit::kAllPages, settings);
    const std::vector<Value> values = ReadValues(open);

    Compare(
        "loading every setting: to the bare registry calls",
        [&] { LoadGroups(open, page_bit::kAllPages, settings); }, [&] { QueryEachValue(open, values); });
    Compare(
        "storing every setting: to the bare registry calls",
        [&] { StoreGroups(open, page_bit::kAllPages, settings); }, [&] { SetEachValue(open, values); });

    key.reset();
    RegDeleteTreeA(HKEY_CURRENT_USER, kPath);
    return 0;
}

}  // namespace
}  // namespace vmk

int main() {
    return vmk::Run();
}
