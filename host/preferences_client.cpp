#include "host/preferences_client.h"

#include <oleauto.h>

#include <array>
#include <new>

#include "host/failure.h"
#include "host/stored_settings.h"
#include "host/text.h"

namespace vmk {
namespace {

constexpr const wchar_t* kLibraryName = L"vmkctrl.dll";
constexpr const char* kNeedsRights = "; run this as an administrator";

struct BstrTraits {
    using Value = BSTR;
    static constexpr Value None() noexcept { return nullptr; }
    static void Close(Value value) noexcept { SysFreeString(value); }
};

UniqueHandle<BstrTraits> Bstr(const std::wstring& text) {
    UniqueHandle<BstrTraits> bstr(SysAllocStringLen(text.data(), static_cast<UINT>(text.size())));
    if (!bstr) throw std::bad_alloc();
    return bstr;
}

void Check(HRESULT result, const char* what) {
    if (FAILED(result)) throw Failure(what, result);
}

PdfPrinterDialogPage AsPages(PageSet bits) {
    return static_cast<PdfPrinterDialogPage>(bits);
}

UniqueLibrary LoadComponent() {
    const std::wstring path = PathBesideProgram(kLibraryName);
    UniqueLibrary library(LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    if (!library) {
        throw Failure(Utf8FromWide(path) + " cannot be loaded", HRESULT_FROM_WIN32(GetLastError()));
    }
    return library;
}

template <typename Function>
Function* RequiredEntryPoint(const UniqueLibrary& library, const char* name) {
    auto* const function = EntryPoint<Function>(library.get(), name);
    if (!function) throw Failure(std::string("vmkctrl.dll has no ") + name);
    return function;
}

ComPointer<IPdfPrinterPreferences> CreateFrom(const UniqueLibrary& library) {
    auto* getClassObject =
        RequiredEntryPoint<HRESULT WINAPI(REFCLSID, REFIID, void**)>(library, "DllGetClassObject");
    ComPointer<IClassFactory> factory;
    Check(getClassObject(__uuidof(PdfPrinterPreferences), IID_IClassFactory, factory.PutVoid()),
          "vmkctrl.dll does not offer the preferences component");
    ComPointer<IPdfPrinterPreferences> preferences;
    Check(factory->CreateInstance(nullptr, __uuidof(IPdfPrinterPreferences), preferences.PutVoid()),
          "the preferences component cannot be created");
    return preferences;
}

ComPointer<IPdfPrinterPreferences> CreateRegistered() {
    ComPointer<IPdfPrinterPreferences> preferences;
    Check(CoCreateInstance(__uuidof(PdfPrinterPreferences), nullptr, CLSCTX_INPROC_SERVER,
                           __uuidof(IPdfPrinterPreferences), preferences.PutVoid()),
          "the registered preferences component cannot be created");
    return preferences;
}

// The component itself is silent about a key that it cannot open.
void RequireKey(const std::wstring& key) {
    if (!SettingsKeyIsThere(key)) throw Failure(NameOfSettingsKey(key) + " cannot be opened or created");
}

void CallEntryPoint(const char* name, const char* what) {
    const Apartment apartment;
    const UniqueLibrary library = LoadComponent();
    const HRESULT result = RequiredEntryPoint<HRESULT WINAPI()>(library, name)();
    if (result == E_ACCESSDENIED) throw Failure(std::string(what) + kNeedsRights, result);
    Check(result, what);
}

// Empty when there is none.
std::wstring RegisteredPath() {
    std::array<wchar_t, 39> clsid{};
    StringFromGUID2(__uuidof(PdfPrinterPreferences), clsid.data(), static_cast<int>(clsid.size()));
    const std::wstring key = std::wstring(L"CLSID\\") + clsid.data() + L"\\InprocServer32";
    std::array<wchar_t, 1024> path{};
    DWORD size = sizeof path;
    const LSTATUS status =
        RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, path.data(), &size);
    return status == ERROR_SUCCESS ? path.data() : L"";
}

}  // namespace

Apartment::Apartment() {
    Check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE),
          "COM cannot be started");
}

Apartment::~Apartment() {
    CoUninitialize();
}

PreferencesClient::PreferencesClient(ComponentSource source) {
    if (source == ComponentSource::Registered) {
        m_preferences = CreateRegistered();
        return;
    }
    m_library = LoadComponent();
    m_preferences = CreateFrom(m_library);
}

void PreferencesClient::Load(const std::wstring& key) {
    Check(m_preferences->InitFromRegistry(AllPages, Bstr(key).get()), "the settings cannot be loaded");
    RequireKey(key);
}

void PreferencesClient::Store(PageSet groups, const std::wstring& key) {
    Check(m_preferences->StoreInRegistry(AsPages(groups), Bstr(key).get()), "the settings cannot be stored");
    RequireKey(key);
}

void PreferencesClient::UseDefaults(PageSet groups) {
    Check(m_preferences->UseDefaultValues(AsPages(groups)), "the settings cannot be reset");
}

void PreferencesClient::EnablePages(PageSet pages) {
    Check(m_preferences->EnablePage(AsPages(pages)), "the pages cannot be enabled");
}

void PreferencesClient::SetTitle(const std::wstring& title) {
    Check(m_preferences->SetTitle(Bstr(title).get()), "the title cannot be set");
}

bool PreferencesClient::OpenDialog(LANGID language) {
    LONG exitCode = -1;
    SetLastError(ERROR_SUCCESS);
    Check(m_preferences->OpenDialog(language, &exitCode), "the preferences dialog cannot be opened");
    if (exitCode == IDOK) return true;
    if (exitCode == IDCANCEL) return false;
    const DWORD error = GetLastError();
    constexpr const char* kWhat = "the preferences dialog cannot be opened; is there a display?";
    if (error == ERROR_SUCCESS) throw Failure(kWhat);
    throw Failure(kWhat, HRESULT_FROM_WIN32(error));
}

void RegisterComponent() {
    CallEntryPoint("DllRegisterServer", "vmkctrl.dll cannot be registered");
}

void UnregisterComponent() {
    if (RegisteredPath().empty())
        throw Failure("the preferences component is not registered; there is nothing to take back");
    CallEntryPoint("DllUnregisterServer", "vmkctrl.dll cannot be unregistered");
}

std::wstring PathBesideProgram(const std::wstring& file) {
    std::wstring path = PathOf(nullptr);
    path.resize(path.find_last_of(L'\\') + 1);
    return path + file;
}

std::wstring PathOfComponent(ComponentSource source) {
    if (source == ComponentSource::BesideProgram) return PathBesideProgram(kLibraryName);
    std::wstring path = RegisteredPath();
    if (path.empty()) throw Failure("the preferences component is not registered; vmkprefs register does it");
    return path;
}

}  // namespace vmk
