#include "base/com_pointer.h"

#include <gtest/gtest.h>

namespace vmk::test {
namespace {

// Counts its references; lives on the test's stack.
class Counted final : public IUnknown {
  public:
    ULONG references = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
};
using Pointer = ComPointer<IUnknown>;

TEST(ComReference, OfNothingIsEmpty) {
    const Pointer nothing;
    EXPECT_FALSE(nothing);
    EXPECT_FALSE(Pointer(nullptr));
}

TEST(ComReference, IsAddedWhenSharedAndReleasedAtTheEnd) {
    Counted object;
    {
        const Pointer pointer(&object);
        EXPECT_TRUE(pointer);
        EXPECT_EQ(pointer.get(), &object);
        EXPECT_EQ(object.references, 2U);
    }
    EXPECT_EQ(object.references, 1U);
}

TEST(ComReference, MovesWithoutCounting) {
    Counted object;
    Counted replaced;
    Pointer first(&object);
    Pointer second(std::move(first));
    EXPECT_FALSE(first);  // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(object.references, 2U);
    Pointer third(&replaced);
    third = std::move(second);
    EXPECT_EQ(replaced.references, 1U);
    EXPECT_EQ(object.references, 2U);
    Pointer& same = third;
    third = std::move(same);
    EXPECT_EQ(object.references, 2U);
}

TEST(ComReference, TakesOverAndGivesAway) {
    Counted object;
    Pointer pointer;
    *pointer.put() = &object;
    EXPECT_EQ(object.references, 1U);
    EXPECT_EQ(pointer.detach(), &object);
    EXPECT_EQ(object.references, 1U);
    pointer.attach(&object);
    EXPECT_EQ(*pointer.put(), nullptr);
    EXPECT_EQ(object.references, 0U);
}

}  // namespace
}  // namespace vmk::test
