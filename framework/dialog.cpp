#include "framework/dialog.h"

#include "framework/module.h"

namespace vmk {

INT_PTR Dialog::DoModal(UINT templateId, HWND owner) noexcept {
    Module& module = Module::Get();
    m_failed = false;
    const CreationList::Announcement announcement(module.Creations(), *this);
    const INT_PTR result =
        DialogBoxParamW(module.Instance(), MAKEINTRESOURCEW(templateId), owner, StartProc, 0);
    if (!m_failed) return result;
    SetLastError(ERROR_OUTOFMEMORY);
    return kNotCreated;
}

HWND Dialog::Create(UINT templateId, HWND parent) noexcept {
    Module& module = Module::Get();
    m_failed = false;
    const CreationList::Announcement announcement(module.Creations(), *this);
    HWND hwnd = CreateDialogParamW(module.Instance(), MAKEINTRESOURCEW(templateId), parent, StartProc, 0);
    if (!m_failed) return hwnd;
    if (hwnd) DestroyWindow(hwnd);
    SetLastError(ERROR_OUTOFMEMORY);
    return nullptr;
}

// A dialog that could not be initialised is only half there: nobody may use it or ask it what it holds, so
// its window goes, without the object.
void Dialog::OnMessageFailed(UINT msg) noexcept {
    if (msg != WM_INITDIALOG) return;
    HWND hwnd = Handle();
    Detach();
    Fail(hwnd);
}

void Dialog::Fail(HWND hwnd) noexcept {
    m_failed = true;
    EndDialog(hwnd, kNotCreated);
}

// Attaches the announced object on the dialog's first message and hands it that message. From then on the
// object sees every message first, and what arrives here is what it left to the dialog manager.
INT_PTR CALLBACK Dialog::StartProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) noexcept {
    if (FromHandle(hwnd)) return FALSE;
    auto* const dialog = static_cast<Dialog*>(Module::Get().Creations().Take());
    if (!dialog) return FALSE;
    if (!dialog->SubclassWindow(hwnd)) {
        dialog->Fail(hwnd);
        return FALSE;
    }
    const std::optional<LRESULT> answer = dialog->Dispatch(hwnd, msg, wParam, lParam);
    if (!answer) return FALSE;
    SetWindowLongPtrW(hwnd, DWLP_MSGRESULT, *answer);
    return msg == WM_INITDIALOG ? *answer : TRUE;
}

}  // namespace vmk
