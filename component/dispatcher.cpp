#include "component/dispatcher.h"

#include <oleauto.h>

#include <algorithm>

#include "component/invoke_arguments.h"
#include "component/type_library.h"

namespace vmk {
namespace {

class FunctionDescription {
  public:
    explicit FunctionDescription(ITypeInfo& info) noexcept : m_info(info) {}
    ~FunctionDescription() { Release(); }
    FunctionDescription(const FunctionDescription&) = delete;
    FunctionDescription& operator=(const FunctionDescription&) = delete;

    const FUNCDESC& operator*() const noexcept { return *m_function; }

    // Looks for a method that hosts may call. DISP_E_MEMBERNOTFOUND when there is none.
    HRESULT FindMethod(DISPID member) noexcept {
        for (UINT index = 0; SUCCEEDED(m_info.GetFuncDesc(index, &m_function)); ++index) {
            if (m_function->memid == member && m_function->invkind == INVOKE_FUNC &&
                !(m_function->wFuncFlags & FUNCFLAG_FRESTRICTED))
                return S_OK;
            Release();
        }
        return DISP_E_MEMBERNOTFOUND;
    }

  private:
    void Release() noexcept {
        if (m_function) m_info.ReleaseFuncDesc(m_function);
        m_function = nullptr;
    }

    ITypeInfo& m_info;
    FUNCDESC* m_function = nullptr;
};

}  // namespace

HRESULT Dispatcher::LoadTypeInfo() {
    if (m_typeInfo) return S_OK;
    ComPointer<ITypeLib> library;
    const HRESULT result = LoadOwnTypeLibrary(library);
    if (FAILED(result)) return result;
    return library->GetTypeInfoOfGuid(*m_interfaceId, m_typeInfo.put());
}

HRESULT Dispatcher::GetTypeInfo(UINT index, ITypeInfo** info) {
    if (!info) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    const HRESULT result = LoadTypeInfo();
    if (FAILED(result)) return result;
    *info = m_typeInfo.get();
    (*info)->AddRef();
    return S_OK;
}

HRESULT Dispatcher::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, DISPID* ids) {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids || count == 0) return E_INVALIDARG;
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const HRESULT result = LoadTypeInfo();
    if (FAILED(result)) return result;
    return m_typeInfo->GetIDsOfNames(names, count, ids);
}

HRESULT Dispatcher::Invoke(void* instance, REFIID reserved, const AutomationCall& call) {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!call.arguments) return E_INVALIDARG;
    if (call.result) VariantInit(call.result);
    if (!(call.flags & DISPATCH_METHOD)) return DISP_E_MEMBERNOTFOUND;

    HRESULT result = LoadTypeInfo();
    if (FAILED(result)) return result;
    FunctionDescription method(*m_typeInfo);
    result = method.FindMethod(call.member);
    if (FAILED(result)) return result;
    InvokeArguments arguments;
    result = arguments.Bind(*method, *call.arguments, call.locale, call.badArgument);
    if (FAILED(result)) return result;
    result = m_typeInfo->Invoke(instance, call.member, DISPATCH_METHOD, arguments.get(), nullptr,
                                call.exception, call.badArgument);
    if (SUCCEEDED(result)) arguments.WriteBack();
    return result;
}

}  // namespace vmk
