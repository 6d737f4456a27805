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

// The lock is there before the reference and goes after it, so that no moment between the two makes the
// module look unused, whatever other threads do meanwhile.

ULONG ClassFactory::AddRef() noexcept {
    Module::Get().Lock();
    return static_cast<ULONG>(InterlockedIncrement(&m_references));
}

ULONG ClassFactory::Release() noexcept {
    const LONG left = InterlockedDecrement(&m_references);
    Module::Get().Unlock();
    return static_cast<ULONG>(left);
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
