#include "component/exception_globals.h"

#include <gtest/gtest.h>

#include <exception>

namespace vmk::test {
namespace {

// A thread may end while it handles an exception; the next one that gets its place is handling none.
TEST(ExceptionGlobals, OfAThreadThatEndsAreNotThoseOfTheNext) {
    bool isHandled = false;
    bool isHandledAfterwards = true;
    try {
        throw 1;
    } catch (int) {
        isHandled = std::current_exception() != nullptr;
        ForgetExceptionsOfThisThread();
        isHandledAfterwards = std::current_exception() != nullptr;
    }
    EXPECT_TRUE(isHandled);
    EXPECT_FALSE(isHandledAfterwards);
}

}  // namespace
}  // namespace vmk::test
