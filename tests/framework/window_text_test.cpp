#include "framework/window_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <span>

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

TEST(WipedText, LeavesNothingInItsMemory) {
    std::wstring text(100, L'p');
    const auto address = reinterpret_cast<std::uintptr_t>(text.data());
    text.resize(10);
    Wipe(text);
    EXPECT_TRUE(text.empty());
    ASSERT_EQ(reinterpret_cast<std::uintptr_t>(text.data()), address);
    const std::span memory(text.data(), 100);
    EXPECT_TRUE(std::ranges::all_of(memory, [](wchar_t character) { return character == 0; }));
}

}  // namespace
}  // namespace vmk::test
