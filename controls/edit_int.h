#pragma once

#include <cstdint>

#include "controls/bound_control.h"

namespace vmk {

// An edit box that shows a whole number. A typed number becomes the working value when the box loses the
// focus, if it is within the limits; otherwise the last stored number comes back and so does the focus.
class CMyEditInt final : public BoundControl, public SteppedEdit {
  public:
    struct Options {
        std::int32_t minimum = -1;  // minimum and maximum both -1: no range, and no stepping
        std::int32_t maximum = -1;
        std::int32_t step = 1;
    };

    // Attaches to the page's control, takes the field's value and shows it.
    void Bind(BoundDialog& page, UINT id, std::int32_t& field, const Options& options);

    // Writes a number into the box; it becomes the working value when the box next loses the focus or is
    // stepped.
    void ShowNumber(std::int32_t number);
    // Makes a number both the working value and what is shown.
    void SetNumber(std::int32_t number);
    // Says what the settings hold, as the box shows it: a refused entry gives way to it.
    void SetStored(std::int32_t number) { m_stored = number; }

    bool StepUp() override { return Step(m_options.step); }
    bool StepDown() override { return Step(-std::int64_t{m_options.step}); }

    void Store();

  private:
    bool TakeEntry() override;
    bool OnReflectedCommand(UINT code) override;

    bool HasRange() const { return m_options.minimum != -1 || m_options.maximum != -1; }
    bool Accepts(std::int32_t number) const;
    std::int32_t ReadNumber() const;
    bool Step(std::int64_t change);
    void ShowStored();

    std::int32_t* m_field = nullptr;
    std::int32_t m_stored = 0;
    std::int32_t m_working = 0;
    Options m_options;
};

}  // namespace vmk
