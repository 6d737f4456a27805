#include "tests/support/loaded_module.h"

#include <objbase.h>

#include <oleauto.h>

#include <stdexcept>

namespace vmk::test {

std::wstring TestFolder() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\'));
}

std::wstring BuiltModulePath() {
    const std::wstring folder = TestFolder();
    return folder.substr(0, folder.find_last_of(L'\\')) + L"\\vmkctrl.dll";
}

LoadedModule::LoadedModule(const std::wstring& path) : m_module(LoadLibraryW(path.c_str())) {
    if (!m_module) throw std::runtime_error("the DLL cannot be loaded");
    m_canUnloadNow = EntryPoint<HRESULT STDAPICALLTYPE()>("DllCanUnloadNow");
    m_getClassObject = EntryPoint<HRESULT STDAPICALLTYPE(REFCLSID, REFIID, void**)>("DllGetClassObject");
    m_registerServer = EntryPoint<HRESULT STDAPICALLTYPE()>("DllRegisterServer");
    m_unregisterServer = EntryPoint<HRESULT STDAPICALLTYPE()>("DllUnregisterServer");
}

template <typename Function>
Function* LoadedModule::EntryPoint(const char* name) const {
    // By way of void*, since the compiler distrusts a cast between function types.
    void* const address = reinterpret_cast<void*>(GetProcAddress(m_module.get(), name));
    if (!address) throw std::runtime_error(std::string("the DLL has no ") + name);
    return reinterpret_cast<Function*>(address);
}

ComPointer<IClassFactory> LoadedModule::Factory() const {
    ComPointer<IClassFactory> factory;
    GetClassObject(__uuidof(PdfPrinterPreferences), __uuidof(IClassFactory), factory.PutVoid());
    return factory;
}

ComPointer<IPdfPrinterPreferences> LoadedModule::CreatePreferences() const {
    ComPointer<IPdfPrinterPreferences> preferences;
    if (const ComPointer factory = Factory())
        factory->CreateInstance(nullptr, __uuidof(IPdfPrinterPreferences), preferences.PutVoid());
    return preferences;
}

ComApartment::ComApartment() {
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
        throw std::runtime_error("COM cannot be had on this thread");
}

AutomationString::AutomationString(std::wstring_view text)
    : m_text(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
    if (!m_text) throw std::bad_alloc();
}

AutomationString::~AutomationString() {
    SysFreeString(m_text);
}

}  // namespace vmk::test
