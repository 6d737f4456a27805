#include "controls/edit_double.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cwchar>
#include <string>

#include "base/window_text.h"

namespace vmk {
namespace {

constexpr int kLongestText = 20;

}  // namespace

void CMyEditDouble::Bind(BoundDialog& page, UINT id, double& field, const Options& options) {
    Attach(page, id);
    m_field = &field;
    m_stored = field;
    m_working = field;
    m_options = options;
    ShowNumber(field);
}

void CMyEditDouble::ShowNumber(double number) {
    std::array<wchar_t, 400> text{};  // the largest double has 309 digits before the point
    std::swprintf(text.data(), text.size(), m_options.format, number);
    // What is there already is not written again: Apply would flicker.
    if (WindowText(Handle()) != text.data()) SetWindowTextW(Handle(), text.data());
}

double CMyEditDouble::ReadNumber() const {
    const double number = std::wcstod(WindowText(Handle(), kLongestText).c_str(), nullptr);
    return std::isnan(number) ? 0.0 : number;
}

void CMyEditDouble::SetNumber(double number) {
    m_working = number;
    ShowNumber(number);
}

bool CMyEditDouble::Accepts(double number) const {
    return !HasRange() || (m_options.minimum <= number && number <= m_options.maximum);
}

bool CMyEditDouble::Step(double change) {
    if (!HasRange()) return false;
    SetNumber(std::min(std::max(ReadNumber() + change, m_options.minimum), m_options.maximum));
    EnableApply();
    return true;
}

// The focus may be lost because the user has cancelled everything.
void CMyEditDouble::ShowAnew(double number) {
    const NoChangeByUser rewriting(*this);
    SetNumber(number);
}

void CMyEditDouble::Store() {
    *m_field = m_working;
    m_stored = m_working;
}

bool CMyEditDouble::TakeEntry() {
    const double number = ReadNumber();
    const bool accepted = Accepts(number);
    ShowAnew(accepted ? number : m_stored);
    return accepted;
}

bool CMyEditDouble::OnReflectedCommand(UINT code) {
    if (code != EN_CHANGE) return false;
    EnableApply();
    return true;
}

}  // namespace vmk
