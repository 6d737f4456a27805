#pragma once

#include <windows.h>

#include <string>

#include "base/com_pointer.h"
#include "base/library.h"
#include "vmkctrl.h"

// The built DLL without the registry, and what its calls need:
//
//     const ComApartment apartment;
//     const LoadedModule module;
//     module.CreatePreferences()->SetTitle(AutomationString(L"Preferences").get());

namespace vmk::test {

inline constexpr GUID kTypeLibraryId = {
    0x6FFF7E87, 0xF6AE, 0x4A4A, {0xA6, 0x55, 0xF7, 0x48, 0x6F, 0x62, 0x1D, 0xA1}};

// The folder of the running test, and the built DLL in the folder above it.
std::wstring TestFolder();
std::wstring BuiltModulePath();

// A DLL that is loaded as long as this object, and its entry points. Where it cannot be loaded, or lacks an
// entry point, construction throws.
class LoadedModule {
  public:
    explicit LoadedModule(const std::wstring& path = BuiltModulePath());

    HMODULE get() const noexcept { return m_module.get(); }

    HRESULT CanUnloadNow() const { return m_canUnloadNow(); }
    HRESULT GetClassObject(REFCLSID classId, REFIID riid, void** object) const {
        return m_getClassObject(classId, riid, object);
    }
    HRESULT RegisterServer() const { return m_registerServer(); }
    HRESULT UnregisterServer() const { return m_unregisterServer(); }

    // The class factory; null after a failure.
    ComPointer<IClassFactory> Factory() const;

    // A new object, made without the registry; null after a failure.
    ComPointer<IPdfPrinterPreferences> CreatePreferences() const;

  private:
    template <typename Function>
    Function* RequiredEntryPoint(const char* name) const;

    UniqueLibrary m_module;
    HRESULT(STDAPICALLTYPE* m_canUnloadNow)();
    HRESULT(STDAPICALLTYPE* m_getClassObject)(REFCLSID, REFIID, void**);
    HRESULT(STDAPICALLTYPE* m_registerServer)();
    HRESULT(STDAPICALLTYPE* m_unregisterServer)();
};

// COM on the calling thread as long as this object, in a single-threaded apartment.
class ComApartment {
  public:
    ComApartment();
    ~ComApartment() { CoUninitialize(); }
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
};

// A BSTR for one call.
class AutomationString {
  public:
    explicit AutomationString(std::wstring_view text);
    ~AutomationString();
    AutomationString(const AutomationString&) = delete;
    AutomationString& operator=(const AutomationString&) = delete;
    BSTR get() const noexcept { return m_text; }

  private:
    BSTR m_text;
};

}  // namespace vmk::test
