#pragma once

#include <windows.h>

#include "component/module.h"

namespace vmk {

// Writes the registry entries of the application, of every class and of the type library, under the system's
// locale. The calling thread must have COM. Returns the first failure; what was written until then stays.
HRESULT RegisterModule(CvmkctrlModule& module) noexcept;

// Removes the entries of every class and of the type library; those of the application stay. Returns the
// first failure.
HRESULT UnregisterModule(CvmkctrlModule& module) noexcept;

}  // namespace vmk
