#pragma once

#include <windows.h>

#include <oaidl.h>

#include "base/com_pointer.h"
#include "component/dispatcher.h"
#include "component/module_lock.h"
#include "component/preferences_editor.h"
#include "vmkctrl.h"

namespace vmk {

// The COM face of a PreferencesEditor. Lives in one apartment, so its references are counted without
// interlocking; the last Release frees it. No method fails for what a host passes: ordinary failures are
// silent, only running out of memory is reported.
class CPdfPrinterPreferences final : public ISupportErrorInfo, public IPdfPrinterPreferences {
  public:
    // A fresh object, asked for `riid`; E_OUTOFMEMORY, or what QueryInterface answers.
    static HRESULT Create(REFIID riid, void** object) noexcept;

    CPdfPrinterPreferences(const CPdfPrinterPreferences&) = delete;
    CPdfPrinterPreferences& operator=(const CPdfPrinterPreferences&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override;
    ULONG STDMETHODCALLTYPE Release() noexcept override;

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID riid) noexcept override;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID riid, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* badArgument) noexcept override;

    HRESULT STDMETHODCALLTYPE OpenDialog(LONG languageId, LONG* exitCode) noexcept override;
    HRESULT STDMETHODCALLTYPE EnablePage(PdfPrinterDialogPage pages) noexcept override;
    HRESULT STDMETHODCALLTYPE DisablePage(PdfPrinterDialogPage pages) noexcept override;
    HRESULT STDMETHODCALLTYPE UseDefaultValues(PdfPrinterDialogPage pages) noexcept override;
    HRESULT STDMETHODCALLTYPE InitFromRegistry(PdfPrinterDialogPage pages, BSTR subKey) noexcept override;
    HRESULT STDMETHODCALLTYPE StoreInRegistry(PdfPrinterDialogPage pages, BSTR subKey) noexcept override;
    HRESULT STDMETHODCALLTYPE SetTitle(BSTR title) noexcept override;

  private:
    CPdfPrinterPreferences() = default;
    ~CPdfPrinterPreferences() = default;
    static ComPointer<CPdfPrinterPreferences> Make();

    ModuleLock m_moduleLock;  // first, so that it is given back last
    ULONG m_references = 0;
    PreferencesEditor m_editor;
    Dispatcher m_dispatcher{__uuidof(IPdfPrinterPreferences)};
};

}  // namespace vmk
