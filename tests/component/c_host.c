#define COBJMACROS
#include <windows.h>

#include <initguid.h>

#include "vmkctrl.h"

#include "tests/component/c_host.h"

HRESULT StorePaperFromC(IClassFactory* factory, BSTR subKey) {
    IPdfPrinterPreferences* preferences = NULL;
    HRESULT result =
        IClassFactory_CreateInstance(factory, NULL, &IID_IPdfPrinterPreferences, (void**)&preferences);
    if (FAILED(result)) return result;
    result = IPdfPrinterPreferences_StoreInRegistry(preferences, Paper, subKey);
    IPdfPrinterPreferences_Release(preferences);
    return result;
}
