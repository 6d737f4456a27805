#pragma once

#include <windows.h>

#include <oaidl.h>

#include "base/com_pointer.h"

namespace vmk {

// The type library in the module's own resources; nothing is registered.
HRESULT LoadOwnTypeLibrary(ComPointer<ITypeLib>& library);

}  // namespace vmk
