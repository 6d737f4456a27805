#pragma once

#include "settings/printer_settings.h"
#include "tests/support/scratch_key.h"

namespace vmk::test {

// A scratch key that is there from the beginning and that whole records can be stored in.
class ScratchSettings : public ScratchKey {
  public:
    ScratchSettings() { Create(); }

    void Store(const PrinterSettings& settings) const;
    // The record that the key holds.
    PrinterSettings Load() const;
};

}  // namespace vmk::test
