// edit_with_class [KEY]: does what edit does, with the class of preferences.h.

#include <cstdio>

#include "preferences.h"

extern "C" int wmain(int argc, wchar_t** argv) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    int status = 0;
    try {
        const std::wstring key = argc > 1 ? argv[1] : L"";
        vmkctrl::Preferences preferences;
        preferences.InitFromRegistry(AllPages, key);
        preferences.EnablePage(AllPages);
        preferences.SetTitle(L"Edited by a C++ class");
        const auto answer = preferences.OpenDialog();
        if (answer == vmkctrl::Preferences::Answer::kOk) preferences.StoreInRegistry(AllPages, key);
        std::printf("exit code %ld\n", static_cast<long>(answer));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        status = 1;
    }
    CoUninitialize();
    return status;
}
