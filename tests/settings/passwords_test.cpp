#include "settings/passwords.h"

#include <gtest/gtest.h>

namespace vmk {
namespace {

TEST(WipedPasswords, AreAllThatARecordHas) {
    PrinterSettings settings;
    settings.Security.UserPwd = settings.Security.OwnerPwd = L"secret";
    settings.Security.Digisig.PFXPassword = settings.Email.SMTP.Password = L"secret";
    settings.Overlay.Password = L"secret";
    settings.Overlay.File = L"C:\\overlay.pdf";
    WipePasswords(settings);
    PrinterSettings expected;
    expected.Overlay.File = L"C:\\overlay.pdf";
    EXPECT_EQ(settings, expected);
}

}  // namespace
}  // namespace vmk
