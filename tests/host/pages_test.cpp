#include "host/pages.h"

#include <windows.h>

#include <gtest/gtest.h>
#include <oleauto.h>

#include <map>
#include <string>

#include "base/com_pointer.h"
#include "host/text.h"
#include "settings/groups.h"
#include "tests/host/program.h"

namespace vmk {
namespace {

using Values = std::map<std::string, LONG>;

// The pages of the enumeration as the finished component's type library tells them to scripts.
Values PagesOfTheTypeLibrary() {
    Values values;
    ComPointer<ITypeLib> library;
    const std::wstring path = test::ArtifactFolder() + L"vmkctrl.dll";
    if (FAILED(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.put()))) return values;
    for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
        TYPEKIND kind{};
        ComPointer<ITypeInfo> info;
        if (FAILED(library->GetTypeInfoType(index, &kind)) || kind != TKIND_ENUM) continue;
        if (FAILED(library->GetTypeInfo(index, info.put()))) continue;
        VARDESC* member = nullptr;
        for (UINT place = 0; SUCCEEDED(info->GetVarDesc(place, &member)); ++place) {
            BSTR name = nullptr;
            info->GetDocumentation(member->memid, &name, nullptr, nullptr, nullptr);
            values[Utf8FromWide({name, SysStringLen(name)})] = V_I4(member->lpvarValue);
            SysFreeString(name);
            info->ReleaseVarDesc(member);
        }
    }
    return values;
}

TEST(Pages, AreThoseOfTheComponentsEnumeration) {
    Values pages = {{"AllPages", static_cast<LONG>(page_bit::kAllPages)}};
    for (const GroupInfo& group : kGroupInfos)
        pages[std::string(group.identifier)] = static_cast<LONG>(group.bit);
    EXPECT_EQ(pages, PagesOfTheTypeLibrary());
}

// Names are compared without regard to case.
TEST(Pages, AreFoundByTheirIdentifiers) {
    for (const GroupInfo& group : kGroupInfos) EXPECT_EQ(FindPage(group.identifier), group.bit);
    EXPECT_EQ(FindPage("AllPages"), page_bit::kAllPages);
    EXPECT_EQ(FindPage("EMAIL"), page_bit::kEmail);
    EXPECT_EQ(FindPage("Document Info"), std::nullopt);
}

}  // namespace
}  // namespace vmk
