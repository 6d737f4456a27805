#pragma once

#include <utility>

#include "settings/printer_settings.h"

namespace vmk {

// What a record was when this was made. Its passwords do not stay in memory.
class RecordBackup {
  public:
    explicit RecordBackup(PrinterSettings& settings);
    ~RecordBackup();
    RecordBackup(const RecordBackup&) = delete;
    RecordBackup& operator=(const RecordBackup&) = delete;

    // Makes the record that again. Its members stay where they are: controls are bound to them.
    void Restore() noexcept;

  private:
    PrinterSettings& m_settings;
    PrinterSettings m_before;
};

// Runs an action that changes the record. When it throws, the record is what it was before.
template <typename Action>
void AllOrNothing(PrinterSettings& settings, Action&& change) {
    RecordBackup before(settings);
    try {
        std::forward<Action>(change)();
    } catch (...) {
        before.Restore();
        throw;
    }
}

}  // namespace vmk
