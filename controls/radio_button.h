#pragma once

#include <cstdint>
#include <span>

#include "controls/bound_control.h"
#include "controls/check_state.h"

namespace vmk {

// A radio button that stands for one value of a field. Its dependents are switched by the BM_SETCHECK
// messages that the system sends to a group, the clicked button first and its siblings after it: each such
// message sets them as if the button were off, so the unchecked sibling's dependents have the last word. What
// else they switch is left to the page: it may reach beyond the button's own dependents.
class CMyRadioButton final : public BoundControl {
  public:
    // The check state of BM_SETCHECK that selects the button on behalf of its page: the group is unchecked,
    // the field gets the button's value, and the dependents are set as if on.
    static constexpr WPARAM kSelectCode = 0xF1;

    struct Options {
        std::int32_t value = 0;            // what the field holds while this button is chosen
        std::span<const UINT> group = {};  // the other buttons of the group
        Dependents dependents = {};
    };

    // Attaches to the page's control and shows nothing: the page clicks the button that the field asks for,
    // so that its group and all dependents follow.
    void Bind(BoundDialog& page, UINT id, std::int32_t& field, const Options& options);

    // Checks the button if the field has its value, and unchecks it otherwise.
    void Show() { SetChecked(Handle(), *m_field == m_options.value); }
    bool IsChecked() const { return vmk::IsChecked(Handle()); }

    // Writes the button's value into the field if the button is checked.
    void Store() override;

  private:
    std::optional<LRESULT> ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) override;
    void OnSetCheck(WPARAM state);

    std::int32_t* m_field = nullptr;
    Options m_options;
};

}  // namespace vmk
