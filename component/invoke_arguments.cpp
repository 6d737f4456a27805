#include "component/invoke_arguments.h"

#include <oleauto.h>

#include <utility>

namespace vmk {
namespace {

constexpr VARTYPE kReference = VT_BYREF;
constexpr VARTYPE kVariableReference = VT_BYREF | VT_VARIANT;

// Enumerations travel as numbers.
VARTYPE ValueType(const TYPEDESC& type) noexcept {
    return type.vt == VT_USERDEFINED ? static_cast<VARTYPE>(VT_I4) : type.vt;
}

bool IsOut(const ELEMDESC& parameter) noexcept {
    return parameter.tdesc.vt == VT_PTR && (parameter.paramdesc.wParamFlags & PARAMFLAG_FOUT);
}

bool IsLeftOut(const VARIANT& given) noexcept {
    return V_VT(&given) == VT_ERROR && V_ERROR(&given) == DISP_E_PARAMNOTFOUND;
}

bool IsNullReference(const VARIANT& given) noexcept {
    return (V_VT(&given) & kReference) && !V_BYREF(&given);
}

// The variable that a reference to a variable leads to, or `given` itself. A variable may hold a reference to
// another one; a variable that refers to itself is the last of its chain.
VARIANT& Followed(VARIANT& given) noexcept {
    constexpr int kMostSteps = 4;
    VARIANT* variable = &given;
    for (int step = 0; step < kMostSteps && V_VT(variable) == kVariableReference && V_VARIANTREF(variable);
         ++step)
        variable = V_VARIANTREF(variable);
    return *variable;
}

}  // namespace

InvokeArguments::~InvokeArguments() {
    for (Slot& slot : m_slots) VariantClear(&slot.value);
}

HRESULT InvokeArguments::Bind(const FUNCDESC& method, const DISPPARAMS& given, LCID locale,
                              UINT* badArgument) {
    const UINT count = given.cArgs;
    if (count != static_cast<UINT>(method.cParams) || given.cNamedArgs > count) return DISP_E_BADPARAMCOUNT;
    m_slots.resize(count);
    m_arguments.resize(count);
    for (UINT index = 0; index < count; ++index) {
        // Named arguments come first, the others in reverse order after them.
        const UINT position =
            index < given.cNamedArgs ? static_cast<UINT>(given.rgdispidNamedArgs[index]) : count - 1 - index;
        VARIANT& argument = given.rgvarg[index];
        HRESULT result = S_OK;
        if (position >= count || std::exchange(m_slots[position].taken, true)) {
            result = DISP_E_PARAMNOTFOUND;
        } else if (IsLeftOut(argument)) {
            result = DISP_E_PARAMNOTOPTIONAL;
        } else {
            const ELEMDESC& parameter = method.lprgelemdescParam[position];
            Slot& slot = m_slots[position];
            result = IsOut(parameter) ? BindOut(ValueType(*parameter.tdesc.lptdesc), argument, slot)
                                      : BindIn(ValueType(parameter.tdesc), argument, locale, slot.value);
            m_arguments[count - 1 - position] = slot.value;
        }
        if (FAILED(result)) {
            if (badArgument) *badArgument = index;
            return result;
        }
    }
    m_params = {.rgvarg = m_arguments.data(), .rgdispidNamedArgs = nullptr, .cArgs = count, .cNamedArgs = 0};
    return S_OK;
}

HRESULT InvokeArguments::BindIn(VARTYPE type, VARIANT& given, LCID locale, VARIANT& value) noexcept {
    VARIANT& source = Followed(given);
    if (IsNullReference(source)) return DISP_E_TYPEMISMATCH;
    return VariantChangeTypeEx(&value, &source, locale, 0, type);
}

HRESULT InvokeArguments::BindOut(VARTYPE type, VARIANT& given, Slot& slot) noexcept {
    if (type != VT_I4) return DISP_E_TYPEMISMATCH;
    VARIANT& variable = Followed(given);
    const VARTYPE passed = V_VT(&variable);
    V_VT(&slot.value) = VT_BYREF | VT_I4;
    if (passed == (VT_BYREF | VT_I4) && V_I4REF(&variable)) {
        V_I4REF(&slot.value) = V_I4REF(&variable);
        return S_OK;
    }
    if (passed & kReference) return DISP_E_TYPEMISMATCH;
    V_I4REF(&slot.value) = &slot.number;
    // A value leads to no variable of the host's, so the number has nowhere to go.
    if (&variable != &given) slot.variable = &variable;
    return S_OK;
}

void InvokeArguments::WriteBack() noexcept {
    for (const Slot& slot : m_slots) {
        if (!slot.variable) continue;
        // Clearing what the variable held may call back into the host, so the new value is there before.
        VARIANT old = *slot.variable;
        V_VT(slot.variable) = VT_I4;
        V_I4(slot.variable) = slot.number;
        VariantClear(&old);
    }
}

}  // namespace vmk
