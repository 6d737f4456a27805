#include <windows.h>

#include <gtest/gtest.h>
#include <oaidl.h>
#include <ocidl.h>

#include <array>
#include <atomic>

#include "tests/component/c_host.h"
#include "tests/support/loaded_module.h"
#include "tests/support/scratch_key.h"

namespace vmk::test {
namespace {

class ComContract : public testing::Test {
  protected:
    ComApartment m_apartment;
    LoadedModule m_module;
};

// Stands in for an outer object; nobody may call it.
class Outer final : public IUnknown {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) noexcept override { return E_UNEXPECTED; }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return 2; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return 1; }
};

constexpr std::array kAnswered = {&__uuidof(IUnknown), &__uuidof(IDispatch),
                                  &__uuidof(IPdfPrinterPreferences), &__uuidof(ISupportErrorInfo)};
constexpr std::array kNotAnswered = {&__uuidof(IClassFactory), &__uuidof(IPersist), &__uuidof(IMarshal),
                                     &__uuidof(IProvideClassInfo), &__uuidof(IErrorInfo)};

TEST_F(ComContract, AnObjectAnswersFourInterfacesAndNoOther) {
    const auto object = m_module.CreatePreferences();
    ASSERT_TRUE(object);
    for (const IID* id : kAnswered) {
        ComPointer<IUnknown> found;
        EXPECT_EQ(object->QueryInterface(*id, found.PutVoid()), S_OK);
        EXPECT_TRUE(found);
    }
    for (const IID* id : kNotAnswered) {
        auto* found = reinterpret_cast<void*>(1);
        EXPECT_EQ(object->QueryInterface(*id, &found), E_NOINTERFACE);
        EXPECT_EQ(found, nullptr);
    }
    EXPECT_EQ(object->QueryInterface(__uuidof(IUnknown), nullptr), E_POINTER);
}

TEST_F(ComContract, EveryInterfaceLeadsToEveryOtherAndToOneIdentity) {
    const auto object = m_module.CreatePreferences();
    ComPointer<IUnknown> identity;
    ASSERT_EQ(object->QueryInterface(__uuidof(IUnknown), identity.PutVoid()), S_OK);
    for (const IID* from : kAnswered) {
        ComPointer<IUnknown> start;
        ASSERT_EQ(object->QueryInterface(*from, start.PutVoid()), S_OK);
        for (const IID* to : kAnswered) {
            ComPointer<IUnknown> found;
            EXPECT_EQ(start->QueryInterface(*to, found.PutVoid()), S_OK);
        }
        ComPointer<IUnknown> same;
        ASSERT_EQ(start->QueryInterface(__uuidof(IUnknown), same.PutVoid()), S_OK);
        EXPECT_EQ(same.get(), identity.get());
    }
}

TEST_F(ComContract, ReferencesAreCountedFromOne) {
    auto object = m_module.CreatePreferences();
    EXPECT_EQ(object->AddRef(), 2U);
    EXPECT_EQ(object->AddRef(), 3U);
    EXPECT_EQ(object->Release(), 2U);
    EXPECT_EQ(object->Release(), 1U);
    EXPECT_EQ(object.detach()->Release(), 0U);
}

TEST_F(ComContract, ErrorInformationIsSupportedForTheComponentsInterfaceOnly) {
    const auto object = m_module.CreatePreferences();
    ComPointer<ISupportErrorInfo> support;
    ASSERT_EQ(object->QueryInterface(__uuidof(ISupportErrorInfo), support.PutVoid()), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(IPdfPrinterPreferences)), S_OK);
    for (const IID* id :
         {&__uuidof(IUnknown), &__uuidof(IDispatch), &__uuidof(ISupportErrorInfo), &GUID_NULL})
        EXPECT_EQ(support->InterfaceSupportsErrorInfo(*id), S_FALSE);
}

TEST_F(ComContract, ThereIsOneClassFactoryForTheProcess) {
    const auto first = m_module.Factory();
    const auto second = m_module.Factory();
    ASSERT_TRUE(first);
    EXPECT_EQ(first.get(), second.get());
    ComPointer<IUnknown> unknown;
    EXPECT_EQ(m_module.GetClassObject(__uuidof(PdfPrinterPreferences), __uuidof(IUnknown), unknown.PutVoid()),
              S_OK);
    ComPointer<IUnknown> same;
    EXPECT_EQ(first->QueryInterface(__uuidof(IUnknown), same.PutVoid()), S_OK);
    EXPECT_EQ(unknown.get(), same.get());
}

TEST_F(ComContract, TheFactoryAnswersItsOwnInterfacesOnly) {
    const auto factory = m_module.Factory();
    auto* found = reinterpret_cast<void*>(1);
    EXPECT_EQ(factory->QueryInterface(__uuidof(IDispatch), &found), E_NOINTERFACE);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(factory->QueryInterface(__uuidof(IClassFactory), nullptr), E_POINTER);
    found = reinterpret_cast<void*>(1);
    EXPECT_EQ(m_module.GetClassObject(__uuidof(PdfPrinterPreferences), __uuidof(IDispatch), &found),
              E_NOINTERFACE);
    EXPECT_EQ(found, nullptr);
    const ULONG more = factory->AddRef();
    EXPECT_EQ(factory->Release(), more - 1);
}

TEST_F(ComContract, AnotherClassIsNotAvailable) {
    for (const GUID* id : {&GUID_NULL, &__uuidof(IPdfPrinterPreferences), &kTypeLibraryId}) {
        auto* found = reinterpret_cast<void*>(1);
        EXPECT_EQ(m_module.GetClassObject(*id, __uuidof(IClassFactory), &found), CLASS_E_CLASSNOTAVAILABLE);
        EXPECT_EQ(found, nullptr);
    }
    EXPECT_EQ(m_module.GetClassObject(__uuidof(PdfPrinterPreferences), __uuidof(IClassFactory), nullptr),
              E_POINTER);
}

TEST_F(ComContract, AggregationIsRefusedWithANullPointer) {
    Outer outer;
    auto* found = reinterpret_cast<void*>(1);
    EXPECT_EQ(m_module.Factory()->CreateInstance(&outer, __uuidof(IUnknown), &found), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(m_module.Factory()->CreateInstance(&outer, __uuidof(IUnknown), nullptr), E_POINTER);
    EXPECT_EQ(m_module.CanUnloadNow(), S_OK);
}

TEST_F(ComContract, ANullPointerForTheNewObjectIsRefused) {
    EXPECT_EQ(m_module.Factory()->CreateInstance(nullptr, __uuidof(IUnknown), nullptr), E_POINTER);
    EXPECT_EQ(m_module.CanUnloadNow(), S_OK);
}

TEST_F(ComContract, AnObjectWithoutTheWantedInterfaceIsNotKept) {
    auto* found = reinterpret_cast<void*>(1);
    EXPECT_EQ(m_module.Factory()->CreateInstance(nullptr, __uuidof(IClassFactory), &found), E_NOINTERFACE);
    EXPECT_EQ(found, nullptr);
    EXPECT_EQ(m_module.CanUnloadNow(), S_OK);
}

TEST_F(ComContract, TheModuleStaysLoadedWhileAnObjectLives) {
    EXPECT_EQ(m_module.CanUnloadNow(), S_OK);
    auto first = m_module.CreatePreferences();
    auto second = m_module.CreatePreferences();
    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ(m_module.CanUnloadNow(), S_FALSE);
    first.reset();
    EXPECT_EQ(m_module.CanUnloadNow(), S_FALSE);
    second.reset();
    EXPECT_EQ(m_module.CanUnloadNow(), S_OK);
}

TEST_F(ComContract, TheModuleStaysLoadedWhileTheFactoryIsHeld) {
    auto first = m_module.Factory();
    auto second = m_module.Factory();
    EXPECT_EQ(m_module.CanUnloadNow(), S_FALSE);
    first.reset();
    EXPECT_EQ(m_module.CanUnloadNow(), S_FALSE);
    second.reset();
    EXPECT_EQ(m_module.CanUnloadNow(), S_OK);
    // What asks in vain holds nothing.
    void* found = nullptr;
    EXPECT_EQ(m_module.GetClassObject(__uuidof(PdfPrinterPreferences), __uuidof(IDispatch), &found),
              E_NOINTERFACE);
    EXPECT_EQ(m_module.CanUnloadNow(), S_OK);
}

TEST_F(ComContract, TheModuleStaysLoadedWhileTheServerIsLocked) {
    EXPECT_EQ(m_module.Factory()->LockServer(TRUE), S_OK);
    EXPECT_EQ(m_module.Factory()->LockServer(TRUE), S_OK);
    EXPECT_EQ(m_module.CanUnloadNow(), S_FALSE);
    EXPECT_EQ(m_module.Factory()->LockServer(FALSE), S_OK);
    EXPECT_EQ(m_module.CanUnloadNow(), S_FALSE);
    EXPECT_EQ(m_module.Factory()->LockServer(FALSE), S_OK);
    EXPECT_EQ(m_module.CanUnloadNow(), S_OK);
}

constexpr int kRounds = 20000;

DWORD WINAPI LockAndUnlock(void* factory) noexcept {
    for (int round = 0; round < kRounds; ++round) {
        static_cast<IClassFactory*>(factory)->LockServer(TRUE);
        static_cast<IClassFactory*>(factory)->LockServer(FALSE);
    }
    return 0;
}

DWORD WINAPI HoldAndLetGo(void* factory) noexcept {
    for (int round = 0; round < kRounds; ++round) {
        static_cast<IClassFactory*>(factory)->AddRef();
        static_cast<IClassFactory*>(factory)->Release();
    }
    return 0;
}

// Some threads that do the same, until they are done.
void RunOnSeveralThreads(LPTHREAD_START_ROUTINE action, void* parameter) {
    std::array<HANDLE, 4> threads{};
    for (HANDLE& thread : threads) thread = CreateThread(nullptr, 0, action, parameter, 0, nullptr);
    WaitForMultipleObjects(static_cast<DWORD>(threads.size()), threads.data(), TRUE, INFINITE);
    for (HANDLE thread : threads) CloseHandle(thread);
}

TEST_F(ComContract, LocksFromSeveralThreadsAreNotLost) {
    RunOnSeveralThreads(LockAndUnlock, m_module.Factory().get());
    EXPECT_EQ(m_module.CanUnloadNow(), S_OK);
}

TEST_F(ComContract, ReferencesToTheFactoryFromSeveralThreadsAreNotLost) {
    auto factory = m_module.Factory();
    RunOnSeveralThreads(HoldAndLetGo, factory.get());
    EXPECT_EQ(m_module.CanUnloadNow(), S_FALSE);
    factory.reset();
    EXPECT_EQ(m_module.CanUnloadNow(), S_OK);
}

struct Watch {
    LoadedModule& module;
    std::atomic<bool> over = false;
    std::atomic<bool> lookedUnused = false;
};

DWORD WINAPI AskWhetherItCanUnload(void* parameter) noexcept {
    auto& watch = *static_cast<Watch*>(parameter);
    while (!watch.over)
        if (watch.module.CanUnloadNow() == S_OK) watch.lookedUnused = true;
    return 0;
}

// References come and go at the limit where the first one locks the module and the last one unlocks it.
TEST_F(ComContract, TheModuleNeverLooksUnusedWhileAnObjectLives) {
    const auto object = m_module.CreatePreferences();
    IClassFactory* const factory = m_module.Factory().get();  // a static of the module
    Watch watch{.module = m_module};
    HANDLE watcher = CreateThread(nullptr, 0, AskWhetherItCanUnload, &watch, 0, nullptr);
    RunOnSeveralThreads(HoldAndLetGo, factory);
    watch.over = true;
    WaitForSingleObject(watcher, INFINITE);
    CloseHandle(watcher);
    EXPECT_FALSE(watch.lookedUnused);
}

PdfPrinterDialogPage Pages(LONG bits) {
    return static_cast<PdfPrinterDialogPage>(bits);
}

TEST_F(ComContract, OrdinaryFailuresAreSilent) {
    const auto object = m_module.CreatePreferences();
    const PdfPrinterDialogPage unknownBits = Pages(0x7FFE0000);
    EXPECT_EQ(object->EnablePage(unknownBits), S_OK);
    EXPECT_EQ(object->DisablePage(unknownBits), S_OK);
    EXPECT_EQ(object->UseDefaultValues(unknownBits), S_OK);
    EXPECT_EQ(object->SetTitle(nullptr), S_OK);
    EXPECT_EQ(object->SetTitle(AutomationString(std::wstring(300, L'x')).get()), S_OK);
    // No key can have so long a name.
    const AutomationString tooLong(std::wstring(5000, L'k'));
    EXPECT_EQ(object->InitFromRegistry(AllPages, tooLong.get()), S_OK);
    EXPECT_EQ(object->StoreInRegistry(AllPages, tooLong.get()), S_OK);
}

TEST_F(ComContract, AHostInCUsesTheGeneratedHeader) {
    const ScratchKey scratch;
    const AutomationString subKey(scratch.SubKey());
    EXPECT_EQ(StorePaperFromC(m_module.Factory().get(), subKey.get()), S_OK);
    EXPECT_EQ(scratch.Number("Paper.Nup"), 1);
    EXPECT_FALSE(scratch.Number("Compression.Graphics"));
}

}  // namespace
}  // namespace vmk::test
