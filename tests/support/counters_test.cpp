#include "tests/support/counters.h"

#include <gtest/gtest.h>

#include <array>

// The leak tests are worth what these counters are worth.

namespace vmk::test {
namespace {

TEST(Counters, StayTheSameWhenNothingHappens) {
    CountResources();
    EXPECT_EQ(CountResources(), CountResources());
}

TEST(Counters, SeeEveryHandle) {
    const std::size_t before = CountResources().handles;
    std::array<HANDLE, 5> events{};
    for (HANDLE& event : events) event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    EXPECT_EQ(CountResources().handles, before + events.size());
    for (HANDLE event : events) CloseHandle(event);
    EXPECT_EQ(CountResources().handles, before);
}

TEST(Counters, SeeEveryGdiObject) {
    DeleteObject(CreateSolidBrush(RGB(1, 2, 3)));
    const std::size_t before = CountResources().gdiObjects;
    std::array<HGDIOBJ, 7> brushes{};
    for (HGDIOBJ& brush : brushes) brush = CreateSolidBrush(RGB(4, 5, 6));
    EXPECT_EQ(CountResources().gdiObjects, before + brushes.size());
    for (HGDIOBJ brush : brushes) DeleteObject(brush);
    EXPECT_EQ(CountResources().gdiObjects, before);
}

HWND MakeWindow(const wchar_t* windowClass, DWORD style, HWND parent) {
    return CreateWindowExW(0, windowClass, L"", style, 0, 0, 10, 10, parent, nullptr, nullptr, nullptr);
}

TEST(Counters, SeeEveryWindowAndItsChildren) {
    // The first window of a thread brings one for the input method along.
    HWND first = MakeWindow(L"STATIC", WS_POPUP, nullptr);
    const std::size_t before = CountResources().windows;
    HWND window = MakeWindow(L"STATIC", WS_POPUP, nullptr);
    ASSERT_TRUE(window);
    ASSERT_TRUE(MakeWindow(L"BUTTON", WS_CHILD, window));
    EXPECT_EQ(CountResources().windows, before + 2);
    DestroyWindow(window);
    EXPECT_EQ(CountResources().windows, before);
    DestroyWindow(first);
}

TEST(Counters, SeeEveryHeapBlock) {
    const ResourceCounts before = CountResources();
    void* const small = HeapAlloc(GetProcessHeap(), 0, 100);
    void* const large = HeapAlloc(GetProcessHeap(), 0, 5000);
    const ResourceCounts during = CountResources();
    EXPECT_EQ(during.heapBlocks, before.heapBlocks + 2);
    EXPECT_GE(during.heapBytes, before.heapBytes + 5100);
    HeapFree(GetProcessHeap(), 0, small);
    HeapFree(GetProcessHeap(), 0, large);
    EXPECT_EQ(CountResources(), before);
}

TEST(Counters, SeeTheRuntimesHeap) {
    const ResourceCounts before = CountResources();
    void* const block = ::operator new(300);
    EXPECT_EQ(CountResources().heapBlocks, before.heapBlocks + 1);
    ::operator delete(block);
    EXPECT_EQ(CountResources(), before);
}

TEST(Counters, SeeEveryHeapBlockOfASizeThatIsInMuchUse) {
    constexpr std::size_t kSize = 40;
    for (int time = 0; time < 3000; ++time)
        HeapFree(GetProcessHeap(), 0, HeapAlloc(GetProcessHeap(), 0, kSize));
    const ResourceCounts before = CountResources();
    std::array<void*, 100> blocks{};
    for (void*& block : blocks) block = HeapAlloc(GetProcessHeap(), 0, kSize);
    const ResourceCounts during = CountResources();
    EXPECT_EQ(during.heapBlocks, before.heapBlocks + blocks.size());
    EXPECT_EQ(during.heapBytes, before.heapBytes + blocks.size() * kSize);
    for (void* block : blocks) HeapFree(GetProcessHeap(), 0, block);
    EXPECT_EQ(CountResources(), before);
}

TEST(Counters, StayTheSameHoweverOftenABlockIsMadeAndFreed) {
    const ResourceCounts before = CountResources();
    for (std::size_t size = 1; size <= 600; ++size) {
        for (int time = 0; time < 3000; ++time)
            HeapFree(GetProcessHeap(), 0, HeapAlloc(GetProcessHeap(), 0, size));
    }
    EXPECT_EQ(CountResources(), before);
}

}  // namespace
}  // namespace vmk::test
