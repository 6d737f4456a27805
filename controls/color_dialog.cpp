#include "controls/color_dialog.h"

#include <array>

#include "framework/module.h"
#include "framework/system_library.h"

namespace vmk {
namespace {

using CustomColors = std::array<COLORREF, 16>;

constexpr CustomColors AllWhite() {
    CustomColors colors{};
    colors.fill(RGB(255, 255, 255));
    return colors;
}

// The one table of the process.
CustomColors& SharedCustomColors() noexcept {
    static CustomColors colors = AllWhite();
    return colors;
}

}  // namespace

CMyColorDialog::CMyColorDialog(COLORREF initial, HWND owner, POINT topLeft) noexcept : m_topLeft(topLeft) {
    m_request.lStructSize = sizeof(m_request);
    m_request.hwndOwner = owner ? owner : GetActiveWindow();
    m_request.lpCustColors = SharedCustomColors().data();
    m_request.Flags = CC_ENABLEHOOK;
    m_request.lpfnHook = Hook;
    if (initial == 0) return;
    m_request.Flags |= CC_RGBINIT;
    m_request.rgbResult = initial;
}

bool CMyColorDialog::Run() noexcept {
    const SystemLibrary dialogs(L"comdlg32.dll");
    auto* const chooseColor = dialogs.Find<decltype(ChooseColorW)>("ChooseColorW");
    const CreationList::Announcement announcement(Module::Get().Creations(), *this);
    return chooseColor && chooseColor(&m_request);
}

// The system creates the dialog; its initialisation message is the first chance to attach to it.
UINT_PTR CALLBACK CMyColorDialog::Hook(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept {
    if (msg != WM_INITDIALOG) return 0;
    auto* const dialog = static_cast<CMyColorDialog*>(Module::Get().Creations().Take());
    if (!dialog || !dialog->SubclassWindow(hwnd)) return 0;
    return static_cast<UINT_PTR>(dialog->ProcessWindowMessage(hwnd, msg, wParam, lParam).value_or(0));
}

std::optional<LRESULT> CMyColorDialog::ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM /*wParam*/,
                                                            LPARAM /*lParam*/) {
    if (msg != WM_INITDIALOG) return std::nullopt;
    RECT rect{};
    GetWindowRect(hwnd, &rect);
    MoveWindow(hwnd, m_topLeft.x, m_topLeft.y, rect.right - rect.left, rect.bottom - rect.top, TRUE);
    return 1;
}

}  // namespace vmk
