#include "host/failure.h"

#include <array>
#include <cstdio>

namespace vmk {
namespace {

std::string Coded(const std::string& what, HRESULT code) {
    std::array<char, 16> digits{};
    std::snprintf(digits.data(), digits.size(), " (0x%08lX)", static_cast<unsigned long>(code));
    return what + digits.data();
}

}  // namespace

Failure::Failure(const std::string& what, HRESULT code) : std::runtime_error(Coded(what, code)) {}

}  // namespace vmk
