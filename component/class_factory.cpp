#include "component/class_factory.h"

#include "framework/module.h"

namespace vmk {

HRESULT ClassFactory::QueryInterface(REFIID riid, void** object) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (riid != __uuidof(IUnknown) && riid != __uuidof(IClassFactory)) return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
}

ULONG ClassFactory::AddRef() noexcept {
    return static_cast<ULONG>(InterlockedIncrement(&m_references));
}

ULONG ClassFactory::Release() noexcept {
    return static_cast<ULONG>(InterlockedDecrement(&m_references));
}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID riid, void** object) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    return m_create(riid, object);
}

HRESULT ClassFactory::LockServer(BOOL lock) noexcept {
    if (lock) {
        Module::Get().Lock();
    } else {
        Module::Get().Unlock();
    }
    return S_OK;
}

}  // namespace vmk
