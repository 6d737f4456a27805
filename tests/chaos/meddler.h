#pragma once

#include <windows.h>

#include <atomic>
#include <functional>
#include <utility>

namespace vmk::test {

// Somebody who works on something all the time, on a thread of his own:
//
//     const Meddler meddler([&](unsigned) { folder.Write(L"a.vlf", bytes); });
//     ...
//     EXPECT_GT(meddler.Times(), 0U);
class Meddler {
  public:
    // Calls with 0, 1, 2 and so on.
    explicit Meddler(std::function<void(unsigned time)> meddle)
        : m_meddle(std::move(meddle)), m_thread(CreateThread(nullptr, 0, Main, this, 0, nullptr)) {}
    ~Meddler() {
        m_isDone = true;
        WaitForSingleObject(m_thread, INFINITE);
        CloseHandle(m_thread);
    }
    Meddler(const Meddler&) = delete;
    Meddler& operator=(const Meddler&) = delete;

    // How often he was done.
    unsigned Times() const { return m_times; }

  private:
    static DWORD WINAPI Main(void* parameter) {
        auto& self = *static_cast<Meddler*>(parameter);
        while (!self.m_isDone) {
            self.m_meddle(self.m_times);
            ++self.m_times;
        }
        return 0;
    }

    std::function<void(unsigned)> m_meddle;
    std::atomic<bool> m_isDone = false;
    std::atomic<unsigned> m_times = 0;
    HANDLE m_thread;
};

}  // namespace vmk::test
