#include <windows.h>

#include <gtest/gtest.h>
#include <oleauto.h>

#include <array>
#include <vector>

#include "tests/component/fake_dialog.h"
#include "tests/component/layer_module.h"
#include "tests/support/loaded_module.h"

// Calls by number and name, as script hosts make them.

namespace vmk::test {
namespace {

enum Member : DISPID { kOpenDialog = 1, kEnablePage = 2, kInitFromRegistry = 5, kSetTitle = 7 };

constexpr UINT kNoArgument = 99;

VARIANT Of(int number) {
    VARIANT value{};
    V_VT(&value) = VT_I4;
    V_I4(&value) = number;
    return value;
}

VARIANT Of(double number) {
    VARIANT value{};
    V_VT(&value) = VT_R8;
    V_R8(&value) = number;
    return value;
}

VARIANT Of(const AutomationString& text) {
    VARIANT value{};
    V_VT(&value) = VT_BSTR;
    V_BSTR(&value) = text.get();
    return value;
}

VARIANT OfType(VARTYPE type) {
    VARIANT value{};
    V_VT(&value) = type;
    return value;
}

VARIANT ReferenceTo(LONG& number) {
    VARIANT value{};
    V_VT(&value) = VT_BYREF | VT_I4;
    V_I4REF(&value) = &number;
    return value;
}

VARIANT ReferenceTo(VARIANT& variable) {
    VARIANT value{};
    V_VT(&value) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&value) = &variable;
    return value;
}

class Invoking : public testing::Test {
  protected:
    // Arguments in the order of the parameters.
    HRESULT Call(DISPID member, std::vector<VARIANT> arguments, WORD flags = DISPATCH_METHOD) {
        return CallNamed(member, std::vector<VARIANT>(arguments.rbegin(), arguments.rend()), {}, flags);
    }

    // Arguments as IDispatch wants them: the named ones first, the others after them in reverse order.
    HRESULT CallNamed(DISPID member, std::vector<VARIANT> arguments, std::vector<DISPID> names,
                      WORD flags = DISPATCH_METHOD) {
        DISPPARAMS params{.rgvarg = arguments.data(),
                          .rgdispidNamedArgs = names.data(),
                          .cArgs = static_cast<UINT>(arguments.size()),
                          .cNamedArgs = static_cast<UINT>(names.size())};
        m_badArgument = kNoArgument;
        return m_object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &params, nullptr, nullptr,
                                &m_badArgument);
    }

    // What the dialog is told now.
    PreferencesDialogOptions Options() {
        PreferencesDialogOptions seen;
        const FakeDialog dialog([&](auto&, const PreferencesDialogOptions& options) {
            seen = options;
            return INT_PTR{IDOK};
        });
        LONG exitCode = 0;
        m_object->OpenDialog(0, &exitCode);
        return seen;
    }

    ComApartment m_apartment;
    ComPointer<IPdfPrinterPreferences> m_object = MakePreferences();
    FakeDialog m_dialog{[this](auto&, const PreferencesDialogOptions& options) {
        m_language = options.language;
        return INT_PTR{IDCANCEL};
    }};
    LANGID m_language = 0;
    UINT m_badArgument = kNoArgument;
};

TEST_F(Invoking, AMethodIsCalledByItsNumber) {
    EXPECT_EQ(Call(kEnablePage, {Of(0x10)}), S_OK);
    EXPECT_EQ(Options().pages, 0x10U);
}

TEST_F(Invoking, EveryMethodIsFoundByItsNameInAnyCase) {
    const std::array<std::pair<std::wstring, DISPID>, 9> known = {{{L"OpenDialog", 1},
                                                                   {L"EnablePage", 2},
                                                                   {L"DisablePage", 3},
                                                                   {L"UseDefaultValues", 4},
                                                                   {L"InitFromRegistry", 5},
                                                                   {L"StoreInRegistry", 6},
                                                                   {L"SetTitle", 7},
                                                                   {L"settitle", 7},
                                                                   {L"OPENDIALOG", 1}}};
    for (auto [name, id] : known) {
        wchar_t* names = name.data();
        DISPID found = 0;
        EXPECT_EQ(m_object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &found), S_OK);
        EXPECT_EQ(found, id);
    }
}

TEST_F(Invoking, ParametersAreFoundByTheirNames) {
    std::wstring method = L"InitFromRegistry";
    std::wstring second = L"sub_key";
    std::wstring first = L"page_id";
    std::array names = {method.data(), second.data(), first.data()};
    std::array<DISPID, 3> ids{};
    EXPECT_EQ(m_object->GetIDsOfNames(IID_NULL, names.data(), 3, LOCALE_USER_DEFAULT, ids.data()), S_OK);
    EXPECT_EQ(ids, (std::array<DISPID, 3>{5, 1, 0}));
}

TEST_F(Invoking, UnknownNamesAreReported) {
    std::wstring unknown = L"OpenWindow";
    std::array names = {unknown.data(), unknown.data()};
    std::array<DISPID, 2> ids{};
    EXPECT_EQ(m_object->GetIDsOfNames(IID_NULL, names.data(), 1, LOCALE_USER_DEFAULT, ids.data()),
              DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[0], DISPID_UNKNOWN);
    std::wstring known = L"SetTitle";
    names[0] = known.data();
    EXPECT_EQ(m_object->GetIDsOfNames(IID_NULL, names.data(), 2, LOCALE_USER_DEFAULT, ids.data()),
              DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[1], DISPID_UNKNOWN);
}

TEST_F(Invoking, TheReservedInterfaceMustBeNull) {
    DISPPARAMS none{};
    EXPECT_EQ(m_object->Invoke(kEnablePage, __uuidof(IUnknown), 0, DISPATCH_METHOD, &none, nullptr, nullptr,
                               nullptr),
              DISP_E_UNKNOWNINTERFACE);
    std::wstring name = L"SetTitle";
    wchar_t* names = name.data();
    DISPID id = 0;
    EXPECT_EQ(m_object->GetIDsOfNames(__uuidof(IUnknown), &names, 1, 0, &id), DISP_E_UNKNOWNINTERFACE);
}

TEST_F(Invoking, ThereIsOneTypeDescription) {
    UINT count = 0;
    EXPECT_EQ(m_object->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1U);
    EXPECT_EQ(m_object->GetTypeInfoCount(nullptr), E_POINTER);
    ComPointer<ITypeInfo> info;
    EXPECT_EQ(m_object->GetTypeInfo(0, 0x409, info.put()), S_OK);
    EXPECT_TRUE(info);
    EXPECT_EQ(m_object->GetTypeInfo(1, 0x409, info.put()), DISP_E_BADINDEX);
    EXPECT_FALSE(info);
    EXPECT_EQ(m_object->GetTypeInfo(0, 0x409, nullptr), E_POINTER);
}

TEST_F(Invoking, OnlyMethodsThatAreThereCanBeCalled) {
    for (const DISPID member : {0L, 8L, -1L, 0x60000000L, 0x60010000L, 0x60020000L})
        EXPECT_EQ(Call(member, {}), DISP_E_MEMBERNOTFOUND) << member;
}

TEST_F(Invoking, MethodsAreNotProperties) {
    constexpr std::array<WORD, 4> kNotMethod = {DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT,
                                                DISPATCH_PROPERTYPUTREF, 0};
    for (const WORD flags : kNotMethod)
        EXPECT_EQ(Call(kEnablePage, {Of(1)}, flags), DISP_E_MEMBERNOTFOUND) << flags;
    // What hosts say that cannot tell a call from a value.
    EXPECT_EQ(Call(kEnablePage, {Of(1)}, DISPATCH_METHOD | DISPATCH_PROPERTYGET), S_OK);
    EXPECT_EQ(Options().pages, 1U);
}

TEST_F(Invoking, TheNumberOfArgumentsMustBeRight) {
    LONG exitCode = 77;
    EXPECT_EQ(Call(kEnablePage, {}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(Call(kEnablePage, {Of(1), Of(2)}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(Call(kOpenDialog, {Of(0)}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(Call(kOpenDialog, {Of(0), ReferenceTo(exitCode), Of(0)}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(exitCode, 77);
    EXPECT_EQ(Options().pages, 0U);
    EXPECT_EQ(m_object->Invoke(kEnablePage, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
              E_INVALIDARG);
}

TEST_F(Invoking, NumbersAreMadeFromWhatCanBeConverted) {
    const AutomationString decimal(L"16");
    SHORT shortNumber = 0x40;
    VARIANT shortReference = OfType(VT_BYREF | VT_I2);
    V_I2REF(&shortReference) = &shortNumber;
    VARIANT shortValue = OfType(VT_I2);
    V_I2(&shortValue) = 2;
    VARIANT truth = OfType(VT_BOOL);
    V_BOOL(&truth) = VARIANT_TRUE;
    LONG longNumber = 0x100;
    VARIANT variable = Of(8.0);
    VARIANT textVariable = Of(decimal);
    VARIANT inner = ReferenceTo(longNumber);
    const std::array<std::pair<VARIANT, PageSet>, 10> table = {{
        {shortValue, 2},
        {Of(4.0), 4},
        {Of(decimal), 16},
        {shortReference, 0x40},
        {ReferenceTo(longNumber), 0x100},
        {ReferenceTo(variable), 8},
        {ReferenceTo(textVariable), 16},
        {ReferenceTo(inner), 0x100},
        {truth, 0xFFFFFFFF},
        {OfType(VT_EMPTY), 0},
    }};
    for (const auto& [argument, pages] : table) {
        EXPECT_EQ(Call(kEnablePage, {argument}), S_OK);
        EXPECT_EQ(Options().pages, pages);
        m_object->DisablePage(AllPages);
    }
}

TEST_F(Invoking, ArgumentsOfTheWrongTypeAreNamed) {
    const AutomationString word(L"Paper");
    LONG exitCode = 77;
    EXPECT_EQ(Call(kEnablePage, {Of(word)}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(m_badArgument, 0U);
    EXPECT_EQ(Call(kEnablePage, {OfType(VT_NULL)}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Call(kOpenDialog, {Of(word), ReferenceTo(exitCode)}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(m_badArgument, 1U);
    EXPECT_EQ(Call(kEnablePage, {Of(1e12)}), DISP_E_OVERFLOW);
    EXPECT_EQ(m_badArgument, 0U);
    EXPECT_EQ(exitCode, 77);
    EXPECT_EQ(Options().pages, 0U);
}

TEST_F(Invoking, TheCallerNeedNotAskWhichArgumentWasWrong) {
    VARIANT argument = OfType(VT_NULL);
    DISPPARAMS params{.rgvarg = &argument, .rgdispidNamedArgs = nullptr, .cArgs = 1, .cNamedArgs = 0};
    EXPECT_EQ(m_object->Invoke(kEnablePage, IID_NULL, 0, DISPATCH_METHOD, &params, nullptr, nullptr, nullptr),
              DISP_E_TYPEMISMATCH);
}

TEST_F(Invoking, ALeftOutArgumentIsNotOptional) {
    VARIANT leftOut = OfType(VT_ERROR);
    V_ERROR(&leftOut) = DISP_E_PARAMNOTFOUND;
    EXPECT_EQ(Call(kEnablePage, {leftOut}), DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(m_badArgument, 0U);
}

TEST_F(Invoking, TextsAreMadeFromWhatCanBeConverted) {
    const AutomationString text(L"Mine");
    BSTR textOfReference = text.get();
    VARIANT reference = OfType(VT_BYREF | VT_BSTR);
    V_BSTRREF(&reference) = &textOfReference;
    VARIANT variable = Of(text);
    VARIANT null = OfType(VT_BSTR);
    const std::array<std::pair<VARIANT, const wchar_t*>, 6> table = {{
        {Of(text), L"Mine"},
        {reference, L"Mine"},
        {ReferenceTo(variable), L"Mine"},
        {Of(42), L"42"},
        {OfType(VT_EMPTY), L""},
        {null, L""},
    }};
    for (const auto& [argument, title] : table) {
        m_object->SetTitle(AutomationString(L"before").get());
        EXPECT_EQ(Call(kSetTitle, {argument}), S_OK);
        EXPECT_EQ(Options().title, title);
    }
    EXPECT_EQ(Call(kSetTitle, {OfType(VT_NULL)}), DISP_E_TYPEMISMATCH);
}

TEST_F(Invoking, TheExitCodeIsWrittenThroughAReference) {
    LONG exitCode = 77;
    EXPECT_EQ(Call(kOpenDialog, {Of(0x407), ReferenceTo(exitCode)}), S_OK);
    EXPECT_EQ(exitCode, IDCANCEL);
    EXPECT_EQ(m_language, 0x407);
}

TEST_F(Invoking, TheExitCodeIsWrittenToAScriptsVariable) {
    VARIANT variable{};
    V_VT(&variable) = VT_BSTR;
    V_BSTR(&variable) = SysAllocString(L"freed when it is replaced");
    EXPECT_EQ(Call(kOpenDialog, {Of(0), ReferenceTo(variable)}), S_OK);
    EXPECT_EQ(V_VT(&variable), VT_I4);
    EXPECT_EQ(V_I4(&variable), IDCANCEL);
}

TEST_F(Invoking, TheExitCodeIsWrittenThroughAVariableThatRefersToAnother) {
    LONG exitCode = 77;
    VARIANT variable = ReferenceTo(exitCode);
    EXPECT_EQ(Call(kOpenDialog, {Of(0), ReferenceTo(variable)}), S_OK);
    EXPECT_EQ(exitCode, IDCANCEL);
    VARIANT last{};
    VARIANT middle = ReferenceTo(last);
    EXPECT_EQ(Call(kOpenDialog, {Of(0), ReferenceTo(middle)}), S_OK);
    EXPECT_EQ(V_VT(&last), VT_I4);
    EXPECT_EQ(V_I4(&last), IDCANCEL);
}

TEST_F(Invoking, TheExitCodeIsWrittenToTheLastOfFourVariablesThatReferToEachOther) {
    VARIANT last{};
    VARIANT third = ReferenceTo(last);
    VARIANT second = ReferenceTo(third);
    VARIANT first = ReferenceTo(second);
    EXPECT_EQ(Call(kOpenDialog, {Of(0), ReferenceTo(first)}), S_OK);
    EXPECT_EQ(V_VT(&last), VT_I4);
    EXPECT_EQ(V_I4(&last), IDCANCEL);
}

// Some hosts, JScript among them, pass nothing by reference: whatever stands there is not looked at.
TEST_F(Invoking, TheExitCodeIsDroppedWhereAValueWasPassedForIt) {
    const AutomationString text(L"no number");
    for (const VARIANT& value :
         {OfType(VT_EMPTY), OfType(VT_NULL), Of(77), Of(1.5), Of(text), OfType(VT_DISPATCH)}) {
        m_language = 0;
        EXPECT_EQ(Call(kOpenDialog, {Of(0x407), value}), S_OK) << V_VT(&value);
        EXPECT_EQ(m_language, 0x407) << V_VT(&value);
        EXPECT_EQ(m_badArgument, kNoArgument);
    }
    EXPECT_EQ(CallNamed(kOpenDialog, {OfType(VT_EMPTY), Of(0x411)}, {1}), S_OK);
    EXPECT_EQ(m_language, 0x411);
}

TEST_F(Invoking, AReferenceForTheExitCodeMustBeToALong) {
    SHORT shortNumber = 77;
    VARIANT shortReference = OfType(VT_BYREF | VT_I2);
    V_I2REF(&shortReference) = &shortNumber;
    VARIANT variable = shortReference;
    VARIANT circle{};
    circle = ReferenceTo(circle);
    const std::array refused = {
        shortReference,      ReferenceTo(variable), OfType(VT_BYREF | VT_I4), OfType(VT_BYREF | VT_VARIANT),
        ReferenceTo(circle),
    };
    for (const VARIANT& argument : refused) {
        EXPECT_EQ(Call(kOpenDialog, {Of(0), argument}), DISP_E_TYPEMISMATCH) << V_VT(&argument);
        EXPECT_EQ(m_badArgument, 0U);
    }
    EXPECT_EQ(shortNumber, 77);
}

TEST_F(Invoking, NoNullReferenceReachesAMethod) {
    VARIANT inner = OfType(VT_BYREF | VT_I4);
    for (const VARIANT& argument : {OfType(VT_BYREF | VT_I4), OfType(VT_BYREF | VT_BSTR),
                                    OfType(VT_BYREF | VT_VARIANT), ReferenceTo(inner)}) {
        EXPECT_EQ(Call(kEnablePage, {argument}), DISP_E_TYPEMISMATCH) << V_VT(&argument);
        EXPECT_EQ(Call(kSetTitle, {argument}), DISP_E_TYPEMISMATCH) << V_VT(&argument);
        EXPECT_EQ(Call(kOpenDialog, {Of(0), argument}), DISP_E_TYPEMISMATCH) << V_VT(&argument);
    }
}

TEST_F(Invoking, ArgumentsMayBeNamed) {
    LONG exitCode = 77;
    EXPECT_EQ(CallNamed(kOpenDialog, {Of(0x411), ReferenceTo(exitCode)}, {0, 1}), S_OK);
    EXPECT_EQ(exitCode, IDCANCEL);
    EXPECT_EQ(m_language, 0x411);
    exitCode = 77;
    EXPECT_EQ(CallNamed(kOpenDialog, {ReferenceTo(exitCode), Of(0x407)}, {1, 0}), S_OK);
    EXPECT_EQ(exitCode, IDCANCEL);
    EXPECT_EQ(m_language, 0x407);
    exitCode = 77;
    EXPECT_EQ(CallNamed(kOpenDialog, {ReferenceTo(exitCode), Of(0x40C)}, {1}), S_OK);
    EXPECT_EQ(exitCode, IDCANCEL);
    EXPECT_EQ(m_language, 0x40C);
}

TEST_F(Invoking, NamesThatDoNotFitAreReported) {
    LONG exitCode = 77;
    EXPECT_EQ(CallNamed(kEnablePage, {Of(1)}, {1}), DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(m_badArgument, 0U);
    EXPECT_EQ(CallNamed(kEnablePage, {Of(1)}, {DISPID_PROPERTYPUT}), DISP_E_PARAMNOTFOUND);
    // The same parameter twice.
    EXPECT_EQ(CallNamed(kOpenDialog, {ReferenceTo(exitCode), ReferenceTo(exitCode)}, {1, 1}),
              DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(m_badArgument, 1U);
    EXPECT_EQ(CallNamed(kOpenDialog, {Of(0), ReferenceTo(exitCode)}, {0}), DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(exitCode, 77);
}

TEST_F(Invoking, NoValueIsReturned) {
    VARIANT argument = Of(1);
    DISPPARAMS params{.rgvarg = &argument, .rgdispidNamedArgs = nullptr, .cArgs = 1, .cNamedArgs = 0};
    VARIANT result = OfType(VT_I4);
    EXPECT_EQ(m_object->Invoke(kEnablePage, IID_NULL, 0, DISPATCH_METHOD, &params, &result, nullptr, nullptr),
              S_OK);
    EXPECT_EQ(V_VT(&result), VT_EMPTY);
}

TEST_F(Invoking, TheHostMayLetGoOfTheObjectWhileTheDialogIsOpen) {
    IPdfPrinterPreferences* const raw = m_object.get();
    const FakeDialog dialog([this](auto&, auto&) {
        m_object.reset();
        return INT_PTR{IDOK};
    });
    VARIANT variable{};
    std::array arguments = {ReferenceTo(variable), Of(0)};
    DISPPARAMS params{.rgvarg = arguments.data(), .rgdispidNamedArgs = nullptr, .cArgs = 2, .cNamedArgs = 0};
    EXPECT_EQ(raw->Invoke(kOpenDialog, IID_NULL, 0, DISPATCH_METHOD, &params, nullptr, nullptr, nullptr),
              S_OK);
    EXPECT_EQ(V_VT(&variable), VT_I4);
    EXPECT_EQ(V_I4(&variable), IDOK);
    EXPECT_EQ(LayerModule().GetLockCount(), 0);
}

}  // namespace
}  // namespace vmk::test
