#include "settings/all_or_nothing.h"

#include <gtest/gtest.h>

#include <new>

#include "tests/settings/member_values.h"

namespace vmk {
namespace {

TEST(AllOrNothing, KeepsWhatTheActionHasChanged) {
    PrinterSettings settings;
    AllOrNothing(settings, [&] { settings = ChangedSettings(); });
    EXPECT_EQ(MemberValues(settings), MemberValues(ChangedSettings()));
}

TEST(AllOrNothing, PutsEveryMemberBackWhenTheActionThrows) {
    PrinterSettings settings = ChangedSettings();
    const auto change = [&] {
        settings = PrinterSettings();
        throw std::bad_alloc();
    };
    EXPECT_THROW(AllOrNothing(settings, change), std::bad_alloc);
    EXPECT_EQ(MemberValues(settings), MemberValues(ChangedSettings()));
}

// Controls are bound to the members of a record.
TEST(AllOrNothing, LeavesTheMembersWhereTheyAre) {
    PrinterSettings settings;
    const std::wstring* const author = &settings.Info.Author;
    EXPECT_THROW(AllOrNothing(settings,
                              [&] {
                                  settings.Info.Author = L"somebody with a name that is not short";
                                  throw std::bad_alloc();
                              }),
                 std::bad_alloc);
    settings.Info.Author = L"x";
    EXPECT_EQ(*author, L"x");
}

}  // namespace
}  // namespace vmk
