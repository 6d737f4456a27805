#include "tests/support/scratch_settings.h"

#include "settings/page_set.h"
#include "settings/settings_key.h"

namespace vmk::test {

void ScratchSettings::Store(const PrinterSettings& settings) const {
    StoreToRegistry(page_bit::kAllPages, SubKey().c_str(), settings);
}

PrinterSettings ScratchSettings::Load() const {
    PrinterSettings settings;
    LoadFromRegistry(page_bit::kAllPages, SubKey().c_str(), settings);
    return settings;
}

}  // namespace vmk::test
