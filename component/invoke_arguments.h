#pragma once

#include <windows.h>

#include <oaidl.h>

#include <vector>

namespace vmk {

// The arguments of one automation call, in the types and the order of the method's parameters.
//
// Not every implementation of the automation library accepts what hosts pass: script hosts hand in a variable
// of their own for an [out] number, as VT_BYREF|VT_VARIANT, or, where the language has no references, a
// value. Such a parameter gets a number of this object's instead, which WriteBack puts into the variable, if
// there is one.
class InvokeArguments {
  public:
    InvokeArguments() noexcept = default;
    ~InvokeArguments();
    InvokeArguments(const InvokeArguments&) = delete;
    InvokeArguments& operator=(const InvokeArguments&) = delete;

    // Takes the given arguments, named or not, for the method's parameters. *badArgument, if wanted, is the
    // index of the argument that a failure is about. Throws std::bad_alloc.
    //
    // DISP_E_BADPARAMCOUNT    too few or too many
    // DISP_E_PARAMNOTFOUND    named for no parameter, or for one that has an argument already
    // DISP_E_PARAMNOTOPTIONAL left out by the host's word for that
    // DISP_E_TYPEMISMATCH     of a type that the parameter's cannot be made from; a null reference; for an
    //                         [out] parameter a reference to another type
    // DISP_E_OVERFLOW         a number out of range
    HRESULT Bind(const FUNCDESC& method, const DISPPARAMS& given, LCID locale, UINT* badArgument);

    // What to call the type library's Invoke with, valid as long as this object.
    DISPPARAMS* get() noexcept { return &m_params; }

    // Hands the numbers of [out] parameters to the variables that were passed for them.
    void WriteBack() noexcept;

  private:
    // One parameter's argument. Objects of this type stay where they are once m_params points to them.
    struct Slot {
        VARIANT value{};
        VARIANT* variable = nullptr;  // the host's, for WriteBack
        LONG number = 0;
        bool taken = false;
    };

    HRESULT BindIn(VARTYPE type, VARIANT& given, LCID locale, VARIANT& value) noexcept;
    HRESULT BindOut(VARTYPE type, VARIANT& given, Slot& slot) noexcept;

    std::vector<Slot> m_slots;         // in the order of the parameters
    std::vector<VARIANT> m_arguments;  // in the order of the call: the last parameter first; owns nothing
    DISPPARAMS m_params{};
};

}  // namespace vmk
