#include "settings/passwords.h"

#include "base/wipe.h"

namespace vmk {

void WipePasswords(PrinterSettings& settings) noexcept {
    auto& security = settings.Security;
    for (std::wstring* const password : {&security.UserPwd, &security.OwnerPwd, &security.Digisig.PFXPassword,
                                         &settings.Email.SMTP.Password, &settings.Overlay.Password})
        Wipe(*password);
}

}  // namespace vmk
