#include <windows.h>

#include <gtest/gtest.h>
#include <oleauto.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/loaded_module.h"

// The type library as hosts and their compilers read it, from the DLL and from the file beside it.

namespace vmk::test {
namespace {

std::wstring TextOf(BSTR text) {
    std::wstring copy = text ? text : L"(none)";
    SysFreeString(text);
    return copy;
}

std::wstring HelpOf(ITypeInfo& info, MEMBERID member = MEMBERID_NIL) {
    BSTR help = nullptr;
    info.GetDocumentation(member, nullptr, &help, nullptr, nullptr);
    return TextOf(help);
}

std::wstring NameOf(ITypeInfo& info, MEMBERID member = MEMBERID_NIL) {
    BSTR name = nullptr;
    info.GetDocumentation(member, &name, nullptr, nullptr, nullptr);
    return TextOf(name);
}

TYPEATTR AttributesOf(ITypeInfo& info) {
    TYPEATTR* found = nullptr;
    if (FAILED(info.GetTypeAttr(&found))) return {};
    const TYPEATTR copy = *found;
    info.ReleaseTypeAttr(found);
    return copy;
}

// A type as the interface definition spells it.
std::wstring Spelled(ITypeInfo& info, const TYPEDESC& type) {
    switch (type.vt) {
        case VT_I4:
            return L"long";
        case VT_BSTR:
            return L"BSTR";
        case VT_VOID:
            return L"void";
        case VT_HRESULT:
            return L"HRESULT";
        case VT_PTR:
            return Spelled(info, *type.lptdesc) + L"*";
        case VT_USERDEFINED: {
            ComPointer<ITypeInfo> named;
            if (FAILED(info.GetRefTypeInfo(type.hreftype, named.put()))) return L"(unknown)";
            return NameOf(*named);
        }
        default:
            return L"type " + std::to_wstring(type.vt);
    }
}

// "name(in type name, ...)" of a function.
std::wstring Signature(ITypeInfo& info, const FUNCDESC& function) {
    std::vector<BSTR> names(static_cast<std::size_t>(function.cParams) + 1);
    UINT found = 0;
    info.GetNames(function.memid, names.data(), static_cast<UINT>(names.size()), &found);
    std::wstring text = Spelled(info, function.elemdescFunc.tdesc) + L" " + TextOf(names[0]) + L"(";
    for (SHORT index = 0; index < function.cParams; ++index) {
        const ELEMDESC& parameter = function.lprgelemdescParam[index];
        if (index > 0) text += L", ";
        if (parameter.paramdesc.wParamFlags & PARAMFLAG_FIN) text += L"in ";
        if (parameter.paramdesc.wParamFlags & PARAMFLAG_FOUT) text += L"out ";
        if (parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) text += L"retval ";
        text += Spelled(info, parameter.tdesc) + L" " + TextOf(names[static_cast<std::size_t>(index) + 1]);
    }
    return text + L")";
}

struct Method {
    MEMBERID id;
    std::wstring signature;
    std::wstring help;
    bool operator==(const Method&) const = default;
};

void PrintTo(const Method& method, std::ostream* stream) {
    *stream << method.id << ' ' << testing::PrintToString(method.signature) << ' '
            << testing::PrintToString(method.help);
}

std::vector<Method> OwnMethods(ITypeInfo& info) {
    constexpr MEMBERID kFirstInherited = 0x60000000;
    std::vector<Method> methods;
    FUNCDESC* function = nullptr;
    for (UINT index = 0; SUCCEEDED(info.GetFuncDesc(index, &function)); ++index) {
        if (function->memid < kFirstInherited)
            methods.push_back({function->memid, Signature(info, *function), HelpOf(info, function->memid)});
        info.ReleaseFuncDesc(function);
    }
    return methods;
}

// The dispatch side of a dual interface shows no HRESULTs.
std::vector<Method> ExpectedMethods(const std::wstring& returned) {
    std::vector<Method> methods = {
        {1, L"OpenDialog(in long lang_id, out long* exitCode)", L"method OpenDialog"},
        {2, L"EnablePage(in PdfPrinterDialogPage page_id)", L"method EnablePage"},
        {3, L"DisablePage(in PdfPrinterDialogPage page_id)", L"method DisablePage"},
        {4, L"UseDefaultValues(in PdfPrinterDialogPage page_id)", L"method UseDefaultValues"},
        {5, L"InitFromRegistry(in PdfPrinterDialogPage page_id, in BSTR sub_key)",
         L"method InitFromRegistry"},
        {6, L"StoreInRegistry(in PdfPrinterDialogPage page_id, in BSTR sub_path)", L"method StoreInRegistry"},
        {7, L"SetTitle(in BSTR WindowTitle)", L"method SetTitle"},
    };
    for (Method& method : methods) method.signature.insert(0, returned + L" ");
    return methods;
}

class TypeLibrary : public testing::TestWithParam<const wchar_t*> {
  protected:
    void SetUp() override {
        std::wstring path = BuiltModulePath();
        path.replace(path.rfind(L'.'), std::wstring::npos, GetParam());
        ASSERT_EQ(LoadTypeLibEx(path.c_str(), REGKIND_NONE, m_library.put()), S_OK);
    }

    ComPointer<ITypeInfo> Type(const GUID& id) {
        ComPointer<ITypeInfo> info;
        m_library->GetTypeInfoOfGuid(id, info.put());
        return info;
    }

    ComApartment m_apartment;
    ComPointer<ITypeLib> m_library;
};

constexpr GUID kPageEnumeration = {
    0x72A6B6EF, 0x2455, 0x4AD2, {0xAB, 0x38, 0x0A, 0xF9, 0xAE, 0xFA, 0x79, 0x2E}};

TEST_P(TypeLibrary, HasItsNameVersionAndIdentifier) {
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(m_library->GetLibAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, kTypeLibraryId);
    EXPECT_EQ(attributes->wMajorVerNum, 1);
    EXPECT_EQ(attributes->wMinorVerNum, 0);
    EXPECT_EQ(attributes->syskind, SYS_WIN64);
    m_library->ReleaseTLibAttr(attributes);
    BSTR name = nullptr;
    BSTR help = nullptr;
    ASSERT_EQ(m_library->GetDocumentation(-1, &name, &help, nullptr, nullptr), S_OK);
    EXPECT_EQ(TextOf(name), L"vmkctrlLib");
    EXPECT_EQ(TextOf(help), L"vmkctrl 1.0 Type Library");
}

TEST_P(TypeLibrary, HoldsTheEnumerationTheInterfaceAndTheClassOnly) {
    EXPECT_EQ(m_library->GetTypeInfoCount(), 3U);
    EXPECT_TRUE(Type(kPageEnumeration));
    EXPECT_TRUE(Type(__uuidof(IPdfPrinterPreferences)));
    EXPECT_TRUE(Type(__uuidof(PdfPrinterPreferences)));
}

TEST_P(TypeLibrary, NamesEveryPageOfTheEnumeration) {
    const auto info = Type(kPageEnumeration);
    ASSERT_TRUE(info);
    EXPECT_EQ(NameOf(*info), L"PdfPrinterDialogPage");
    EXPECT_EQ(AttributesOf(*info).typekind, TKIND_ENUM);
    EXPECT_EQ(AttributesOf(*info).cbSizeInstance, 4U);
    std::map<std::wstring, LONG> members;
    VARDESC* member = nullptr;
    for (UINT index = 0; SUCCEEDED(info->GetVarDesc(index, &member)); ++index) {
        members[NameOf(*info, member->memid)] = V_I4(member->lpvarValue);
        info->ReleaseVarDesc(member);
    }
    const std::map<std::wstring, LONG> expected = {
        {L"AllPages", -1},     {L"Paper", 0x1},           {L"CustomForms", 0x2}, {L"General", 0x4},
        {L"Compression", 0x8}, {L"Graphics", 0x10},       {L"Fonts", 0x20},      {L"Watermarks", 0x40},
        {L"Security", 0x80},   {L"Links", 0x100},         {L"Bookmarks", 0x200}, {L"DocumentInfo", 0x400},
        {L"Save", 0x800},      {L"eMail", 0x1000},        {L"Profiles", 0x2000}, {L"Optimization", 0x4000},
        {L"Overlay", 0x8000},  {L"DigitalSign", 0x10000},
    };
    EXPECT_EQ(members, expected);
}

TEST_P(TypeLibrary, TheInterfaceIsDualNotExtensibleAndForAutomation) {
    const auto info = Type(__uuidof(IPdfPrinterPreferences));
    ASSERT_TRUE(info);
    EXPECT_EQ(NameOf(*info), L"IPdfPrinterPreferences");
    EXPECT_EQ(HelpOf(*info), L"IPdfPrinterPreferences Interface");
    const TYPEATTR attributes = AttributesOf(*info);
    EXPECT_EQ(attributes.typekind, TKIND_DISPATCH);
    EXPECT_TRUE(attributes.wTypeFlags & TYPEFLAG_FDUAL);
    EXPECT_TRUE(attributes.wTypeFlags & TYPEFLAG_FNONEXTENSIBLE);
    EXPECT_FALSE(attributes.wTypeFlags & TYPEFLAG_FHIDDEN);
}

TEST_P(TypeLibrary, TheMethodsHaveTheirNumbersNamesAndTypesForDispatch) {
    const auto info = Type(__uuidof(IPdfPrinterPreferences));
    ASSERT_TRUE(info);
    EXPECT_EQ(OwnMethods(*info), ExpectedMethods(L"void"));
}

TEST_P(TypeLibrary, TheMethodsFollowThoseOfDispatchInTheVirtualTable) {
    const auto dispatch = Type(__uuidof(IPdfPrinterPreferences));
    ASSERT_TRUE(dispatch);
    HREFTYPE reference = 0;
    ComPointer<ITypeInfo> info;
    ASSERT_EQ(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    ASSERT_EQ(dispatch->GetRefTypeInfo(reference, info.put()), S_OK);
    EXPECT_EQ(AttributesOf(*info).typekind, TKIND_INTERFACE);
    EXPECT_TRUE(AttributesOf(*info).wTypeFlags & TYPEFLAG_FOLEAUTOMATION);
    EXPECT_EQ(OwnMethods(*info), ExpectedMethods(L"HRESULT"));
    constexpr int kSlotsOfDispatch = 7;
    FUNCDESC* function = nullptr;
    for (UINT index = 0; SUCCEEDED(info->GetFuncDesc(index, &function)); ++index) {
        EXPECT_EQ(function->oVft, static_cast<int>((kSlotsOfDispatch + index) * sizeof(void*)));
        info->ReleaseFuncDesc(function);
    }
}

TEST_P(TypeLibrary, TheClassCanBeCreatedAndHasTheInterfaceAsItsDefault) {
    const auto info = Type(__uuidof(PdfPrinterPreferences));
    ASSERT_TRUE(info);
    EXPECT_EQ(NameOf(*info), L"PdfPrinterPreferences");
    EXPECT_EQ(HelpOf(*info), L"PdfPrinterPreferences Class");
    EXPECT_EQ(AttributesOf(*info).typekind, TKIND_COCLASS);
    EXPECT_TRUE(AttributesOf(*info).wTypeFlags & TYPEFLAG_FCANCREATE);
    INT flags = 0;
    ASSERT_EQ(info->GetImplTypeFlags(0, &flags), S_OK);
    EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT);
    HREFTYPE reference = 0;
    ComPointer<ITypeInfo> implemented;
    ASSERT_EQ(info->GetRefTypeOfImplType(0, &reference), S_OK);
    ASSERT_EQ(info->GetRefTypeInfo(reference, implemented.put()), S_OK);
    EXPECT_EQ(AttributesOf(*implemented).guid, __uuidof(IPdfPrinterPreferences));
    EXPECT_EQ(AttributesOf(*info).cImplTypes, 1);
}

INSTANTIATE_TEST_SUITE_P(InBothFiles, TypeLibrary, testing::Values(L".dll", L".tlb"),
                         [](const auto& each) { return each.index == 0 ? "Dll" : "Tlb"; });

}  // namespace
}  // namespace vmk::test
