#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "tests/component/class_registry.h"
#include "tests/support/counters.h"
#include "tests/support/import_faults.h"
#include "tests/support/loaded_module.h"

namespace vmk::test {
namespace {

const std::wstring kAppIdKey = L"AppID\\{AA78F3FC-E173-4199-8320-1B972FB8A3C1}";
const std::wstring kClassKey = L"CLSID\\{2EE01CFA-139F-431E-BB1D-5E56B4DCEC18}";
const std::wstring kInterfaceKey = L"Interface\\{FA1B9B7A-AA93-48A6-9918-60E8B1F53B1C}";
const std::wstring kLibraryKey = L"TypeLib\\{6FFF7E87-F6AE-4A4A-A655-F7486F621DA1}";
const std::wstring kName = L"vmkctrl.PdfPrinterPreferences";
const std::wstring kClassId = L"{2EE01CFA-139F-431E-BB1D-5E56B4DCEC18}";
const std::wstring kLibraryId = L"{6FFF7E87-F6AE-4A4A-A655-F7486F621DA1}";
const std::wstring kAppId = L"{AA78F3FC-E173-4199-8320-1B972FB8A3C1}";

// What script 101 writes.
RegistryContent ApplicationEntries() {
    return {
        {kAppIdKey, L""},
        {kAppIdKey + L"|", L"vmkctrl"},
        {L"AppID\\vmkctrl.DLL", L""},
        {L"AppID\\vmkctrl.DLL|AppID", kAppId},
    };
}

// What script 102 writes.
RegistryContent ClassEntries(const std::wstring& path) {
    return {
        {kClassKey, L""},
        {kClassKey + L"|", L"PdfPrinterPreferences Class"},
        {kClassKey + L"|AppID", kAppId},
        {kClassKey + L"\\InprocServer32", L""},
        {kClassKey + L"\\InprocServer32|", path},
        {kClassKey + L"\\InprocServer32|ThreadingModel", L"Apartment"},
        {kClassKey + L"\\ProgID", L""},
        {kClassKey + L"\\ProgID|", kName + L".1"},
        {kClassKey + L"\\Programmable", L""},
        {kClassKey + L"\\TypeLib", L""},
        {kClassKey + L"\\TypeLib|", kLibraryId},
        {kClassKey + L"\\VersionIndependentProgID", L""},
        {kClassKey + L"\\VersionIndependentProgID|", kName},
        {kName, L""},
        {kName + L"|", L"PdfPrinterPreferences Class"},
        {kName + L"\\CLSID", L""},
        {kName + L"\\CLSID|", kClassId},
        {kName + L"\\CurVer", L""},
        {kName + L"\\CurVer|", kName + L".1"},
        {kName + L".1", L""},
        {kName + L".1|", L"PdfPrinterPreferences Class"},
        {kName + L".1\\CLSID", L""},
        {kName + L".1\\CLSID|", kClassId},
    };
}

// What registering the type library writes, as far as this component decides it.
RegistryContent LibraryEntries(const std::wstring& path) {
    return {
        {kLibraryKey + L"\\1.0|", L"vmkctrl 1.0 Type Library"}, {kLibraryKey + L"\\1.0\\0\\win64|", path},
        {kInterfaceKey + L"|", L"IPdfPrinterPreferences"},      {kInterfaceKey + L"\\TypeLib|", kLibraryId},
        {kInterfaceKey + L"\\TypeLib|Version", L"1.0"},
    };
}

void ExpectRegistered(const std::wstring& path) {
    RegistryContent found = ReadRegistration();
    for (const auto& [name, value] : LibraryEntries(path)) EXPECT_EQ(found[name], value);
    std::erase_if(found, [](const auto& entry) {
        return entry.first.starts_with(kLibraryKey) || entry.first.starts_with(kInterfaceKey);
    });
    RegistryContent expected = ApplicationEntries();
    expected.merge(ClassEntries(path));
    EXPECT_EQ(found, expected);
}

class Registration : public testing::Test {
  protected:
    Registration() { WipeRegistration(); }
    ~Registration() override { WipeRegistration(); }

    ComApartment m_apartment;
};

TEST_F(Registration, WritesApplicationClassAndTypeLibrary) {
    const LoadedModule module;
    EXPECT_EQ(module.RegisterServer(), S_OK);
    ExpectRegistered(BuiltModulePath());
}

TEST_F(Registration, TwiceGivesTheSameContent) {
    const LoadedModule module;
    EXPECT_EQ(module.RegisterServer(), S_OK);
    const RegistryContent once = ReadRegistration();
    EXPECT_EQ(module.RegisterServer(), S_OK);
    EXPECT_EQ(ReadRegistration(), once);
}

TEST_F(Registration, ReplacesWhatAnEarlierVersionLeftInTheClassKey) {
    RegSetKeyValueW(HKEY_CLASSES_ROOT, (kClassKey + L"\\LocalServer32").c_str(), nullptr, REG_SZ, L"x", 4);
    RegSetKeyValueW(HKEY_CLASSES_ROOT, kClassKey.c_str(), L"Old", REG_SZ, L"x", 4);
    const LoadedModule module;
    EXPECT_EQ(module.RegisterServer(), S_OK);
    ExpectRegistered(BuiltModulePath());
}

TEST_F(Registration, IsUndoneButForTheApplication) {
    const LoadedModule module;
    ASSERT_EQ(module.RegisterServer(), S_OK);
    EXPECT_EQ(module.UnregisterServer(), S_OK);
    RegistryContent left = ReadRegistration();
    // The automation library may keep an empty key for the library.
    left.erase(kLibraryKey);
    EXPECT_EQ(left, ApplicationEntries());
    EXPECT_FALSE(ReadTree(HKEY_CLASSES_ROOT, L"CLSID").empty());
}

TEST_F(Registration, KeepsTheThreadsLocale) {
    const LoadedModule module;
    const LCID before = GetThreadLocale();
    const LCID german = MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT);
    ASSERT_TRUE(SetThreadLocale(german));
    EXPECT_EQ(module.RegisterServer(), S_OK);
    EXPECT_EQ(GetThreadLocale(), german);
    EXPECT_EQ(module.UnregisterServer(), S_OK);
    EXPECT_EQ(GetThreadLocale(), german);
    SetThreadLocale(before);
}

TEST_F(Registration, LeavesNothingThatKeepsTheModuleLoaded) {
    const LoadedModule module;
    EXPECT_EQ(module.RegisterServer(), S_OK);
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
    EXPECT_EQ(module.UnregisterServer(), S_OK);
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}

TEST_F(Registration, LeavesNoMemoryBehind) {
    const LoadedModule module;
    const auto registerAndUndo = [&module] {
        EXPECT_EQ(module.RegisterServer(), S_OK);
        EXPECT_EQ(module.UnregisterServer(), S_OK);
    };
    registerAndUndo();
    const std::size_t before = CountResources().heapBlocks;
    for (int i = 0; i < 5; ++i) registerAndUndo();
    EXPECT_EQ(CountResources().heapBlocks, before);
}

TEST_F(Registration, AndItsUndoingSayWhereTheTypeLibraryCannotBeRead) {
    const LoadedModule module;
    ImportFaults faults(module.get());
    faults.Fail({.function = "LoadTypeLibEx", .lasting = true});
    EXPECT_EQ(module.RegisterServer(), TYPE_E_CANTLOADLIBRARY);
    EXPECT_EQ(module.UnregisterServer(), TYPE_E_CANTLOADLIBRARY);
    EXPECT_TRUE(faults.HaveFailed());
}

TEST_F(Registration, LetsHostsCreateTheObjectByIdAndByName) {
    const LoadedModule module;
    ASSERT_EQ(module.RegisterServer(), S_OK);
    CLSID classId{};
    EXPECT_EQ(CLSIDFromProgID(L"vmkctrl.PdfPrinterPreferences", &classId), S_OK);
    EXPECT_EQ(classId, __uuidof(PdfPrinterPreferences));
    EXPECT_EQ(CLSIDFromProgID(L"vmkctrl.PdfPrinterPreferences.1", &classId), S_OK);
    EXPECT_EQ(classId, __uuidof(PdfPrinterPreferences));
    ComPointer<IPdfPrinterPreferences> object;
    EXPECT_EQ(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IPdfPrinterPreferences),
                               object.PutVoid()),
              S_OK);
    EXPECT_EQ(module.CanUnloadNow(), S_FALSE);
}

TEST_F(Registration, LetsHostsLoadTheTypeLibrary) {
    const LoadedModule module;
    ASSERT_EQ(module.RegisterServer(), S_OK);
    for (const LCID locale : {LCID{LOCALE_NEUTRAL}, LCID{0x409}, LCID{0x411}}) {
        ComPointer<ITypeLib> library;
        EXPECT_EQ(LoadRegTypeLib(kTypeLibraryId, 1, 0, locale, library.put()), S_OK);
    }
}

TEST_F(Registration, WorksWithTheSystemsRegistrationTool) {
    const auto run = [](const std::wstring& options) {
        std::wstring command = L"regsvr32 /s " + options + L" \"" + BuiltModulePath() + L"\"";
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION process{};
        if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                            &process))
            return DWORD{0xFFFF};
        WaitForSingleObject(process.hProcess, INFINITE);
        DWORD code = 0;
        GetExitCodeProcess(process.hProcess, &code);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
        return code;
    };
    EXPECT_EQ(run(L""), 0U);
    ExpectRegistered(BuiltModulePath());
    EXPECT_EQ(run(L"/u"), 0U);
    EXPECT_TRUE(ReadTree(HKEY_CLASSES_ROOT, kClassKey).empty());
}

// The DLL in another folder.
class CopiedModule {
  public:
    explicit CopiedModule(const std::wstring& folderName) : m_folder(TestFolder() + L"\\" + folderName) {
        CreateDirectoryW(m_folder.c_str(), nullptr);
        CopyFileW(BuiltModulePath().c_str(), Path().c_str(), FALSE);
    }
    ~CopiedModule() {
        DeleteFileW(Path().c_str());
        RemoveDirectoryW(m_folder.c_str());
    }
    CopiedModule(const CopiedModule&) = delete;
    CopiedModule& operator=(const CopiedModule&) = delete;
    std::wstring Path() const { return m_folder + L"\\vmkctrl.dll"; }

  private:
    std::wstring m_folder;
};

struct NamedFolder {
    const char* kind;
    const wchar_t* name;
};

void PrintTo(const NamedFolder& folder, std::ostream* stream) {
    *stream << folder.kind;
}

class RegistrationFromFolder : public Registration, public testing::WithParamInterface<NamedFolder> {};

TEST_P(RegistrationFromFolder, WritesThePathAsItIs) {
    const CopiedModule copy(GetParam().name);
    const LoadedModule module(copy.Path());
    EXPECT_EQ(module.RegisterServer(), S_OK);
    ExpectRegistered(copy.Path());
    EXPECT_EQ(module.UnregisterServer(), S_OK);
    EXPECT_TRUE(ReadTree(HKEY_CLASSES_ROOT, kClassKey).empty());
}

constexpr std::array kFolders = {
    NamedFolder{.kind = "Spaces", .name = L"with spaces"},
    NamedFolder{.kind = "Quote", .name = L"Orrin's"},
    NamedFolder{.kind = "Quotes", .name = L"'quoted'"},
    NamedFolder{.kind = "NonAnsi", .name = L"\u5370\u5237 \u03A9\u0416"},
    NamedFolder{.kind = "Percent", .name = L"100% %MODULE%"},
    NamedFolder{.kind = "ScriptWords", .name = L"{braces} = s"},
};

std::string KindOf(const testing::TestParamInfo<NamedFolder>& each) {
    return each.param.kind;
}

INSTANTIATE_TEST_SUITE_P(OfAnyName, RegistrationFromFolder, testing::ValuesIn(kFolders), KindOf);

DWORD WINAPI RegisterWithoutCom(void* module) noexcept {
    const LCID german = MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT);
    SetThreadLocale(german);
    const HRESULT result = static_cast<const LoadedModule*>(module)->RegisterServer();
    return GetThreadLocale() == german ? static_cast<DWORD>(result) : static_cast<DWORD>(E_UNEXPECTED);
}

TEST(RegistrationFailure, IsTheFirstOneAndKeepsTheThreadsLocale) {
    WipeRegistration();
    LoadedModule module;
    HANDLE thread = CreateThread(nullptr, 0, RegisterWithoutCom, &module, 0, nullptr);
    WaitForSingleObject(thread, INFINITE);
    DWORD result = 0;
    GetExitCodeThread(thread, &result);
    CloseHandle(thread);
    EXPECT_EQ(static_cast<HRESULT>(result), CO_E_NOTINITIALIZED);
    EXPECT_TRUE(ReadRegistration().empty());
}

}  // namespace
}  // namespace vmk::test
