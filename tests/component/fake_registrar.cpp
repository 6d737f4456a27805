#include "tests/component/fake_registrar.h"

#include <objbase.h>

#include <stdexcept>

namespace vmk::test {

FakeRegistrar::FakeRegistrar() {
    if (FAILED(CoRegisterClassObject(kRegistrarClass, static_cast<IClassFactory*>(this), CLSCTX_INPROC_SERVER,
                                     REGCLS_MULTIPLEUSE, &m_cookie)))
        throw std::runtime_error("the class object cannot be put in place");
}

FakeRegistrar::~FakeRegistrar() {
    CoRevokeClassObject(m_cookie);
}

HRESULT FakeRegistrar::QueryInterface(REFIID riid, void** object) noexcept {
    *object = nullptr;
    if (riid == kRegistrarInterface) *object = static_cast<IRegistrar*>(this);
    if (riid == __uuidof(IUnknown) || riid == __uuidof(IClassFactory))
        *object = static_cast<IClassFactory*>(this);
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

HRESULT FakeRegistrar::CreateInstance(IUnknown*, REFIID riid, void** object) noexcept {
    ++m_made;
    return QueryInterface(riid, object);
}

HRESULT FakeRegistrar::AddReplacement(LPCOLESTR key, LPCOLESTR item) {
    m_replacements[key] = item;
    return S_OK;
}

HRESULT FakeRegistrar::ClearReplacements() {
    m_replacements.clear();
    return S_OK;
}

HRESULT FakeRegistrar::ResourceRegister(LPCOLESTR file, UINT id, LPCOLESTR type) {
    return Note(L"register", file, id, type);
}

HRESULT FakeRegistrar::ResourceUnregister(LPCOLESTR file, UINT id, LPCOLESTR type) {
    return Note(L"unregister", file, id, type);
}

HRESULT FakeRegistrar::Note(const wchar_t* verb, LPCOLESTR file, UINT script, LPCOLESTR type) {
    m_runs.push_back({verb, file, script, type, GetThreadLocale(), m_replacements});
    return m_failures.contains(script) ? m_failures[script] : S_OK;
}

}  // namespace vmk::test
