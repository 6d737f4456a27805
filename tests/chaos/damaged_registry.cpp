#include "tests/chaos/damaged_registry.h"

#include <algorithm>
#include <set>
#include <utility>

#include "resources/ids/email.h"
#include "resources/ids/smtp.h"
#include "tests/chaos/visit.h"
#include "tests/support/loaded_module.h"

namespace vmk::test {
namespace {

// The order of the list.
constexpr PageSet kPageOrder[] = {page_bit::kPaper,        page_bit::kCustomForms, page_bit::kGeneral,
                                  page_bit::kCompression,  page_bit::kGraphics,    page_bit::kFonts,
                                  page_bit::kWatermarks,   page_bit::kOverlay,     page_bit::kSecurity,
                                  page_bit::kDigitalSign,  page_bit::kLinks,       page_bit::kBookmarks,
                                  page_bit::kDocumentInfo, page_bit::kSave,        page_bit::kEmail,
                                  page_bit::kProfiles,     page_bit::kOptimization};

std::string DescribeOrNone(const RawValues& values, const std::string& name) {
    const auto found = values.find(name);
    return found == values.end() ? "nothing" : Describe(found->second);
}

void Compare(const char* when, const RawValues& actual, const RawValues& expected, Findings& findings) {
    if (actual == expected) return;
    std::set<std::string> names;
    for (const auto* const values : {&actual, &expected})
        for (const auto& [name, value] : *values) names.insert(name);
    for (const std::string& name : names) {
        const std::string is = DescribeOrNone(actual, name);
        const std::string wanted = DescribeOrNone(expected, name);
        const auto at = actual.find(name);
        const auto wantedAt = expected.find(name);
        if (at != actual.end() && wantedAt != expected.end() && at->second == wantedAt->second) continue;
        findings.push_back(name + " " + when + ": " + is + "; not " + wanted);
    }
}

AutomationString SubKeyOf(const RawKey& key) {
    return AutomationString(key.SubKey());
}

}  // namespace

DamagedRegistry::DamagedRegistry(IPdfPrinterPreferences& object, Sabotage sabotage)
    : m_object(object), m_sabotage(std::move(sabotage)) {
    m_before.Set(m_values);
    m_damaged.Set(m_values);
}

void DamagedRegistry::Load(const std::map<std::string, Damage>& damages) const {
    for (const auto& [name, damage] : damages) {
        if (damage.value) {
            m_damaged.Set(name, *damage.value);
        } else {
            m_damaged.Remove(name);
        }
    }
    m_object.InitFromRegistry(AllPages, SubKeyOf(m_before).get());
    m_object.InitFromRegistry(AllPages, SubKeyOf(m_damaged).get());
    if (m_sabotage.afterLoading) m_sabotage.afterLoading(m_damaged);
    for (const auto& [name, damage] : damages) m_damaged.Set(name, m_values.at(name));
}

RawValues DamagedRegistry::StoredNow() const {
    m_object.StoreInRegistry(AllPages, SubKeyOf(m_result).get());
    if (m_sabotage.afterStoring) m_sabotage.afterStoring(m_result);
    return m_result.Values();
}

// What was not damaged is compared with what was there, not with what it means.
void DamagedRegistry::CheckLoaded(const std::map<std::string, Damage>& damages,
                                  const PrinterSettings& expected, Findings& findings) const {
    RawValues values = m_values;
    const RawValues reading = Stored(expected);
    for (const auto& [name, damage] : damages) values.at(name) = reading.at(name);
    Compare("after loading", StoredNow(), values, findings);
}

void DamagedRegistry::Look(HWND dialog, PageSet pages, PrinterSettings& record, Findings& findings) const {
    if (GetDlgItem(dialog, IDC_SMTP_ADDRESS)) {
        CheckMailServer(dialog, record, findings);
        record = StoredByMailServer(record);
        return;
    }
    const std::vector<HWND> windows = PagesOf(dialog);
    auto window = windows.begin();
    for (const PageSet bit : kPageOrder) {
        if (!(bit & pages)) continue;
        if (window == windows.end()) {
            findings.emplace_back("a page is missing");
            return;
        }
        if (m_sabotage.onScreen) m_sabotage.onScreen(*window);
        CheckPage(*window, bit, record, findings);
        // It comes back when the window over it, which this opens, was left.
        if (bit == page_bit::kEmail)
            SendMessageW(*window, WM_COMMAND, MAKEWPARAM(IDC_EMAIL_EDIT_SERVER, BN_CLICKED),
                         reinterpret_cast<LPARAM>(GetDlgItem(*window, IDC_EMAIL_EDIT_SERVER)));
        ++window;
    }
}

void DamagedRegistry::CheckStored(const PrinterSettings& expected, Findings& findings) const {
    const RawValues stored = StoredNow();
    Compare("after OK", stored, Stored(expected), findings);
    m_object.InitFromRegistry(AllPages, SubKeyOf(m_before).get());
    m_object.InitFromRegistry(AllPages, SubKeyOf(m_result).get());
    m_object.StoreInRegistry(AllPages, SubKeyOf(m_again).get());
    Compare("loaded again", m_again.Values(), stored, findings);
}

// The record that has to come of it.
PrinterSettings DamagedRegistry::LoadAndCheck(const std::map<std::string, Damage>& damages,
                                              Findings& findings) const {
    RawValues values = m_values;
    for (const auto& [name, damage] : damages) {
        values.erase(name);
        if (damage.value) values.emplace(name, *damage.value);
    }
    Load(damages);
    PrinterSettings record = Reading(values, m_undamaged);
    CheckLoaded(damages, record, findings);
    return record;
}

Findings DamagedRegistry::TryLoading(const std::map<std::string, Damage>& damages) const {
    Findings findings;
    LoadAndCheck(damages, findings);
    return findings;
}

Findings DamagedRegistry::Try(const std::map<std::string, Damage>& damages, PageSet pages) const {
    Findings findings;
    PrinterSettings record = LoadAndCheck(damages, findings);

    m_object.DisablePage(AllPages);
    m_object.EnablePage(static_cast<PdfPrinterDialogPage>(pages));
    const Visit visit = VisitDialog(m_object, [&](HWND dialog) { Look(dialog, pages, record, findings); });
    if (visit.exitCode != IDOK || !visit.wasSeen || visit.wasStuck)
        findings.push_back("the dialog ended with " + std::to_string(visit.exitCode));
    for (const PageSet bit : kPageOrder)
        if (bit & pages) record = StoredByPage(bit, record);
    CheckStored(record, findings);
    return findings;
}

}  // namespace vmk::test
