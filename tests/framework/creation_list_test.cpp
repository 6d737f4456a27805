#include "framework/creation_list.h"

#include <gtest/gtest.h>

#include "framework/window.h"

namespace vmk::test {
namespace {

using Announcement = CreationList::Announcement;

class Object : public Window {
    std::optional<LRESULT> ProcessWindowMessage(HWND, UINT, WPARAM, LPARAM) override { return std::nullopt; }
};

// What another thread finds in the list.
Window* TakeOnAnotherThread(CreationList& list) {
    struct Call {
        CreationList& list;
        Window* found;
    } call{.list = list, .found = nullptr};
    HANDLE thread = CreateThread(
        nullptr, 0,
        [](void* parameter) -> DWORD {
            auto& wanted = *static_cast<Call*>(parameter);
            wanted.found = wanted.list.Take();
            return 0;
        },
        &call, 0, nullptr);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    return call.found;
}

TEST(ListOfCreations, HandsOutEachObjectOnce) {
    CriticalSection guard;
    CreationList list(guard);
    EXPECT_EQ(list.Take(), nullptr);
    Object object;
    const Announcement announcement(list, object);
    EXPECT_EQ(list.Take(), &object);
    EXPECT_EQ(list.Take(), nullptr);
}

TEST(ListOfCreations, HandsOutTheObjectAnnouncedLastFirst) {
    CriticalSection guard;
    CreationList list(guard);
    Object outer;
    Object inner;
    const Announcement first(list, outer);
    const Announcement second(list, inner);
    EXPECT_EQ(list.Take(), &inner);
    EXPECT_EQ(list.Take(), &outer);
}

TEST(ListOfCreations, ForgetsAnObjectWhoseAnnouncementEnds) {
    CriticalSection guard;
    CreationList list(guard);
    Object outer;
    const Announcement first(list, outer);
    {
        Object inner;
        const Announcement second(list, inner);
    }
    EXPECT_EQ(list.Take(), &outer);
}

TEST(ListOfCreations, KeepsThreadsApart) {
    CriticalSection guard;
    CreationList list(guard);
    Object object;
    const Announcement announcement(list, object);
    EXPECT_EQ(TakeOnAnotherThread(list), nullptr);
    EXPECT_EQ(list.Take(), &object);
}

}  // namespace
}  // namespace vmk::test
