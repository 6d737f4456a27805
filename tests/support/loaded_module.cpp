#include "tests/support/loaded_module.h"

#include <objbase.h>

#include <oleauto.h>

#include <stdexcept>

namespace vmk::test {

std::wstring TestFolder() {
    const std::wstring path = PathOf(nullptr);
    return path.substr(0, path.find_last_of(L'\\'));
}

std::wstring BuiltModulePath() {
    const std::wstring folder = TestFolder();
    return folder.substr(0, folder.find_last_of(L'\\')) + L"\\vmkctrl.dll";
}

LoadedModule::LoadedModule(const std::wstring& path) : m_module(LoadLibraryW(path.c_str())) {
    if (!m_module) throw std::runtime_error("the DLL cannot be loaded");
    m_canUnloadNow = RequiredEntryPoint<HRESULT STDAPICALLTYPE()>("DllCanUnloadNow");
    m_getClassObject =
        RequiredEntryPoint<HRESULT STDAPICALLTYPE(REFCLSID, REFIID, void**)>("DllGetClassObject");
    m_registerServer = RequiredEntryPoint<HRESULT STDAPICALLTYPE()>("DllRegisterServer");
    m_unregisterServer = RequiredEntryPoint<HRESULT STDAPICALLTYPE()>("DllUnregisterServer");
}

template <typename Function>
Function* LoadedModule::RequiredEntryPoint(const char* name) const {
    auto* const function = EntryPoint<Function>(m_module.get(), name);
    if (!function) throw std::runtime_error(std::string("the DLL has no ") + name);
    return function;
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
