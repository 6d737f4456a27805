#include "controls/edit_int.h"

#include <algorithm>

namespace vmk {

void CMyEditInt::Bind(BoundDialog& page, UINT id, std::int32_t& field, const Options& options) {
    Attach(page, id);
    m_field = &field;
    m_stored = field;
    m_working = field;
    m_options = options;
    ShowNumber(field);
}

void CMyEditInt::ShowNumber(std::int32_t number) {
    SetDlgItemInt(Page().Handle(), static_cast<int>(Id()), static_cast<UINT>(number), TRUE);
}

void CMyEditInt::SetNumber(std::int32_t number) {
    m_working = number;
    ShowNumber(number);
}

std::int32_t CMyEditInt::ReadNumber() const {
    return static_cast<std::int32_t>(GetDlgItemInt(Page().Handle(), static_cast<int>(Id()), nullptr, TRUE));
}

bool CMyEditInt::Accepts(std::int32_t number) const {
    return !HasRange() || (m_options.minimum <= number && number <= m_options.maximum);
}

bool CMyEditInt::Step(std::int64_t change) {
    if (!HasRange()) return false;
    const std::int64_t wanted = ReadNumber() + change;
    SetNumber(static_cast<std::int32_t>(
        std::clamp<std::int64_t>(wanted, m_options.minimum, std::max(m_options.minimum, m_options.maximum))));
    EnableApply();
    return true;
}

// The focus may be lost because the user has cancelled everything.
void CMyEditInt::ShowStored() {
    const NoChangeByUser refusal(*this);
    SetNumber(m_stored);
}

void CMyEditInt::Store() {
    *m_field = m_working;
    m_stored = m_working;
}

bool CMyEditInt::TakeEntry() {
    const std::int32_t number = ReadNumber();
    if (!Accepts(number)) {
        ShowStored();
        return false;
    }
    m_working = number;
    return true;
}

bool CMyEditInt::OnReflectedCommand(UINT code) {
    if (code != EN_CHANGE) return false;
    EnableApply();
    return true;
}

}  // namespace vmk
