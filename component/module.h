#pragma once

#include <windows.h>

#include "base/com_pointer.h"
#include "component/registrar.h"
#include "framework/module.h"

namespace vmk {

// The application that the class belongs to, as registry scripts spell it.
inline constexpr wchar_t kAppId[] = L"{AA78F3FC-E173-4199-8320-1B972FB8A3C1}";

// The DLL's module object: adds the registrar to the lock count and the instance of its base.
class CvmkctrlModule final : public Module {
  public:
    ~CvmkctrlModule() override;

    // The registrar, created on first use on a thread that has COM; the caller releases *registrar. E_POINTER
    // for a null pointer, else what creating it answers.
    virtual HRESULT GetRegistrar(IRegistrar** registrar) noexcept;

    // Adds what every script of this module may use: APPID.
    virtual HRESULT AddCommonReplacements(IRegistrar* registrar) noexcept;

    // Gives up the cached registrar. It belongs to the COM apartment it was made in, so whoever registers
    // calls this before returning: by the time the module is unloaded, the apartment may be gone.
    void ReleaseRegistrar() noexcept { m_registrar.reset(); }

  private:
    ComPointer<IRegistrar> m_registrar;
};

}  // namespace vmk
