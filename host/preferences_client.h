#pragma once

#include <windows.h>

#include <string>

#include "base/com_pointer.h"
#include "base/library.h"
#include "settings/page_set.h"
#include "vmkctrl.h"

namespace vmk {

// COM on the constructing thread, as a single-threaded apartment.
class Apartment {
  public:
    Apartment();
    ~Apartment();
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
};

// Which component a client talks to.
enum class ComponentSource { BesideProgram, Registered };

// The preferences component as its hosts see it: one object, alive as long as the client. Every method throws
// Failure when the component cannot do what is asked. To be used on the constructing thread.
class PreferencesClient {
  public:
    explicit PreferencesClient(ComponentSource source);

    // Loads every group from the settings key, which is created when it is missing.
    void Load(const std::wstring& key);
    // Stores the groups into the settings key.
    void Store(PageSet groups, const std::wstring& key);
    // Resets the groups, in this object's memory only.
    void UseDefaults(PageSet groups);
    void EnablePages(PageSet pages);
    // Beyond 255 characters the component cuts the title.
    void SetTitle(const std::wstring& title);
    // Runs the modal dialog. True: OK was pressed, false: Cancel.
    bool OpenDialog(LANGID language);

  private:
    // In this order: the object dies before its code is unloaded, and both before COM ends.
    Apartment m_apartment;
    UniqueLibrary m_library;
    ComPointer<IPdfPrinterPreferences> m_preferences;
};

// The path of a file beside the program.
std::wstring PathBesideProgram(const std::wstring& file);
// The path of the component; throws Failure when none is registered.
std::wstring PathOfComponent(ComponentSource source);

// Calls DllRegisterServer or DllUnregisterServer of the component beside the program.
void RegisterComponent();
void UnregisterComponent();

}  // namespace vmk
