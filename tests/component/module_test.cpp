#include "component/module.h"

#include <gtest/gtest.h>

#include "component/registration.h"
#include "component/type_library.h"
#include "tests/component/class_registry.h"
#include "tests/component/fake_registrar.h"
#include "tests/component/layer_module.h"
#include "tests/support/loaded_module.h"

namespace vmk::test {
namespace {

class ModuleObject : public testing::Test {
  protected:
    ModuleObject() { WipeRegistration(); }
    ~ModuleObject() override {
        LayerModule().ReleaseRegistrar();
        WipeRegistration();
    }

    ComApartment m_apartment;
    FakeRegistrar m_registrar;
    const LONG m_idleReferences = m_registrar.References();
};

TEST_F(ModuleObject, LockAndUnlockReturnTheNewCount) {
    Module& module = LayerModule();
    EXPECT_EQ(module.GetLockCount(), 0);
    EXPECT_EQ(module.Lock(), 1);
    EXPECT_EQ(module.Lock(), 2);
    EXPECT_EQ(module.GetLockCount(), 2);
    EXPECT_EQ(module.Unlock(), 1);
    EXPECT_EQ(module.Unlock(), 0);
}

TEST_F(ModuleObject, MakesTheRegistrarOnceAndHandsOutAReferenceEachTime) {
    ComPointer<IRegistrar> first;
    ComPointer<IRegistrar> second;
    EXPECT_EQ(LayerModule().GetRegistrar(first.put()), S_OK);
    EXPECT_EQ(LayerModule().GetRegistrar(second.put()), S_OK);
    EXPECT_EQ(first.get(), second.get());
    EXPECT_EQ(m_registrar.TimesMade(), 1);
    EXPECT_EQ(m_registrar.References(), m_idleReferences + 3);
    LayerModule().ReleaseRegistrar();
    EXPECT_EQ(m_registrar.References(), m_idleReferences + 2);
}

TEST_F(ModuleObject, RefusesANullPointerForTheRegistrar) {
    EXPECT_EQ(LayerModule().GetRegistrar(nullptr), E_POINTER);
    EXPECT_EQ(LayerModule().AddCommonReplacements(nullptr), E_POINTER);
    EXPECT_EQ(m_registrar.TimesMade(), 0);
}

TEST_F(ModuleObject, RegistersTheApplicationAndThenTheClass) {
    EXPECT_EQ(RegisterModule(LayerModule()), S_OK);
    ASSERT_EQ(m_registrar.Runs().size(), 2U);
    for (const FakeRegistrar::Run& run : m_registrar.Runs()) {
        EXPECT_EQ(run.verb, L"register");
        EXPECT_EQ(run.file, Module::Get().Path());
        EXPECT_EQ(run.type, L"REGISTRY");
        EXPECT_EQ(run.replacements.at(L"APPID"), L"{AA78F3FC-E173-4199-8320-1B972FB8A3C1}");
    }
    EXPECT_EQ(m_registrar.Runs()[0].script, 101U);
    EXPECT_EQ(m_registrar.Runs()[1].script, 102U);
    EXPECT_EQ(m_registrar.Runs()[1].replacements.at(L"MODULE"), Module::Get().Path());
    ComPointer<ITypeLib> library;
    EXPECT_EQ(LoadRegTypeLib(kTypeLibraryId, 1, 0, 0, library.put()), S_OK);
}

TEST_F(ModuleObject, UnregistersTheClassOnly) {
    ASSERT_EQ(RegisterModule(LayerModule()), S_OK);
    EXPECT_EQ(UnregisterModule(LayerModule()), S_OK);
    ASSERT_EQ(m_registrar.Runs().size(), 3U);
    EXPECT_EQ(m_registrar.Runs()[2].verb, L"unregister");
    EXPECT_EQ(m_registrar.Runs()[2].script, 102U);
    ComPointer<ITypeLib> library;
    EXPECT_EQ(LoadRegTypeLib(kTypeLibraryId, 1, 0, 0, library.put()), TYPE_E_LIBNOTREGISTERED);
}

TEST_F(ModuleObject, KeepsNoRegistrarOnceRegistered) {
    EXPECT_EQ(RegisterModule(LayerModule()), S_OK);
    EXPECT_EQ(m_registrar.TimesMade(), 1);
    EXPECT_EQ(m_registrar.References(), m_idleReferences);
    EXPECT_EQ(UnregisterModule(LayerModule()), S_OK);
    EXPECT_EQ(m_registrar.TimesMade(), 2);
    EXPECT_EQ(m_registrar.References(), m_idleReferences);
}

TEST_F(ModuleObject, RunsTheScriptsUnderTheSystemsLocale) {
    const LCID before = GetThreadLocale();
    const LCID german = MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT);
    ASSERT_NE(GetSystemDefaultLCID(), german);
    SetThreadLocale(german);
    EXPECT_EQ(RegisterModule(LayerModule()), S_OK);
    EXPECT_EQ(UnregisterModule(LayerModule()), S_OK);
    EXPECT_EQ(GetThreadLocale(), german);
    for (const FakeRegistrar::Run& run : m_registrar.Runs()) EXPECT_EQ(run.locale, GetSystemDefaultLCID());
    SetThreadLocale(before);
}

TEST_F(ModuleObject, AFailingApplicationScriptEndsRegistration) {
    m_registrar.FailAt(101, TYPE_E_REGISTRYACCESS);
    const LCID locale = GetThreadLocale();
    EXPECT_EQ(RegisterModule(LayerModule()), TYPE_E_REGISTRYACCESS);
    EXPECT_EQ(m_registrar.Runs().size(), 1U);
    EXPECT_EQ(GetThreadLocale(), locale);
    EXPECT_EQ(m_registrar.References(), m_idleReferences);
}

TEST_F(ModuleObject, AFailingClassScriptLeavesTheTypeLibraryAlone) {
    m_registrar.FailAt(102, DISP_E_EXCEPTION);
    EXPECT_EQ(RegisterModule(LayerModule()), DISP_E_EXCEPTION);
    EXPECT_EQ(m_registrar.Runs().size(), 2U);
    EXPECT_TRUE(ReadRegistration().empty());
    EXPECT_EQ(UnregisterModule(LayerModule()), DISP_E_EXCEPTION);
}

}  // namespace
}  // namespace vmk::test
