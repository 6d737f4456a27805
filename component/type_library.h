#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

#include "framework/com_pointer.h"

namespace vmk {

// Full path of the file that this code was loaded from; empty when the system does not tell.
std::wstring ModulePath();

// The type library in the module's own resources; nothing is registered.
HRESULT LoadOwnTypeLibrary(ComPointer<ITypeLib>& library);

}  // namespace vmk
