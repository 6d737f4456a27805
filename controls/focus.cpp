#include "controls/focus.h"

namespace vmk {
namespace {

HWND WholeDialog(HWND window) noexcept {
    return GetAncestor(window, GA_ROOT);
}

// Leaves a box of several lines its selection, which the dialog manager would replace like that of any box.
class SelectionKept {
  public:
    explicit SelectionKept(HWND window) noexcept {
        const LRESULT code = SendMessageW(window, WM_GETDLGCODE, 0, 0);
        if (!(code & DLGC_HASSETSEL) || !(GetWindowLongW(window, GWL_STYLE) & ES_MULTILINE)) return;
        m_box = window;
        SendMessageW(m_box, EM_GETSEL, reinterpret_cast<WPARAM>(&m_first), reinterpret_cast<LPARAM>(&m_end));
    }
    ~SelectionKept() {
        if (m_box) SendMessageW(m_box, EM_SETSEL, m_first, static_cast<LPARAM>(m_end));
    }
    SelectionKept(const SelectionKept&) = delete;
    SelectionKept& operator=(const SelectionKept&) = delete;

  private:
    HWND m_box = nullptr;
    DWORD m_first = 0;
    DWORD m_end = 0;
};

void SelectInDialog(HWND window) noexcept {
    SendMessageW(WholeDialog(window), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(window), TRUE);
}

}  // namespace

bool TakesKeys(HWND window) noexcept {
    if (!IsWindowVisible(window)) return false;
    for (; window; window = GetAncestor(window, GA_PARENT))
        if (!IsWindowEnabled(window)) return false;
    return true;
}

void GiveFocus(HWND window) noexcept {
    const SelectionKept selection(window);
    SelectInDialog(window);
    // Where the focus was refused, the default button must not have moved either.
    HWND focus = GetFocus();
    if (focus && focus != window && !IsChild(window, focus)) SelectInDialog(focus);
}

void MoveFocusByKeyboard(HWND window) noexcept {
    SendMessageW(WholeDialog(window), WM_CHANGEUISTATE,
                 MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL), 0);
    GiveFocus(window);
}

// Before a dialog is on screen its controls report a lot, and none of them has the focus.
FocusKeeper::FocusKeeper(HWND sender) noexcept
    : m_sender(sender), m_before(IsWindowVisible(WholeDialog(sender)) ? GetFocus() : nullptr) {
    if (!TakesKeys(m_before)) m_before = nullptr;
}

FocusKeeper::~FocusKeeper() {
    if (!m_before || TakesKeys(GetFocus())) return;
    HWND dialog = WholeDialog(m_sender);
    // Nothing to keep in a dialog that has been left or is about to close.
    if (!IsChild(dialog, m_before) || GetActiveWindow() != dialog || !TakesKeys(dialog)) return;
    HWND next = TakesKeys(m_sender) ? m_sender : GetNextDlgTabItem(dialog, m_before, FALSE);
    if (next) GiveFocus(next);
}

HWND CommandOwner(HWND dialog, HWND sender) noexcept {
    HWND whole = WholeDialog(dialog);
    return IsChild(whole, sender) ? GetParent(sender) : whole;
}

}  // namespace vmk
