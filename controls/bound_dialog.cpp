#include "controls/bound_dialog.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "controls/check_state.h"
#include "controls/focus.h"
#include "controls/radio_focus.h"
#include "controls/text_lines.h"
#include "framework/reflection.h"

namespace vmk {

BoundValue::~BoundValue() {
    if (m_registrar) m_registrar->Unregister(*this);
}

void BoundDialog::Register(BoundValue& value) noexcept {
    if (value.m_registrar) value.m_registrar->Unregister(value);
    BoundValue** place = &m_values;
    while (*place) place = &(*place)->m_next;
    *place = &value;
    value.m_registrar = this;
}

void BoundDialog::Unregister(BoundValue& value) noexcept {
    BoundValue** place = &m_values;
    while (*place != &value) place = &(*place)->m_next;
    *place = std::exchange(value.m_next, nullptr);
    value.m_registrar = nullptr;
}

void BoundDialog::ForgetValues() noexcept {
    while (m_values) Unregister(*m_values);
}

HWND BoundDialog::Item(UINT id) const noexcept {
    return m_beingFilled ? m_beingFilled->Find(id) : Dialog::Item(id);
}

bool BoundDialog::IsItemEnabled(UINT id) const noexcept {
    return m_beingFilled ? m_beingFilled->IsEnabled(id) : IsWindowEnabled(Item(id)) != FALSE;
}

void BoundDialog::EnableItem(UINT id, bool enable) noexcept {
    if (m_beingFilled) {
        m_beingFilled->Enable(id, enable);
    } else {
        SetEnabled(Item(id), enable);
    }
}

void BoundDialog::EnableItems(std::span<const UINT> ids, bool enable) noexcept {
    for (const UINT id : ids) EnableItem(id, enable);
}

void BoundDialog::Switch(std::span<const UINT> ids, bool enable) {
    EnableItems(ids, enable);
    if (!enable) return;
    for (BoundValue* value = m_values; value; value = value->m_next) {
        // One of them may have switched the next one off again.
        const auto concerns = [&](UINT id) { return value->Owns(id) && IsItemEnabled(id); };
        if (std::ranges::any_of(ids, concerns)) value->SwitchOthers();
    }
}

void BoundDialog::StoreValues() const {
    for (BoundValue* value = m_values; value; value = value->m_next) value->Store();
}

bool BoundDialog::IsItemChecked(UINT id) const noexcept {
    return IsChecked(Item(id));
}

void BoundDialog::CheckItem(UINT id, bool check) const noexcept {
    SetChecked(Item(id), check);
}

void BoundDialog::ClickItem(UINT id) const noexcept {
    // A click passes over what is disabled.
    if (m_beingFilled) m_beingFilled->Settle();
    HWND focus = GetFocus();
    SendMessageW(Item(id), BM_CLICK, 0, 0);
    // While the dialog opens, the focus may still be outside; the dialog manager places it then.
    if (GetFocus() != focus && IsChild(GetAncestor(Handle(), GA_ROOT), focus)) SetFocus(focus);
}

std::optional<LRESULT> BoundDialog::ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    switch (msg) {
        case WM_INITDIALOG:
            TranslateWindowTexts(hwnd);
            Fill();
            return TRUE;
        case WM_SHOWWINDOW:
            if (wParam) FitTextsOnce();
            break;
        case WM_COMMAND:
            return HandleCommand(wParam, lParam);
        case WM_NOTIFY: {
            const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
            if (StepOnSpin(header) || OnNotify(header)) return 0;
            break;
        }
        default:
            break;
    }
    return ReflectNotification(hwnd, msg, wParam, lParam);
}

void BoundDialog::Fill() {
    ForgetValues();
    m_fitsTexts = false;
    m_beingFilled.emplace(Handle());
    OnInitDialog();
    m_beingFilled->Settle();
    if (m_hasRadioButtons) PrepareRadioButtons(m_beingFilled->Windows());
    m_beingFilled.reset();
    // Most pages are never looked at; a dialog of its own is, and not every way of showing it is told.
    const bool isPage = (GetWindowLongW(Handle(), GWL_STYLE) & WS_CHILD) != 0;
    if (!isPage) FitTextsOnce();
}

void BoundDialog::FitTextsOnce() {
    if (m_fitsTexts) return;
    FitTexts(Handle());
    m_fitsTexts = true;
}

std::optional<LRESULT> BoundDialog::HandleCommand(WPARAM wParam, LPARAM lParam) {
    HWND sender = reinterpret_cast<HWND>(lParam);
    HWND owner = CommandOwner(Handle(), sender);
    if (owner != Handle()) return SendMessageW(owner, WM_COMMAND, wParam, lParam);
    const Command command = CommandOf(wParam);
    if (command.code == BN_CLICKED && HasOnlyGotFocus(sender)) return 0;
    const FocusKeeper focus(sender);
    if (TakeCommand(command)) return 0;
    return ReflectNotification(Handle(), WM_COMMAND, wParam, lParam);
}

bool BoundDialog::ReturnFocus(HWND control) noexcept {
    if (!TakesKeys(control)) return false;
    m_isFocusReturning = true;
    SetFocus(control);
    m_isFocusReturning = false;
    return GetFocus() == control;
}

bool BoundDialog::TakeCommand(Command command) {
    if (OnCommand(command)) return true;
    for (BoundValue* value = m_values; value; value = value->m_next) {
        if (value->OnCommand(command)) return true;
    }
    return false;
}

bool BoundDialog::StepOnSpin(const NMHDR& header) const {
    if (header.code != UDN_DELTAPOS) return false;
    const auto id = static_cast<UINT>(header.idFrom);
    const int change = reinterpret_cast<const NMUPDOWN&>(header).iDelta;
    for (BoundValue* value = m_values; value; value = value->m_next) {
        if (value->OnSpin(id, change)) return true;
    }
    return false;
}

}  // namespace vmk
