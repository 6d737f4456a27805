#include "component/registration.h"

#include <oleauto.h>

#include <string>
#include <string_view>

#include "component/class_table.h"
#include "component/guarded.h"
#include "component/type_library.h"
#include "resources/resource_ids.h"

namespace vmk {
namespace {

enum class ScriptMode { kRegister, kUnregister };

// What lasts for one registration: the thread's locale, so that script parser and type-library registration
// do not depend on the user's, and the module's registrar.
class RegistrationScope {
  public:
    explicit RegistrationScope(CvmkctrlModule& module) noexcept
        : m_module(module), m_locale(GetThreadLocale()) {
        SetThreadLocale(LOCALE_SYSTEM_DEFAULT);
    }
    ~RegistrationScope() {
        m_module.ReleaseRegistrar();
        SetThreadLocale(m_locale);
    }
    RegistrationScope(const RegistrationScope&) = delete;
    RegistrationScope& operator=(const RegistrationScope&) = delete;

  private:
    CvmkctrlModule& m_module;
    LCID m_locale;
};

// The scripts hold the path between single quotes, where a quote is written twice.
std::wstring QuotedForScript(std::wstring_view text) {
    std::wstring quoted;
    for (const wchar_t character : text) quoted.append(character == L'\'' ? 2 : 1, character);
    return quoted;
}

HRESULT RunScript(CvmkctrlModule& module, UINT script, ScriptMode mode) {
    const std::wstring path = Module::Get().Path();
    ComPointer<IRegistrar> registrar;
    HRESULT result = module.GetRegistrar(registrar.put());
    if (SUCCEEDED(result)) result = registrar->ClearReplacements();
    if (SUCCEEDED(result)) result = module.AddCommonReplacements(registrar.get());
    if (SUCCEEDED(result)) result = registrar->AddReplacement(L"MODULE", QuotedForScript(path).c_str());
    if (FAILED(result)) return result;
    return mode == ScriptMode::kRegister ? registrar->ResourceRegister(path.c_str(), script, L"REGISTRY")
                                         : registrar->ResourceUnregister(path.c_str(), script, L"REGISTRY");
}

HRESULT RunClassScripts(CvmkctrlModule& module, ScriptMode mode) {
    HRESULT result = S_OK;
    for (const ClassEntry& entry : Classes()) {
        result = RunScript(module, entry.registryScript, mode);
        if (FAILED(result)) break;
    }
    return result;
}

HRESULT RegisterOwnTypeLibrary() {
    ComPointer<ITypeLib> library;
    const HRESULT result = LoadOwnTypeLibrary(library);
    if (FAILED(result)) return result;
    std::wstring path = Module::Get().Path();
    std::wstring folder = path.substr(0, path.find_last_of(L'\\'));
    return RegisterTypeLib(library.get(), path.data(), folder.data());
}

HRESULT UnregisterOwnTypeLibrary() {
    ComPointer<ITypeLib> library;
    HRESULT result = LoadOwnTypeLibrary(library);
    TLIBATTR* found = nullptr;
    if (SUCCEEDED(result)) result = library->GetLibAttr(&found);
    if (FAILED(result)) return result;
    const TLIBATTR attributes = *found;
    library->ReleaseTLibAttr(found);
    return UnRegisterTypeLib(attributes.guid, attributes.wMajorVerNum, attributes.wMinorVerNum,
                             attributes.lcid, attributes.syskind);
}

}  // namespace

HRESULT RegisterModule(CvmkctrlModule& module) noexcept {
    return Guarded([&module] {
        const RegistrationScope scope(module);
        HRESULT result = RunScript(module, IDR_REGISTRY_MODULE, ScriptMode::kRegister);
        if (SUCCEEDED(result)) result = RunClassScripts(module, ScriptMode::kRegister);
        if (SUCCEEDED(result)) result = RegisterOwnTypeLibrary();
        return result;
    });
}

HRESULT UnregisterModule(CvmkctrlModule& module) noexcept {
    return Guarded([&module] {
        const RegistrationScope scope(module);
        HRESULT result = RunClassScripts(module, ScriptMode::kUnregister);
        if (SUCCEEDED(result)) result = UnregisterOwnTypeLibrary();
        return result;
    });
}

}  // namespace vmk
