#include "tests/support/sent_messages.h"

#include "base/critical_section.h"

namespace vmk::test {
namespace {

// A hook has no room for whose it is.
CriticalSection guard;
UINT noted;
std::vector<SentMessages::Sent> sent;

LRESULT CALLBACK Note(int code, WPARAM wParam, LPARAM lParam) {
    const auto& message = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION) {
        const CriticalSection::Lock lock(guard);
        if (message.message == noted)
            sent.push_back({message.hwnd, GetDlgCtrlID(message.hwnd), message.wParam});
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

SentMessages::SentMessages(UINT message, DWORD thread) {
    {
        const CriticalSection::Lock lock(guard);
        noted = message;
        sent.clear();
    }
    m_hook = SetWindowsHookExW(WH_CALLWNDPROC, Note, nullptr, thread);
}

SentMessages::~SentMessages() {
    UnhookWindowsHookEx(m_hook);
}

std::vector<SentMessages::Sent> SentMessages::All() const {
    const CriticalSection::Lock lock(guard);
    return sent;
}

std::vector<WPARAM> SentMessages::To(int id) const {
    std::vector<WPARAM> parameters;
    for (const Sent& one : All()) {
        if (one.id == id) parameters.push_back(one.wParam);
    }
    return parameters;
}

}  // namespace vmk::test
