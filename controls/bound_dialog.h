#pragma once

#include <windows.h>

#include <optional>
#include <span>

#include "controls/bound_value.h"
#include "controls/dialog_env.h"
#include "controls/dialog_items.h"
#include "framework/dialog.h"

namespace vmk {

// A dialog whose controls are bound to settings: a page, a panel inside a page or a dialog of its own. It
// hands the notifications of its controls back to them, after the handlers below have had a look.
class BoundDialog : public Dialog, public CDialogEnv {
  public:
    void SetEnvironment(const CDialogEnv& env) { static_cast<CDialogEnv&>(*this) = env; }

    ~BoundDialog() override { ForgetValues(); }

    // Adds a value to those that StoreValues walks, in this order, until either of the two dies.
    void Register(BoundValue& value) noexcept;
    void Unregister(BoundValue& value) noexcept;

    // Says that there are radio buttons, which have to be prepared once they show their setting.
    void ExpectRadioButtons() noexcept { m_hasRadioButtons = true; }

    HWND Item(UINT id) const noexcept override;

    // While the dialog is being filled, controls are enabled and disabled only in the end; these know
    // already.
    bool IsItemEnabled(UINT id) const noexcept;
    void EnableItem(UINT id, bool enable) noexcept;
    void EnableItems(std::span<const UINT> ids, bool enable) noexcept;
    // Enables or disables controls. Those that are enabled by it, and switch others, do so then.
    void Switch(std::span<const UINT> ids, bool enable);
    void ShowItem(UINT id, bool show) const noexcept { ShowWindow(Item(id), show ? SW_SHOW : SW_HIDE); }
    bool IsItemChecked(UINT id) const noexcept;
    void CheckItem(UINT id, bool check) const noexcept;
    // A click as if by the user, with all that follows from it, except that the focus stays where it is.
    void ClickItem(UINT id) const noexcept;

    // Gives a control back the focus that it is just losing. False when it does not get it, being out of
    // sight or disabled by now.
    bool ReturnFocus(HWND control) noexcept;
    // Whether a control is getting the focus back, so that whoever else loses it now never really had it.
    bool IsFocusReturning() const noexcept { return m_isFocusReturning; }

  protected:
    std::optional<LRESULT> ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) override;

    // The window is there, its controls are translated but not bound yet.
    virtual void OnInitDialog() = 0;

    // A notification of a control before the control itself sees it. True when it is thereby done, so that a
    // bound control does not see it.
    virtual bool OnCommand(Command /*command*/) { return false; }
    virtual bool OnNotify(const NMHDR& /*header*/) { return false; }

    // Has every registered value written into its setting.
    void StoreValues() const;

  private:
    void Fill();
    void FitTextsOnce();
    void ForgetValues() noexcept;
    std::optional<LRESULT> HandleCommand(WPARAM wParam, LPARAM lParam);
    bool TakeCommand(Command command);
    bool StepOnSpin(const NMHDR& header) const;

    BoundValue* m_values = nullptr;  // the first; each knows the next
    std::optional<DialogItems> m_beingFilled;
    bool m_hasRadioButtons = false;
    bool m_fitsTexts = false;
    bool m_isFocusReturning = false;
};

}  // namespace vmk
