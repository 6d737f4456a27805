#pragma once

#include <windows.h>

#include <cstdint>
#include <span>

#include "controls/bound_dialog.h"
#include "controls/bound_value.h"
#include "controls/dialog_env.h"
#include "framework/window.h"

namespace vmk {

// Controls of the same page whose enabled state follows, or opposes, an on-off control.
struct Dependents {
    std::span<const UINT> ids;
    bool enabledWhenOn = true;
    bool offByClickOnly = false;  // a stored "off" leaves them as they are; only a click switches them off

    bool EnabledWhen(bool on) const { return on == enabledWhenOn; }
};

// A control of a dialog template bound to one field of the settings. It shows the field, keeps a working
// value while the user edits, enables Apply on every change, and switches its dependents. While it is
// disabled, showing the field switches nothing: whoever has disabled it has decided about them. A member of
// its page; the control's window dies before it.
class BoundControl : public Window, public CDialogEnv, public BoundValue {
  public:
    // Tab and Enter go to this window instead of the next tab stop of the page.
    void SetNextFocus(HWND window) noexcept { m_nextFocus = window; }

    bool Owns(UINT id) const override { return id == m_id; }

  protected:
    // Registers with the page, too. Throws std::bad_alloc when the control cannot be attached: it could
    // neither show nor keep its field.
    void Attach(BoundDialog& page, UINT id);

    // The dialog that the control stands in; valid once attached.
    BoundDialog& Page() const noexcept { return *m_page; }
    UINT Id() const noexcept { return m_id; }
    bool IsEnabled() const noexcept { return m_page->IsItemEnabled(m_id); }

    std::optional<LRESULT> ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) override;

    // A notification of the control that its page has reflected back; true when it is consumed. A changed
    // text enables Apply.
    virtual bool OnReflectedCommand(UINT code);

    // Takes over what has been entered, now that the control loses the focus. False when that is refused;
    // then the focus stays.
    virtual bool TakeEntry() { return true; }

    // Whether Escape means something to the control now. Otherwise it cancels the dialog.
    virtual bool UsesEscape() const { return false; }

  private:
    bool Cancels(WPARAM key) const { return key == VK_ESCAPE && !UsesEscape(); }
    bool KeepsFocus();
    // Where Tab and Enter lead.
    HWND FocusSuccessor(bool backwards) const noexcept;

    BoundDialog* m_page = nullptr;
    UINT m_id = 0;
    HWND m_nextFocus = nullptr;
};

}  // namespace vmk
