// edit [KEY]: lets the user edit the settings of a key, and stores them on OK.
//
//     x86_64-w64-mingw32-g++ -std=c++20 -municode -static -I FOLDER_OF_VMKCTRL_H edit.cpp -o edit.exe -lole32
//     -loleaut32 cl /std:c++20 /EHsc /I FOLDER_OF_VMKCTRL_H edit.cpp ole32.lib oleaut32.lib

#include <windows.h>

#include <cstdio>
#include <memory>

#include "vmkctrl.h"

namespace {

struct FreeString {
    void operator()(OLECHAR* text) const { SysFreeString(text); }
};
using String = std::unique_ptr<OLECHAR, FreeString>;

struct ReleaseObject {
    void operator()(IUnknown* object) const { object->Release(); }
};
using Preferences = std::unique_ptr<IPdfPrinterPreferences, ReleaseObject>;

int Fail(const char* what, HRESULT result) {
    std::fprintf(stderr, "%s (0x%08lX)\n", what, static_cast<unsigned long>(result));
    return 1;
}

int Edit(BSTR key) {
    IPdfPrinterPreferences* created = nullptr;
    const HRESULT result =
        CoCreateInstance(__uuidof(PdfPrinterPreferences), nullptr, CLSCTX_INPROC_SERVER,
                         __uuidof(IPdfPrinterPreferences), reinterpret_cast<void**>(&created));
    if (FAILED(result)) return Fail("the component cannot be created; is it registered?", result);
    const Preferences preferences(created);

    preferences->InitFromRegistry(AllPages, key);
    preferences->EnablePage(AllPages);
    const String title(SysAllocString(L"Edited by C++"));
    preferences->SetTitle(title.get());
    LONG exitCode = -1;
    const HRESULT opened = preferences->OpenDialog(0, &exitCode);
    if (FAILED(opened)) return Fail("the dialog cannot be opened", opened);
    if (exitCode == IDOK) preferences->StoreInRegistry(AllPages, key);
    std::printf("exit code %ld\n", exitCode);
    return 0;
}

}  // namespace

extern "C" int wmain(int argc, wchar_t** argv) {
    // The object belongs to this thread, which has to be a single-threaded apartment.
    const HRESULT result = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (FAILED(result)) return Fail("COM cannot be initialised", result);
    const String key(SysAllocString(argc > 1 ? argv[1] : L""));
    const int status = Edit(key.get());
    CoUninitialize();
    return status;
}
