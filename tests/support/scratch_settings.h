#pragma once

#include "settings/printer_settings.h"
#include "tests/support/scratch_key.h"
#include "vmkctrl.h"

// Whole records in a scratch key:
//
//     const ScratchSettings settings;
//     settings.Store({.Watermarks = {.Print = 1}});
//     const LiveDialog dialog({.settings = &settings});

namespace vmk::test {

// A scratch key that is there from the beginning and that whole records can be stored in.
class ScratchSettings : public ScratchKey {
  public:
    ScratchSettings() { Create(); }

    void Store(const PrinterSettings& settings) const;
    // The record that the key holds.
    PrinterSettings Load() const;
};

// The key that holds the settings of no sub-key. It is as it was afterwards.
class RootSettings {
  public:
    RootSettings() : m_before(Load()) {}
    ~RootSettings() { Store(m_before); }
    RootSettings(const RootSettings&) = delete;
    RootSettings& operator=(const RootSettings&) = delete;

    static void Store(const PrinterSettings& settings);
    static PrinterSettings Load();

  private:
    PrinterSettings m_before;
};

// The record of an object, read by way of the registry.
PrinterSettings RecordOf(IPdfPrinterPreferences& object);
// Has an object load a record by way of the registry.
void Load(IPdfPrinterPreferences& object, const PrinterSettings& settings);

}  // namespace vmk::test
