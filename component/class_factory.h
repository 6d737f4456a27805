#pragma once

#include <windows.h>

#include <unknwn.h>

namespace vmk {

// The class object of one class: a static of the module, so there is one for the process and it is never
// freed. Every reference that a caller holds keeps the module loaded, as living objects and LockServer do.
class ClassFactory final : public IClassFactory {
  public:
    // Makes an object and asks it for an interface. Takes no outer unknown: nothing here can be aggregated.
    using Creator = HRESULT (*)(REFIID riid, void** object) noexcept;

    constexpr explicit ClassFactory(Creator create) noexcept : m_create(create) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override;
    ULONG STDMETHODCALLTYPE Release() noexcept override;

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** object) noexcept override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override;

  private:
    Creator m_create;
    LONG m_references = 1;  // the module's own; any thread may hold more
};

}  // namespace vmk
