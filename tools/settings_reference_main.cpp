// Prints the settings reference: settings_reference >docs/settings.md

#include <cstdio>
#include <exception>
#include <string>

#include "tools/settings_reference.h"

int main() {
    try {
        const std::string reference = vmk::docs::SettingsReference();
        return std::fwrite(reference.data(), 1, reference.size(), stdout) == reference.size() ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
