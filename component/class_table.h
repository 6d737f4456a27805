#pragma once

#include <windows.h>

#include <span>

#include "component/class_factory.h"

namespace vmk {

// One creatable class of the module.
struct ClassEntry {
    const CLSID* classId;
    ClassFactory* factory;
    UINT registryScript;  // resource of type REGISTRY
};

// Every creatable class.
std::span<const ClassEntry> Classes() noexcept;

// The class object of one of them. CLASS_E_CLASSNOTAVAILABLE for any other class, E_POINTER for a null
// pointer; *object is null after a failure.
HRESULT GetClassObject(REFCLSID classId, REFIID riid, void** object) noexcept;

}  // namespace vmk
