#include <windows.h>

#include <gtest/gtest.h>
#include <oleauto.h>

#include "tests/component/class_registry.h"
#include "tests/support/counters.h"
#include "tests/support/effort.h"
#include "tests/support/growth.h"
#include "tests/support/loaded_module.h"
#include "tests/support/scratch_key.h"

namespace vmk::test {
namespace {

// One life of the DLL in a host: the object by its virtual table and by name, the registry, and away with it.
void LoadUseAndFree(const std::wstring& subKeyName) {
    const LoadedModule module;
    const auto object = module.CreatePreferences();
    const AutomationString subKey(subKeyName);
    EXPECT_EQ(object->InitFromRegistry(AllPages, subKey.get()), S_OK);
    EXPECT_EQ(object->EnablePage(AllPages), S_OK);
    EXPECT_EQ(object->StoreInRegistry(AllPages, subKey.get()), S_OK);
    std::wstring name = L"SetTitle";
    wchar_t* names = name.data();
    DISPID id = DISPID_UNKNOWN;
    EXPECT_EQ(object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id), S_OK);
    const AutomationString title(L"Preferences");
    VARIANT argument{};
    V_VT(&argument) = VT_BSTR;
    V_BSTR(&argument) = title.get();
    DISPPARAMS arguments{.rgvarg = &argument, .rgdispidNamedArgs = nullptr, .cArgs = 1, .cNamedArgs = 0};
    EXPECT_EQ(object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &arguments, nullptr, nullptr,
                             nullptr),
              S_OK);
    EXPECT_EQ(module.CanUnloadNow(), S_FALSE);
}

// The GDI objects that the common controls leave behind each time they are loaded and freed. Some versions of
// them do.
std::size_t GdiObjectsOfCommonControls() {
    constexpr std::size_t kTimes = 100;
    const std::size_t before = CountResources().gdiObjects;
    for (std::size_t time = 0; time < kTimes; ++time) {
        const UniqueLibrary library(LoadLibraryW(L"comctl32.dll"));
        EXPECT_TRUE(library);
    }
    const std::size_t left = CountResources().gdiObjects - before;
    EXPECT_EQ(left % kTimes, 0U);
    return left / kTimes;
}

TEST(Unloading, AgainAndAgainLeavesNothingBehind) {
    const ComApartment apartment;
    const ScratchKey scratch;
    constexpr long kWarmUp = 20;
    constexpr long kEvery = 25;
    const long times = Effort(250, 10'000);
    const std::size_t perCycle = GdiObjectsOfCommonControls();
    Growth growth(times / kEvery);
    for (long time = -kWarmUp; time < times; ++time) {
        LoadUseAndFree(scratch.SubKey());
        ASSERT_EQ(GetModuleHandleW(L"vmkctrl.dll"), nullptr) << time;
        if (time < 0 || (time + 1) % kEvery != 0) continue;
        ResourceCounts after = CountResources();
        after.gdiObjects -= static_cast<std::size_t>(time + 1) * perCycle;
        growth.Note(time + 1, after);
    }
    growth.Print("loads and unloads of the DLL");
    EXPECT_EQ(growth.Found(), "");
}

TEST(Unloading, ComUnloadsTheModuleOnceNothingLives) {
    const ComApartment apartment;
    WipeRegistration();
    ASSERT_EQ(LoadedModule().RegisterServer(), S_OK);
    ComPointer<IPdfPrinterPreferences> object;
    ASSERT_EQ(CoCreateInstance(__uuidof(PdfPrinterPreferences), nullptr, CLSCTX_INPROC_SERVER,
                               __uuidof(IPdfPrinterPreferences), object.PutVoid()),
              S_OK);
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_NE(GetModuleHandleW(L"vmkctrl.dll"), nullptr);
    object.reset();
    CoFreeUnusedLibrariesEx(0, 0);
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_EQ(GetModuleHandleW(L"vmkctrl.dll"), nullptr);
    WipeRegistration();
}

TEST(Unloading, ComKeepsTheModuleWhileItsClassFactoryIsHeld) {
    const ComApartment apartment;
    WipeRegistration();
    ASSERT_EQ(LoadedModule().RegisterServer(), S_OK);
    ComPointer<IClassFactory> factory;
    ASSERT_EQ(CoGetClassObject(__uuidof(PdfPrinterPreferences), CLSCTX_INPROC_SERVER, nullptr,
                               __uuidof(IClassFactory), factory.PutVoid()),
              S_OK);
    CoFreeUnusedLibrariesEx(0, 0);
    CoFreeUnusedLibrariesEx(0, 0);
    if (!GetModuleHandleW(L"vmkctrl.dll")) {
        factory.detach();  // it leads to where the module was
        FAIL() << "the factory has lost its module";
    }
    ComPointer<IPdfPrinterPreferences> object;
    EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(IPdfPrinterPreferences), object.PutVoid()), S_OK);
    object.reset();
    factory.reset();
    CoFreeUnusedLibrariesEx(0, 0);
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_EQ(GetModuleHandleW(L"vmkctrl.dll"), nullptr);
    WipeRegistration();
}

// The handles that this process has more after doing something.
template <typename Action>
std::size_t HandlesLeftBy(Action action) {
    const std::size_t before = CountResources().handles;
    action();
    return CountResources().handles - before;
}

TEST(Unloading, RegisteringLeavesNothingBehind) {
    const ComApartment apartment;
    constexpr int kWarmUp = 5;
    constexpr int kTimes = 50;
    ResourceCounts before;
    for (int time = 0; time < kWarmUp + kTimes; ++time) {
        if (time == kWarmUp) before = CountResources();
        EXPECT_EQ(LoadedModule().RegisterServer(), S_OK);
        EXPECT_EQ(LoadedModule().UnregisterServer(), S_OK);
        ASSERT_EQ(GetModuleHandleW(L"vmkctrl.dll"), nullptr) << time;
    }
    const ResourceCounts after = CountResources();
    EXPECT_EQ(after.heapBlocks, before.heapBlocks);
    EXPECT_EQ(after.heapBytes, before.heapBytes);
    WipeRegistration();

    // Some implementations of these two functions forget to close keys, which is not this component's doing.
    ComPointer<ITypeLib> library;
    std::wstring path = BuiltModulePath();
    ASSERT_EQ(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.put()), S_OK);
    const std::size_t systemsOwn = HandlesLeftBy([&] {
        for (int time = 0; time < kTimes; ++time) {
            RegisterTypeLib(library.get(), path.data(), nullptr);
            UnRegisterTypeLib(kTypeLibraryId, 1, 0, LOCALE_NEUTRAL, SYS_WIN64);
        }
    });
    EXPECT_EQ(after.handles - before.handles, systemsOwn);
    WipeRegistration();
}

}  // namespace
}  // namespace vmk::test
