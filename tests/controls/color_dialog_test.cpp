#include "controls/color_dialog.h"

#include "tests/controls/live_page.h"
#include "tests/support/color_chooser.h"
#include "tests/support/window_search.h"

namespace vmk::test {
namespace {

// Cancels the colour dialog that opens on this thread, and knows whose it was.
class CancelledColorDialog {
  public:
    CancelledColorDialog() { s_owner = nullptr; }
    ~CancelledColorDialog() { KillTimer(nullptr, m_timer); }
    CancelledColorDialog(const CancelledColorDialog&) = delete;
    CancelledColorDialog& operator=(const CancelledColorDialog&) = delete;

    HWND Owner() const { return s_owner; }

  private:
    static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD) noexcept {
        HWND dialog = FindTopWindow(GetCurrentThreadId(), [](HWND window) {
            return GetDlgItem(window, COLOR_RED) != nullptr && IsWindowVisible(window);
        });
        if (!dialog) return;
        s_owner = GetWindow(dialog, GW_OWNER);
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    }

    static inline HWND s_owner = nullptr;
    UINT_PTR m_timer = SetTimer(nullptr, 0, 20, Look);
};

class ColorDialog : public ControlTest {
  protected:
    void SetUp() override {
        Open(IDD_TEST_CHECKBOX, [](TestPage&) {});
    }
};

TEST_F(ColorDialog, BelongsToTheWindowThatItIsGiven) {
    const CancelledColorDialog cancelled;
    EXPECT_FALSE(CMyColorDialog(0, page.Handle(), {}).Run());
    // What is inside of a dialog cannot own another one: the system takes the dialog.
    EXPECT_EQ(cancelled.Owner(), main.Handle());
}

TEST_F(ColorDialog, BelongsToTheActiveWindowWhereItIsGivenNone) {
    ASSERT_EQ(GetActiveWindow(), main.Handle());
    const CancelledColorDialog cancelled;
    EXPECT_FALSE(CMyColorDialog(0, nullptr, {}).Run());
    EXPECT_EQ(cancelled.Owner(), main.Handle());
}

}  // namespace
}  // namespace vmk::test
