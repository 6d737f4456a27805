#include "component/class_table.h"

#include <array>

#include "component/preferences.h"
#include "resources/resource_ids.h"
#include "vmkctrl.h"

namespace vmk {
namespace {

constinit ClassFactory preferencesFactory(&CPdfPrinterPreferences::Create);

constexpr std::array kClasses = {
    ClassEntry{.classId = &__uuidof(PdfPrinterPreferences),
               .factory = &preferencesFactory,
               .registryScript = IDR_REGISTRY_PREFERENCES},
};

}  // namespace

std::span<const ClassEntry> Classes() noexcept {
    return kClasses;
}

HRESULT GetClassObject(REFCLSID classId, REFIID riid, void** object) noexcept {
    if (!object) return E_POINTER;
    *object = nullptr;
    for (const ClassEntry& entry : kClasses)
        if (*entry.classId == classId) return entry.factory->QueryInterface(riid, object);
    return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace vmk
