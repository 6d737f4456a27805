#include "component/module.h"

#include "component/exception_globals.h"
#include "component/exception_reserve.h"

namespace vmk {

CvmkctrlModule::~CvmkctrlModule() {
    ReleaseExceptionReserve();
    FreeExceptionGlobals();
}

HRESULT CvmkctrlModule::GetRegistrar(IRegistrar** registrar) noexcept {
    if (!registrar) return E_POINTER;
    *registrar = nullptr;
    if (!m_registrar) {
        const HRESULT result = CoCreateInstance(kRegistrarClass, nullptr, CLSCTX_INPROC_SERVER,
                                                kRegistrarInterface, m_registrar.PutVoid());
        if (FAILED(result)) return result;
    }
    *registrar = m_registrar.get();
    (*registrar)->AddRef();
    return S_OK;
}

HRESULT CvmkctrlModule::AddCommonReplacements(IRegistrar* registrar) noexcept {
    if (!registrar) return E_POINTER;
    return registrar->AddReplacement(L"APPID", kAppId);
}

}  // namespace vmk
