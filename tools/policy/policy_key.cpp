#include "tools/policy/policy_key.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <utility>

#include "settings/registry_path.h"
#include "tools/policy/text.h"

namespace vmk::policy {
namespace {

bool IsPlain(char c) {
    return ('a' <= c && c <= 'z') || ('A' <= c && c <= 'Z') || ('0' <= c && c <= '9');
}

// FNV-1a.
std::uint64_t Hash(std::string_view text, std::uint64_t hash = 0xCBF29CE484222325) {
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    return hash;
}

std::string Hexadecimal(std::uint64_t number) {
    std::array<char, 17> digits{};
    std::snprintf(digits.data(), digits.size(), "%016llX", static_cast<unsigned long long>(number));
    return digits.data();
}

}  // namespace

PolicyKey::PolicyKey(std::string subKey) : m_subKey(std::move(subKey)) {
    const bool hasEmptyPart =
        m_subKey.starts_with('\\') || m_subKey.ends_with('\\') || m_subKey.find("\\\\") != std::string::npos;
    const bool hasControl = std::ranges::any_of(m_subKey, [](char c) { return 0 <= c && c < ' '; });
    // ']' would end the name of the key in a file of the registry editor for some of its readers.
    if (hasEmptyPart || hasControl || m_subKey.find(']') != std::string::npos)
        throw Refusal("\"" + m_subKey + "\" cannot be the name of a key");
    Utf16Bytes(m_subKey);
}

std::string PolicyKey::Path() const {
    const std::string path = kRegistryRoot + m_subKey;
    return path.substr(0, path.find_last_not_of('\\') + 1);
}

std::string PolicyKey::Identifier() const {
    std::string identifier = "vmkctrl";
    if (m_subKey.empty()) return identifier;
    identifier += '_';
    for (const char c : m_subKey) identifier += IsPlain(c) ? c : '_';
    // Different names may look the same by now.
    if (!std::ranges::all_of(m_subKey, IsPlain)) identifier += "_" + Hexadecimal(Hash(m_subKey)).substr(8);
    return identifier;
}

// Of the form that is left to whoever makes one (version 8).
std::string StableGuid(std::string_view text) {
    std::string digits = Hexadecimal(Hash(text)) + Hexadecimal(Hash(text, Hash(text)));
    digits[12] = '8';
    digits[16] = '8';
    for (const std::size_t at : {20U, 16U, 12U, 8U}) digits.insert(at, "-");
    return "{" + digits + "}";
}

}  // namespace vmk::policy
