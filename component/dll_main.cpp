#include <windows.h>

#include <olectl.h>

#include "component/class_table.h"
#include "component/exception_globals.h"
#include "component/module.h"
#include "component/registration.h"

namespace {

vmk::CvmkctrlModule theModule;

}  // namespace

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID) {
    if (reason == DLL_THREAD_DETACH) vmk::ForgetExceptionsOfThisThread();
    return TRUE;
}

STDAPI DllCanUnloadNow() {
    return theModule.GetLockCount() == 0 ? S_OK : S_FALSE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID riid, LPVOID* object) {
    return vmk::GetClassObject(classId, riid, object);
}

STDAPI DllRegisterServer() {
    return vmk::RegisterModule(theModule);
}

STDAPI DllUnregisterServer() {
    return vmk::UnregisterModule(theModule);
}
