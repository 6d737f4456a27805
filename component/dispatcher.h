#pragma once

#include <windows.h>

#include <oaidl.h>

#include "base/com_pointer.h"

namespace vmk {

// What IDispatch::Invoke is given, apart from its reserved interface id. Any of the last three may be null.
struct AutomationCall {
    DISPID member = DISPID_UNKNOWN;
    LCID locale = 0;
    WORD flags = 0;
    const DISPPARAMS* arguments = nullptr;
    VARIANT* result = nullptr;
    EXCEPINFO* exception = nullptr;
    UINT* badArgument = nullptr;
};

// Serves the IDispatch of one dual interface from the module's type library, which is loaded on first use and
// held as long as this object. The interface has methods only, none of which returns a value, and none has
// optional parameters.
class Dispatcher {
  public:
    explicit Dispatcher(const IID& interfaceId) noexcept : m_interfaceId(&interfaceId) {}

    // As the methods of IDispatch.
    HRESULT GetTypeInfo(UINT index, ITypeInfo** info);
    HRESULT GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, DISPID* ids);

    // Calls a method of `instance`, which points to the dual interface. Arguments are converted to the types
    // of the parameters first.
    HRESULT Invoke(void* instance, REFIID reserved, const AutomationCall& call);

  private:
    HRESULT LoadTypeInfo();

    const IID* m_interfaceId;
    ComPointer<ITypeInfo> m_typeInfo;
};

}  // namespace vmk
