#include "settings/all_or_nothing.h"

#include "settings/passwords.h"

namespace vmk {

RecordBackup::RecordBackup(PrinterSettings& settings) : m_settings(settings), m_before(settings) {}

RecordBackup::~RecordBackup() {
    WipePasswords(m_before);
}

void RecordBackup::Restore() noexcept {
    std::swap(m_settings, m_before);
}

}  // namespace vmk
