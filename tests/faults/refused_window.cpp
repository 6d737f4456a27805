#include "tests/faults/refused_window.h"

namespace vmk::test {
namespace {

constexpr LRESULT kRefuse = 1;

long count = 0;
long refused = 0;

LRESULT CALLBACK OnHook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_CREATEWND && ++count == refused) return kRefuse;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

RefusedWindow::RefusedWindow(long which) {
    count = 0;
    refused = which;
    m_hook = SetWindowsHookExW(WH_CBT, OnHook, nullptr, GetCurrentThreadId());
}

RefusedWindow::~RefusedWindow() {
    UnhookWindowsHookEx(m_hook);
}

long RefusedWindow::Count() const {
    return count;
}

}  // namespace vmk::test
