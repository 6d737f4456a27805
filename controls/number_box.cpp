#include "controls/number_box.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <string>
#include <type_traits>
#include <utility>

#include "base/truncate.h"
#include "base/window_text.h"

namespace vmk {
namespace {

constexpr int kLongestText = 20;

// A change that has no room in the number ends at the limit.
std::int32_t Stepped(std::int32_t number, std::int32_t change, std::int32_t minimum, std::int32_t maximum) {
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(std::int64_t{number} + change, minimum, std::max(minimum, maximum)));
}

double Stepped(double number, double change, double minimum, double maximum) {
    return std::min(std::max(number + change, minimum), maximum);
}

}  // namespace

template <typename Number>
NumberBox<Number>::NumberBox() = default;

template <typename Number>
void NumberBox<Number>::Bind(BoundDialog& page, UINT id, std::int32_t& field, const Options& options) {
    Attach(page, id);
    m_field = &field;
    m_options = options;
    SetStored(FromStored(field));
}

template <typename Number>
void NumberBox<Number>::Bind(BoundDialog& page, UINT id, std::int32_t& field, NumberRange limits,
                             Options options) {
    m_options = options;
    options.minimum = FromStored(limits.smallest);
    options.maximum = FromStored(limits.largest);
    Bind(page, id, field, options);
}

template <typename Number>
void NumberBox<Number>::ShowNumber(Number number) {
    if constexpr (std::is_integral_v<Number>) {
        std::array<wchar_t, 12> text{};
        std::swprintf(text.data(), text.size(), L"%d", number);
        ShowText(Handle(), text.data());
    } else {
        std::array<wchar_t, 400> text{};  // the largest double has 309 digits before the point
        std::swprintf(text.data(), text.size(), m_options.format, number);
        // What is there already is not written again: Apply would flicker.
        if (WindowText(Handle()) != text.data()) ShowText(Handle(), text.data());
    }
}

template <typename Number>
void NumberBox<Number>::SetNumber(Number number) {
    m_working = number;
    ShowNumber(number);
}

template <typename Number>
void NumberBox<Number>::SetStored(Number number) {
    m_stored = number;
    SetNumber(number);
}

template <typename Number>
Number NumberBox<Number>::ReadNumber() const {
    if constexpr (std::is_integral_v<Number>) {
        return static_cast<Number>(GetDlgItemInt(Page().Handle(), static_cast<int>(Id()), nullptr, TRUE));
    } else {
        // The system's own conversion: that of the compiler's library allocates, and writes there whether it
        // got memory or not.
        return _wtof(WindowText(Handle(), kLongestText).c_str());
    }
}

template <typename Number>
void NumberBox<Number>::SetUnit(double storedPerUnit) {
    const double before = std::exchange(m_options.storedPerUnit, storedPerUnit);
    m_stored = FromStored(*m_field);
    SetNumber(static_cast<Number>(ReadNumber() * before / storedPerUnit));
}

template <typename Number>
void NumberBox<Number>::Store() {
    *m_field = ToStored(m_working);
    m_stored = FromStored(*m_field);
}

template <typename Number>
bool NumberBox<Number>::OnSpin(UINT id, int change) {
    if (id != m_options.spin) return false;
    // Spins keep their default range, which runs downwards: their "up" is a negative change.
    return change < 1 ? StepUp() : StepDown();
}

// The focus may be lost because the user has cancelled everything.
template <typename Number>
bool NumberBox<Number>::TakeEntry() {
    const NoChangeByUser rewriting(*this);
    const Number number = ReadNumber();
    if (!Accepts(number)) {
        SetNumber(m_stored);
        return false;
    }
    m_working = number;
    if constexpr (std::is_floating_point_v<Number>) ShowNumber(number);
    return true;
}

template <typename Number>
bool NumberBox<Number>::Accepts(Number number) const {
    return !HasRange() || (m_options.minimum <= number && number <= m_options.maximum);
}

template <typename Number>
bool NumberBox<Number>::Step(Number change) {
    if (!HasRange()) return false;
    SetNumber(Stepped(ReadNumber(), change, m_options.minimum, m_options.maximum));
    EnableApply();
    return true;
}

// Whole numbers have no unit, and are exact in between.
template <typename Number>
Number NumberBox<Number>::FromStored(std::int32_t stored) const {
    return static_cast<Number>(stored / m_options.storedPerUnit);
}

template <typename Number>
std::int32_t NumberBox<Number>::ToStored(Number number) const {
    return TruncateResultToInt32(number * m_options.storedPerUnit);
}

template class NumberBox<std::int32_t>;
template class NumberBox<double>;

}  // namespace vmk
