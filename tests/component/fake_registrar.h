#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <vector>

#include "component/registrar.h"

namespace vmk::test {

// Takes the place of the system's registrar on this thread as long as it lives: notes what it is told, and
// fails where the test wants it to.
class FakeRegistrar final : public IRegistrar, public IClassFactory {
  public:
    struct Run {
        std::wstring verb;  // "register" or "unregister"
        std::wstring file;
        UINT script;
        std::wstring type;
        LCID locale;  // the thread's
        std::map<std::wstring, std::wstring> replacements;
    };

    FakeRegistrar();
    ~FakeRegistrar();
    FakeRegistrar(const FakeRegistrar&) = delete;
    FakeRegistrar& operator=(const FakeRegistrar&) = delete;

    void FailAt(UINT script, HRESULT failure) { m_failures[script] = failure; }

    const std::vector<Run>& Runs() const noexcept { return m_runs; }
    int TimesMade() const noexcept { return m_made; }
    LONG References() const noexcept { return m_references; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return static_cast<ULONG>(++m_references); }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return static_cast<ULONG>(--m_references); }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** object) noexcept override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) noexcept override { return S_OK; }

    HRESULT STDMETHODCALLTYPE AddReplacement(LPCOLESTR key, LPCOLESTR item) override;
    HRESULT STDMETHODCALLTYPE ClearReplacements() override;
    HRESULT STDMETHODCALLTYPE ResourceRegister(LPCOLESTR file, UINT id, LPCOLESTR type) override;
    HRESULT STDMETHODCALLTYPE ResourceUnregister(LPCOLESTR file, UINT id, LPCOLESTR type) override;

    HRESULT STDMETHODCALLTYPE ResourceRegisterSz(LPCOLESTR, LPCOLESTR, LPCOLESTR) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ResourceUnregisterSz(LPCOLESTR, LPCOLESTR, LPCOLESTR) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE FileRegister(LPCOLESTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE FileUnregister(LPCOLESTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE StringRegister(LPCOLESTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE StringUnregister(LPCOLESTR) override { return E_NOTIMPL; }

  private:
    HRESULT Note(const wchar_t* verb, LPCOLESTR file, UINT script, LPCOLESTR type);

    std::map<std::wstring, std::wstring> m_replacements;
    std::map<UINT, HRESULT> m_failures;
    std::vector<Run> m_runs;
    int m_made = 0;
    LONG m_references = 0;
    DWORD m_cookie = 0;
};

}  // namespace vmk::test
