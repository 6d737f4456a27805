#pragma once

#include <windows.h>

#include <vector>

namespace vmk::test {

// Notes a message wherever a thread's windows are sent it, as long as this object lives. One at a time.
//
//     const SentMessages enabling(WM_ENABLE);
//     ...
//     EXPECT_EQ(enabling.To(IDC_MAIN_APPLY), std::vector<WPARAM>{TRUE});
class SentMessages {
  public:
    explicit SentMessages(UINT message, DWORD thread = GetCurrentThreadId());
    ~SentMessages();
    SentMessages(const SentMessages&) = delete;
    SentMessages& operator=(const SentMessages&) = delete;

    struct Sent {
        HWND window;
        int id;  // of the control, as long as it was one
        WPARAM wParam;
    };
    // In the order in which they were sent.
    std::vector<Sent> All() const;
    // What controls of that identifier were sent.
    std::vector<WPARAM> To(int id) const;

  private:
    HHOOK m_hook;
};

}  // namespace vmk::test
