#pragma once

#include <windows.h>

namespace vmk::test {

// Has the system refuse to create one window on the calling thread, controls of dialogs included, as long as
// this object lives. One at a time.
class RefusedWindow {
  public:
    // `which`: 1 for the next window; a number too large counts the windows and refuses none.
    explicit RefusedWindow(long which);
    ~RefusedWindow();
    RefusedWindow(const RefusedWindow&) = delete;
    RefusedWindow& operator=(const RefusedWindow&) = delete;

    // Windows asked for so far, the refused one included.
    long Count() const;

  private:
    HHOOK m_hook;
};

}  // namespace vmk::test
