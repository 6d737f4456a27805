#include "settings/passwords.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>

namespace vmk {
namespace {

TEST(WipedText, LeavesNothingInItsMemory) {
    std::wstring text(100, L'p');
    const auto address = reinterpret_cast<std::uintptr_t>(text.data());
    text.resize(10);
    Wipe(text);
    EXPECT_TRUE(text.empty());
    ASSERT_EQ(reinterpret_cast<std::uintptr_t>(text.data()), address);
    const std::span memory(text.data(), 100);
    EXPECT_TRUE(std::ranges::all_of(memory, [](wchar_t character) { return character == 0; }));
}

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
