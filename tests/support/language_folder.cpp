#include "tests/support/language_folder.h"

#include "settings/registry_path.h"

namespace vmk::test {
namespace {

constexpr char kValue[] = "VLF_PATH";

}  // namespace

ConfiguredLanguageFolder::ConfiguredLanguageFolder(std::string_view ansiPath, DWORD type) {
    const std::string path(ansiPath);
    DWORD size = 0;
    if (RegGetValueA(HKEY_LOCAL_MACHINE, kRegistryRoot, kValue, RRF_RT_REG_SZ, nullptr, nullptr, &size) ==
        ERROR_SUCCESS) {
        m_wasSet = true;
        m_previous.resize(size);
        RegGetValueA(HKEY_LOCAL_MACHINE, kRegistryRoot, kValue, RRF_RT_REG_SZ, nullptr, m_previous.data(),
                     &size);
    }
    RegSetKeyValueA(HKEY_LOCAL_MACHINE, kRegistryRoot, kValue, type, path.c_str(),
                    static_cast<DWORD>(path.size() + 1));
}

ConfiguredLanguageFolder::~ConfiguredLanguageFolder() {
    if (m_wasSet) {
        RegSetKeyValueA(HKEY_LOCAL_MACHINE, kRegistryRoot, kValue, REG_SZ, m_previous.c_str(),
                        static_cast<DWORD>(m_previous.size()));
    } else {
        RegDeleteKeyValueA(HKEY_LOCAL_MACHINE, kRegistryRoot, kValue);
    }
}

}  // namespace vmk::test
