#pragma once

#include <windows.h>

#ifdef __cplusplus
extern "C" {
#endif

// A host in C: makes an object, has it store the Paper group under the sub-key and lets go of it.
HRESULT StorePaperFromC(IClassFactory* factory, BSTR subKey);

#ifdef __cplusplus
}
#endif
