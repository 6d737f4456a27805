#pragma once

#include "controls/bound_control.h"

namespace vmk {

// An edit box that shows a number with the decimals of its format. A typed number becomes the working value
// when the box loses the focus, if it is within the limits, and is shown again in the format; otherwise the
// last stored number comes back and so does the focus.
class CMyEditDouble final : public BoundControl, public SteppedEdit {
  public:
    struct Options {
        double minimum = -1.0;  // minimum and maximum both -1: no range, and no stepping
        double maximum = -1.0;
        double step = 1.0;
        const wchar_t* format = L"%1.3f";  // printf conversion of one double
    };

    // Attaches to the page's control, takes the field's value and shows it.
    void Bind(BoundDialog& page, UINT id, double& field, const Options& options);

    // Writes a number into the box; it becomes the working value when the box next loses the focus or is
    // stepped.
    void ShowNumber(double number);
    // The number that the text on screen means; 0 for a text that is none.
    double ReadNumber() const;
    // Makes a number both the working value and what is shown.
    void SetNumber(double number);
    // Says what the settings hold by now, rounded as they hold it, in the unit on screen: a refused entry
    // gives way to it.
    void SetStored(double number) { m_stored = number; }

    bool StepUp() override { return Step(m_options.step); }
    bool StepDown() override { return Step(-m_options.step); }

    void Store();

  private:
    bool TakeEntry() override;
    bool OnReflectedCommand(UINT code) override;

    bool HasRange() const { return m_options.minimum != -1.0 || m_options.maximum != -1.0; }
    bool Accepts(double number) const;
    bool Step(double change);
    void ShowAnew(double number);

    double* m_field = nullptr;
    double m_stored = 0.0;
    double m_working = 0.0;
    Options m_options;
};

}  // namespace vmk
