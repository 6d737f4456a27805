#include "tests/component/layer_module.h"

#include "component/preferences.h"

namespace vmk::test {
namespace {

// Made before any test runs, as in the DLL.
CvmkctrlModule theModule;

}  // namespace

CvmkctrlModule& LayerModule() {
    return theModule;
}

ComPointer<IPdfPrinterPreferences> MakePreferences() {
    ComPointer<IPdfPrinterPreferences> made;
    CPdfPrinterPreferences::Create(__uuidof(IPdfPrinterPreferences), made.PutVoid());
    return made;
}

}  // namespace vmk::test
