#pragma once

#include "base/com_pointer.h"
#include "component/module.h"
#include "vmkctrl.h"

namespace vmk::test {

// The module object of this executable.
CvmkctrlModule& LayerModule();

// A new object of the layer; null when it cannot be had.
ComPointer<IPdfPrinterPreferences> MakePreferences();

}  // namespace vmk::test
