#include "tests/component/class_registry.h"

#include <array>

namespace vmk::test {
namespace {

constexpr std::array kRegistrationKeys = {
    L"AppID\\{AA78F3FC-E173-4199-8320-1B972FB8A3C1}",
    L"AppID\\vmkctrl.DLL",
    L"CLSID\\{2EE01CFA-139F-431E-BB1D-5E56B4DCEC18}",
    L"Interface\\{FA1B9B7A-AA93-48A6-9918-60E8B1F53B1C}",
    L"TypeLib\\{6FFF7E87-F6AE-4A4A-A655-F7486F621DA1}",
    L"vmkctrl.PdfPrinterPreferences",
    L"vmkctrl.PdfPrinterPreferences.1",
};

std::wstring DataText(DWORD type, const std::array<wchar_t, 2048>& data) {
    if (type == REG_SZ) return data.data();
    if (type == REG_DWORD) return std::to_wstring(*reinterpret_cast<const DWORD*>(data.data()));
    return L"of type " + std::to_wstring(type);
}

void AddTree(HKEY key, const std::wstring& path, RegistryContent& content) {
    content[path];
    std::array<wchar_t, 256> name{};
    for (DWORD index = 0;; ++index) {
        std::array<wchar_t, 2048> data{};
        DWORD nameLength = name.size();
        DWORD dataSize = sizeof data - sizeof(wchar_t);
        DWORD type = 0;
        if (RegEnumValueW(key, index, name.data(), &nameLength, nullptr, &type,
                          reinterpret_cast<BYTE*>(data.data()), &dataSize) != ERROR_SUCCESS)
            break;
        content[path + L"|" + name.data()] = DataText(type, data);
    }
    for (DWORD index = 0;; ++index) {
        DWORD nameLength = name.size();
        if (RegEnumKeyExW(key, index, name.data(), &nameLength, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            break;
        for (const auto& [below, value] : ReadTree(key, name.data()))
            content[std::wstring(path).append(L"\\").append(below)] = value;
    }
}

}  // namespace

RegistryContent ReadTree(HKEY root, const std::wstring& path) {
    RegistryContent content;
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return content;
    AddTree(key, path, content);
    RegCloseKey(key);
    return content;
}

RegistryContent ReadRegistration() {
    RegistryContent content;
    for (const wchar_t* path : kRegistrationKeys) content.merge(ReadTree(HKEY_CLASSES_ROOT, path));
    return content;
}

void WipeRegistration() {
    for (const wchar_t* path : kRegistrationKeys) RegDeleteTreeW(HKEY_CLASSES_ROOT, path);
}

}  // namespace vmk::test
