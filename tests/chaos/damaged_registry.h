#pragma once

#include <functional>
#include <map>
#include <string>

#include "settings/page_set.h"
#include "tests/chaos/contract.h"
#include "tests/chaos/damage.h"
#include "tests/chaos/pages_contract.h"
#include "tests/chaos/raw_values.h"
#include "tests/support/test_font.h"
#include "vmkctrl.h"

// An object of the component before registry values that are damaged:
//
//     const DamagedRegistry registry(*object);
//     EXPECT_THAT(registry.Try({{"Paper.Nup", damage}}, page_bit::kPaper), IsEmpty());

namespace vmk::test {

class DamagedRegistry {
  public:
    // What is done behind the component's back, to see that it is found.
    struct Sabotage {
        std::function<void(const RawKey& loaded)> afterLoading = {};
        std::function<void(HWND page)> onScreen = {};
        std::function<void(const RawKey& stored)> afterStoring = {};
    };

    explicit DamagedRegistry(IPdfPrinterPreferences& object) : DamagedRegistry(object, {}) {}
    DamagedRegistry(IPdfPrinterPreferences& object, Sabotage sabotage);

    // Loads values of which some are damaged, opens the pages, ends the dialog with OK and stores. What is
    // not as it should be: of what was loaded, of what is on screen, of what was stored.
    Findings Try(const std::map<std::string, Damage>& damages, PageSet pages) const;
    // Without the dialog.
    Findings TryLoading(const std::map<std::string, Damage>& damages) const;

  private:
    void Load(const std::map<std::string, Damage>& damages) const;
    PrinterSettings LoadAndCheck(const std::map<std::string, Damage>& damages, Findings& findings) const;
    RawValues StoredNow() const;
    void CheckLoaded(const std::map<std::string, Damage>& damages, const PrinterSettings& expected,
                     Findings& findings) const;
    void Look(HWND dialog, PageSet pages, PrinterSettings& record, Findings& findings) const;
    void CheckStored(const PrinterSettings& expected, Findings& findings) const;

    IPdfPrinterPreferences& m_object;
    const Sabotage m_sabotage;
    const TestFont m_always{{.family = L"Vmk Always"}};
    const TestFont m_never{{.family = L"Vmk Never"}};
    const PrinterSettings m_undamaged = UndamagedSettings();
    const RawValues m_values = Stored(m_undamaged);
    const RawKey m_before;   // the same, undamaged
    const RawKey m_damaged;  // the same, damaged for one trial at a time
    const RawKey m_result;   // what the object stores
    const RawKey m_again;
};

}  // namespace vmk::test
