#include "base/window_text.h"

#include <gtest/gtest.h>

namespace vmk::test {
namespace {

class TextOfAWindow : public testing::Test {
  protected:
    TextOfAWindow()
        : m_hwnd(CreateWindowExW(0, L"EDIT", L"", 0, 0, 0, 10, 10, HWND_MESSAGE, nullptr, nullptr, nullptr)) {
    }
    ~TextOfAWindow() override { DestroyWindow(m_hwnd); }

    HWND Showing(const std::wstring& text) const {
        SetWindowTextW(m_hwnd, text.c_str());
        return m_hwnd;
    }

  private:
    HWND m_hwnd;
};

TEST_F(TextOfAWindow, IsReadWhole) {
    const std::wstring longText(100'000, L'x');
    EXPECT_EQ(WindowText(Showing(longText)), longText);
    EXPECT_EQ(WindowText(Showing(L"")), L"");
    EXPECT_EQ(WindowText(nullptr), L"");
}

TEST_F(TextOfAWindow, IsCutAtTheLimit) {
    EXPECT_EQ(WindowText(Showing(L"12345"), 4), L"1234");
    EXPECT_EQ(WindowText(Showing(L"12345"), 5), L"12345");
    EXPECT_EQ(WindowText(Showing(L"12345"), 6), L"12345");
}

}  // namespace
}  // namespace vmk::test
