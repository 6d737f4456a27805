#include "host/settings_keys.h"

#include <algorithm>
#include <array>

#include "base/registry_key.h"
#include "host/failure.h"
#include "host/stored_settings.h"
#include "host/text.h"
#include "settings/registry_path.h"
#include "settings/registry_store.h"
#include "settings/settings_key.h"

namespace vmk {
namespace {

constexpr const char* kNotWritten = "; check whether you may write there. Nothing is changed";

// A value as the registry has it, in its own texts, so that putting it back converts nothing.
struct RawValue {
    DWORD type = REG_NONE;
    std::vector<BYTE> data;
};

std::wstring WideName(std::string_view name) {
    return {name.begin(), name.end()};
}

std::optional<RawValue> ReadRaw(HKEY key, std::string_view name) {
    const std::wstring wide = WideName(name);
    RawValue value;
    DWORD size = 0;
    LSTATUS status = RegQueryValueExW(key, wide.c_str(), nullptr, &value.type, nullptr, &size);
    while (status == ERROR_SUCCESS || status == ERROR_MORE_DATA) {
        value.data.resize(size);
        status = RegQueryValueExW(key, wide.c_str(), nullptr, &value.type, value.data.data(), &size);
        if (status != ERROR_SUCCESS) continue;
        value.data.resize(size);
        return value;
    }
    return std::nullopt;
}

LSTATUS WriteRaw(HKEY key, std::string_view name, const std::optional<RawValue>& value) {
    const std::wstring wide = WideName(name);
    if (value) {
        return RegSetValueExW(key, wide.c_str(), 0, value->type, value->data.data(),
                              static_cast<DWORD>(value->data.size()));
    }
    const LSTATUS status = RegDeleteValueW(key, wide.c_str());
    return status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status;
}

std::string PathOfKey(const std::wstring& subKey) {
    const auto path = SettingsKeyPath(subKey);
    if (!path) throw Failure("the registry cannot have a key " + NameOfSettingsKey(subKey) + kNotWritten);
    return *path;
}

bool KeyIsThere(const std::string& path) {
    UniqueRegistryKey key;
    return RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, key.put()) == ERROR_SUCCESS;
}

UniqueRegistryKey OpenToChange(const std::string& path) {
    UniqueRegistryKey key;
    const LSTATUS status =
        RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_READ | KEY_WRITE, nullptr, key.put(), nullptr);
    if (status == ERROR_SUCCESS) return key;
    throw Failure("HKEY_CURRENT_USER\\" + Utf8FromWide(WideFromAnsi(path)) + " cannot be opened or created" +
                      kNotWritten,
                  HRESULT_FROM_WIN32(status));
}

void Require(LSTATUS status, std::string_view name) {
    if (status == ERROR_SUCCESS) return;
    throw Failure(std::string(name) + " cannot be stored" + kNotWritten, HRESULT_FROM_WIN32(status));
}

LSTATUS StoreValue(HKEY key, const char* name, const Value& value) {
    const auto* const number = std::get_if<std::int32_t>(&value);
    return number ? StoreNumber(key, name, *number) : StoreText(key, name, std::get<std::wstring>(value));
}

bool HoldsSettings(HKEY key) {
    return std::ranges::any_of(Settings(), [&](const SettingInfo& setting) {
        return RegQueryValueExA(key, setting.name.data(), nullptr, nullptr, nullptr, nullptr) ==
               ERROR_SUCCESS;
    });
}

std::vector<std::string> NamesOfSubKeys(HKEY key) {
    std::vector<std::string> names;
    std::array<char, 1024> name{};
    for (DWORD index = 0;; ++index) {
        DWORD size = name.size();
        if (RegEnumKeyExA(key, index, name.data(), &size, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            break;
        names.emplace_back(name.data(), size);
    }
    std::ranges::sort(names, IsBeforeIgnoringCase);
    return names;
}

void FindKeys(const std::string& subKey, std::vector<std::wstring>& found) {
    UniqueRegistryKey key;
    const std::string path = kRegistryRoot + subKey;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS) return;
    if (HoldsSettings(key.get())) found.push_back(WideFromAnsi(subKey));
    const std::string start = subKey.empty() ? "" : subKey + "\\";
    for (const std::string& name : NamesOfSubKeys(key.get())) FindKeys(start + name, found);
}

}  // namespace

struct SettingsChange::Before {
    std::string path;
    std::string name;
    std::optional<RawValue> value;
};

std::optional<Document> ReadSettings(const std::wstring& subKey) {
    const auto path = SettingsKeyPath(subKey);
    if (!path) return std::nullopt;
    UniqueRegistryKey key;
    const LSTATUS status = RegOpenKeyExA(HKEY_CURRENT_USER, path->c_str(), 0, KEY_READ, key.put());
    if (status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND) return std::nullopt;
    if (status != ERROR_SUCCESS) {
        throw Failure(NameOfSettingsKey(subKey) + " cannot be opened", HRESULT_FROM_WIN32(status));
    }
    PrinterSettings settings;
    LoadGroups(key.get(), page_bit::kAllPages, settings);
    return DocumentOf(settings);
}

Document RequireSettings(const std::wstring& subKey) {
    std::optional<Document> document = ReadSettings(subKey);
    if (!document) {
        throw Failure("there is no key " + NameOfSettingsKey(subKey) +
                      "; vmkprefs keys lists those there are");
    }
    return *std::move(document);
}

std::vector<std::wstring> KeysWithSettings() {
    std::vector<std::wstring> found;
    FindKeys("", found);
    return found;
}

SettingsChange::SettingsChange() = default;

SettingsChange::~SettingsChange() {
    if (!m_committed) TakeBack();
}

void SettingsChange::Store(const Document& document, const std::wstring& subKey) {
    const std::string path = PathOfKey(subKey);
    MakeKey(path);
    const UniqueRegistryKey key = OpenToChange(path);
    for (const auto& [setting, value] : document) {
        Remember(key.get(), path, setting->name.data());
        Require(StoreValue(key.get(), setting->name.data(), value), setting->name);
    }
}

void SettingsChange::Copy(const std::wstring& from, const std::wstring& to) {
    UniqueRegistryKey source;
    const LSTATUS status =
        RegOpenKeyExA(HKEY_CURRENT_USER, PathOfKey(from).c_str(), 0, KEY_READ, source.put());
    if (status != ERROR_SUCCESS) {
        throw Failure("there is no key " + NameOfSettingsKey(from) + " that can be read",
                      HRESULT_FROM_WIN32(status));
    }
    const std::string path = PathOfKey(to);
    MakeKey(path);
    const UniqueRegistryKey key = OpenToChange(path);
    for (const SettingInfo& setting : Settings()) {
        Remember(key.get(), path, setting.name.data());
        Require(WriteRaw(key.get(), setting.name, ReadRaw(source.get(), setting.name)), setting.name);
    }
}

// Name by name, since an outer key that is made on the way has to go again, too.
void SettingsChange::MakeKey(const std::string& path) {
    for (std::size_t end = path.find('\\'); end != std::string::npos; end = path.find('\\', end + 1)) {
        const std::string outer = path.substr(0, end);
        if (KeyIsThere(outer)) continue;
        OpenToChange(outer);
        m_made.push_back(outer);
    }
    if (path.ends_with('\\') || KeyIsThere(path)) return;
    OpenToChange(path);
    m_made.push_back(path);
}

void SettingsChange::Remember(HKEY key, const std::string& path, const char* name) {
    m_before.push_back({.path = path, .name = name, .value = ReadRaw(key, name)});
}

// The last change first: a value may have been changed twice, and an inner key was made after the outer one.
void SettingsChange::TakeBack() noexcept {
    std::for_each(m_before.rbegin(), m_before.rend(), [](const Before& before) {
        UniqueRegistryKey key;
        RegOpenKeyExA(HKEY_CURRENT_USER, before.path.c_str(), 0, KEY_WRITE, key.put());
        if (key) WriteRaw(key.get(), before.name, before.value);
    });
    std::for_each(m_made.rbegin(), m_made.rend(),
                  [](const std::string& path) { RegDeleteKeyA(HKEY_CURRENT_USER, path.c_str()); });
}

}  // namespace vmk
