#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "resources/ids/security.h"
#include "tests/faults/opening.h"
#include "tests/support/full_use.h"
#include "tests/support/import_faults.h"
#include "tests/support/loaded_module.h"
#include "tests/support/scratch_settings.h"
#include "tests/support/window_search.h"

namespace vmk::test {
namespace {

// A long text has memory of its own; a short one is a part of the record. Of the longest even the form that
// the registry keeps needs memory of its own.
const std::wstring kPassPhrase = L"a pass phrase that nobody else has";
const std::wstring kEndOfLongest = L" open sesame";
const std::wstring kLongest = std::wstring(2000, L'*') + kEndOfLongest;
const std::wstring kPassword = L"Tr0ub4d";
const std::wstring kTitle = L"a title that anybody may see";

// What the memory that the component has given back still holds when its life is over: settings with secrets
// are loaded and shown, changed and applied, stored, reset and replaced.
class GivenBackMemory : public testing::TestWithParam<Ending> {
  protected:
    long BlocksWith(const std::wstring& text) {
        PrinterSettings settings = SettingsInFullUse();
        settings.Security.UserPwd = settings.Security.OwnerPwd = kPassPhrase;
        settings.Security.Digisig.PFXPassword = kLongest;
        settings.Email.SMTP.Password = settings.Overlay.Password = kPassword;
        settings.Info.Title = kTitle;
        const ComApartment apartment;
        const LoadedModule module;
        const ImportFaults faults(module.get());
        ImportFaults::LookFor(text);
        {
            const auto object = module.CreatePreferences();
            Load(*object, settings);
            object->EnablePage(AllPages);
            EXPECT_TRUE(OpenAndEnd(*object, GetParam(), ChangeSecrets).wasShown);
            const ScratchSettings other;
            object->StoreInRegistry(AllPages, AutomationString(other.SubKey()).get());
            object->UseDefaultValues(AllPages);
            Load(*object, settings);
            // Longer ones take the place of those that are there.
            settings.Security.UserPwd = kLongest;
            Load(*object, settings);
        }
        return ImportFaults::FreedWithText();
    }

  private:
    static void ChangeSecrets(HWND dialog) {
        WalkThrough(dialog);
        for (const int box : {IDC_SECURITY_USER_PASSWORD, IDC_SECURITY_OWNER_PASSWORD}) {
            HWND found = FindDescendant(dialog, [box](HWND window) { return GetDlgCtrlID(window) == box; });
            SetWindowTextW(found, (kPassPhrase + L", and more").c_str());
        }
    }
};

TEST_P(GivenBackMemory, HoldsNoPassword) {
    EXPECT_EQ(BlocksWith(kPassPhrase), 0);
    EXPECT_EQ(BlocksWith(kPassPhrase.substr(kPassPhrase.size() / 2)), 0);
    EXPECT_EQ(BlocksWith(kEndOfLongest), 0);
    EXPECT_EQ(BlocksWith(kPassword), 0);
}

TEST_P(GivenBackMemory, HoldsWhatIsNoSecretAndIsFound) {
    EXPECT_GT(BlocksWith(kTitle), 0);
}

INSTANTIATE_TEST_SUITE_P(EndedBy, GivenBackMemory,
                         testing::Values(Ending::kOk, Ending::kCancel, Ending::kApplyThenCancel));

}  // namespace
}  // namespace vmk::test
