#include "settings/passwords.h"

#include <windows.h>

namespace vmk {

void Wipe(std::wstring& text) noexcept {
    text.resize(text.capacity());
    SecureZeroMemory(text.data(), text.size() * sizeof(wchar_t));
    text.clear();
}

void WipePasswords(PrinterSettings& settings) noexcept {
    auto& security = settings.Security;
    for (std::wstring* const password : {&security.UserPwd, &security.OwnerPwd, &security.Digisig.PFXPassword,
                                         &settings.Email.SMTP.Password, &settings.Overlay.Password})
        Wipe(*password);
}

}  // namespace vmk
