#pragma once

// GoogleTest's thread notification needs std::mutex, which this compiler's Windows-threads runtime lacks.
// This header is read before GoogleTest's own (see tests/CMakeLists.txt), which leave the class out when it
// is there already.
#define GTEST_HAS_NOTIFICATION_ 1

#include <atomic>

namespace testing::internal {

class Notification {
  public:
    Notification() = default;
    Notification(const Notification&) = delete;
    Notification& operator=(const Notification&) = delete;

    void Notify() { m_notified = true; }
    // Spins: the runtime has no waiting on atomics either, and only GoogleTest's tests of itself wait here.
    void WaitForNotification() const {
        while (!m_notified) __builtin_ia32_pause();
    }

  private:
    std::atomic<bool> m_notified = false;
};

}  // namespace testing::internal
