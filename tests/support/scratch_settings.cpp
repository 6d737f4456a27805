#include "tests/support/scratch_settings.h"

#include "settings/page_set.h"
#include "settings/settings_key.h"
#include "tests/support/loaded_module.h"

namespace vmk::test {

void ScratchSettings::Store(const PrinterSettings& settings) const {
    StoreToRegistry(page_bit::kAllPages, SubKey().c_str(), settings);
}

PrinterSettings ScratchSettings::Load() const {
    PrinterSettings settings;
    LoadFromRegistry(page_bit::kAllPages, SubKey().c_str(), settings);
    return settings;
}

void RootSettings::Store(const PrinterSettings& settings) {
    StoreToRegistry(page_bit::kAllPages, nullptr, settings);
}

PrinterSettings RootSettings::Load() {
    PrinterSettings settings;
    LoadFromRegistry(page_bit::kAllPages, nullptr, settings);
    return settings;
}

PrinterSettings RecordOf(IPdfPrinterPreferences& object) {
    const ScratchSettings copy;
    object.StoreInRegistry(AllPages, AutomationString(copy.SubKey()).get());
    return copy.Load();
}

void Load(IPdfPrinterPreferences& object, const PrinterSettings& settings) {
    const ScratchSettings stored;
    stored.Store(settings);
    object.InitFromRegistry(AllPages, AutomationString(stored.SubKey()).get());
}

}  // namespace vmk::test
