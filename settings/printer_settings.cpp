#include "settings/printer_settings.h"

namespace vmk {

PrinterSettings::PrinterSettings() = default;
PrinterSettings::~PrinterSettings() = default;
PrinterSettings::PrinterSettings(const PrinterSettings&) = default;
PrinterSettings& PrinterSettings::operator=(const PrinterSettings&) = default;
PrinterSettings::PrinterSettings(PrinterSettings&&) noexcept = default;
PrinterSettings& PrinterSettings::operator=(PrinterSettings&&) noexcept = default;

}  // namespace vmk
