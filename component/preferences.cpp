#include "component/preferences.h"

#include <utility>

#include "component/guarded.h"

namespace vmk {
namespace {

// For methods whose failures are silent: the record, or the registry, is then as it was.
template <typename Action>
HRESULT Silently(Action&& action) noexcept {
    Guarded([&] {
        std::forward<Action>(action)();
        return S_OK;
    });
    return S_OK;
}

PageSet PagesOf(PdfPrinterDialogPage pages) noexcept {
    return static_cast<PageSet>(pages);
}

}  // namespace

ComPointer<CPdfPrinterPreferences> CPdfPrinterPreferences::Make() {
    return ComPointer(new CPdfPrinterPreferences);
}

HRESULT CPdfPrinterPreferences::Create(REFIID riid, void** object) noexcept {
    return Guarded([&] {
        const ComPointer made = Make();
        return made->QueryInterface(riid, object);
    });
}

HRESULT CPdfPrinterPreferences::QueryInterface(REFIID riid, void** object) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (riid == __uuidof(IUnknown) || riid == __uuidof(IDispatch) ||
        riid == __uuidof(IPdfPrinterPreferences)) {
        *object = static_cast<IPdfPrinterPreferences*>(this);
    } else if (riid == __uuidof(ISupportErrorInfo)) {
        *object = static_cast<ISupportErrorInfo*>(this);
    } else {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

ULONG CPdfPrinterPreferences::AddRef() noexcept {
    return ++m_references;
}

ULONG CPdfPrinterPreferences::Release() noexcept {
    const ULONG left = --m_references;
    if (left == 0) {
        // As soon as nothing locks the module, another thread may free it: not while this one frees memory.
        const ModuleLock untilFreed;
        delete this;
    }
    return left;
}

HRESULT CPdfPrinterPreferences::InterfaceSupportsErrorInfo(REFIID riid) noexcept {
    return riid == __uuidof(IPdfPrinterPreferences) ? S_OK : S_FALSE;
}

HRESULT CPdfPrinterPreferences::GetTypeInfoCount(UINT* count) noexcept {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT CPdfPrinterPreferences::GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept {
    return Guarded([&] { return m_dispatcher.GetTypeInfo(index, info); });
}

HRESULT CPdfPrinterPreferences::GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID,
                                              DISPID* ids) noexcept {
    return Guarded([&] { return m_dispatcher.GetIDsOfNames(riid, names, count, ids); });
}

HRESULT CPdfPrinterPreferences::Invoke(DISPID member, REFIID riid, LCID locale, WORD flags,
                                       DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                       UINT* badArgument) noexcept {
    // A host may let go of the object while the dialog is open.
    const ComPointer self(this);
    return Guarded([&] {
        return m_dispatcher.Invoke(static_cast<IPdfPrinterPreferences*>(this), riid,
                                   {.member = member,
                                    .locale = locale,
                                    .flags = flags,
                                    .arguments = arguments,
                                    .result = result,
                                    .exception = exception,
                                    .badArgument = badArgument});
    });
}

HRESULT CPdfPrinterPreferences::OpenDialog(LONG languageId, LONG* exitCode) noexcept {
    // A host may let go of the object while the dialog is open.
    const ComPointer self(this);
    *exitCode = m_editor.RunDialog(static_cast<LANGID>(languageId & 0xFFFF));
    return S_OK;
}

HRESULT CPdfPrinterPreferences::EnablePage(PdfPrinterDialogPage pages) noexcept {
    m_editor.EnablePages(PagesOf(pages));
    return S_OK;
}

HRESULT CPdfPrinterPreferences::DisablePage(PdfPrinterDialogPage pages) noexcept {
    m_editor.DisablePages(PagesOf(pages));
    return S_OK;
}

HRESULT CPdfPrinterPreferences::UseDefaultValues(PdfPrinterDialogPage pages) noexcept {
    return Silently([&] { m_editor.UseDefaults(PagesOf(pages)); });
}

HRESULT CPdfPrinterPreferences::InitFromRegistry(PdfPrinterDialogPage pages, BSTR subKey) noexcept {
    return Silently([&] { m_editor.Load(PagesOf(pages), subKey); });
}

HRESULT CPdfPrinterPreferences::StoreInRegistry(PdfPrinterDialogPage pages, BSTR subKey) noexcept {
    return Silently([&] { m_editor.Store(PagesOf(pages), subKey); });
}

HRESULT CPdfPrinterPreferences::SetTitle(BSTR title) noexcept {
    return Guarded([&] {
        m_editor.SetTitle(title ? title : L"");
        return S_OK;
    });
}

}  // namespace vmk
