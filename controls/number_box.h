#pragma once

#include <cstdint>

#include "controls/bound_control.h"
#include "settings/choices.h"

namespace vmk {

// An edit box that shows a stored whole number, as such or in a unit of which it holds so many parts. A typed
// number becomes the working value when the box loses the focus, if it is within the limits; otherwise the
// last stored number comes back and so does the focus.
template <typename Number>
class NumberBox final : public BoundControl {
  public:
    struct Options {
        Number minimum = -1;  // minimum and maximum both -1: no range, and no stepping
        Number maximum = -1;
        Number step = 1;
        UINT spin = 0;  // the control whose arrows step the box; 0 for none
        // Only where the number has decimals: how many of the stored whole ones make one on screen, and the
        // printf conversion of one double.
        double storedPerUnit = 1.0;
        const wchar_t* format = L"%1.3f";
    };

    // Not inline: otherwise each page would hold an image of its boxes.
    NumberBox();

    // Attaches to the page's control and shows the field.
    void Bind(BoundDialog& page, UINT id, std::int32_t& field, const Options& options);
    // The same with the limits of the stored number in place of those of the options.
    void Bind(BoundDialog& page, UINT id, std::int32_t& field, NumberRange limits, Options options);

    // Writes a number into the box; it becomes the working value when the box next loses the focus or is
    // stepped.
    void ShowNumber(Number number);
    // Makes a number both the working value and what is shown.
    void SetNumber(Number number);
    // The same, and what a refused entry gives way to, in place of a stored number that cannot be edited.
    void SetStored(Number number);

    // The number that the text on screen means; 0 for a text that is none.
    Number ReadNumber() const;
    // Makes what is on screen the working value, typed or not, within the limits or not.
    void TakeText() { m_working = ReadNumber(); }
    // Converts what is on screen, typed or not, to another unit, of a number that has decimals.
    void SetUnit(double storedPerUnit);

    // One step up or down within the limits. False, and nothing done, when the box has no range.
    bool StepUp() { return Step(m_options.step); }
    bool StepDown() { return Step(-m_options.step); }

    void Store() override;

    bool OnSpin(UINT id, int change) override;

  private:
    bool TakeEntry() override;

    bool HasRange() const { return m_options.minimum != -1 || m_options.maximum != -1; }
    bool Accepts(Number number) const;
    bool Step(Number change);
    Number FromStored(std::int32_t stored) const;
    std::int32_t ToStored(Number number) const;

    std::int32_t* m_field = nullptr;
    Number m_stored = 0;
    Number m_working = 0;
    Options m_options;
};

// Whole numbers, as the system writes and reads them in dialogs. An accepted entry stays as it was typed.
using CMyEditInt = NumberBox<std::int32_t>;
extern template class NumberBox<std::int32_t>;

// Numbers with decimals, in the format of the box. The first twenty characters of the text count. An accepted
// entry is shown again in the format.
using CMyEditDouble = NumberBox<double>;
extern template class NumberBox<double>;

}  // namespace vmk
