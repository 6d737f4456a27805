#include "pages/fonts/font_list.h"

#include <utility>

namespace vmk {
namespace {

constexpr wchar_t kSeparator = L';';
constexpr wchar_t kVerticalMark = L'@';  // begins the name of a face's variant for vertical writing

constexpr std::uint32_t kLicenceMask = 7;
constexpr std::uint32_t kRestrictedEmbedding = 2;

std::uint32_t FlagsOf(const FaceReport& report, bool isRepeated, const LicenceQuery& licence) {
    if (!(report.type & (FaceReport::kTrueTypeType | FaceReport::kDeviceType))) return font_flag::kRaster;
    if (report.name.starts_with(kVerticalMark) || isRepeated) return 0;

    std::uint32_t flags = 0;
    if (!(report.pitchAndFamily & FaceReport::kTrueTypePitch)) flags |= font_flag::kNotTrueType;
    const std::optional<std::uint32_t> word = licence();
    if (word && (*word & kLicenceMask) == kRestrictedEmbedding) flags |= font_flag::kRestrictedLicence;
    return flags;
}

FontFace Copy(const FontFaces::Entry& entry) {
    return {.name = *entry.name, .flags = entry.flags};
}

}  // namespace

void FontFaces::Add(const FaceReport& report, const LicenceQuery& licence) {
    const auto [first, isNew] = m_firstByName.try_emplace(std::wstring(report.name), m_entries.size());
    m_entries.push_back({.name = &first->first, .flags = 0});
    m_entries.back().flags = FlagsOf(report, !isNew, licence);
}

const FontFaces::Entry* FontFaces::Find(const std::wstring& name) const {
    const auto found = m_firstByName.find(name);
    return found == m_firstByName.end() ? nullptr : &m_entries[found->second];
}

FontOffer::FontOffer(const FontFaces& faces, NameKey key) : m_faces(faces), m_key(std::move(key)) {
    const std::wstring* last = nullptr;  // a name's repetitions mostly follow it, and need no key
    for (const FontFaces::Entry& face : faces.All()) {
        if (face.flags == font_flag::kRaster || face.name == last) continue;
        last = face.name;
        if (m_byKey.try_emplace(m_key(*face.name), m_offered.size()).second) m_offered.push_back(&face);
    }
}

std::vector<FontFace> FontOffer::Take(std::wstring_view storedList) {
    std::vector<FontFace> taken;
    for (const std::wstring_view piece : SplitFontList(storedList)) {
        const std::wstring name(piece);
        const FontFaces::Entry* face = TakeName(name);
        if (!face) face = m_faces.Find(name);
        if (face) taken.push_back(Copy(*face));
    }
    return taken;
}

const FontFaces::Entry* FontOffer::TakeName(const std::wstring& name) {
    const auto found = m_byKey.find(m_key(name));
    return found == m_byKey.end() ? nullptr : std::exchange(m_offered[found->second], nullptr);
}

std::vector<FontFace> FontOffer::Rest() const {
    std::vector<FontFace> rest;
    for (const FontFaces::Entry* const face : m_offered)
        if (face) rest.push_back(Copy(*face));
    return rest;
}

std::vector<std::wstring_view> SplitFontList(std::wstring_view text) {
    std::vector<std::wstring_view> pieces;
    while (!text.empty()) {
        const std::size_t end = text.find(kSeparator);
        pieces.push_back(text.substr(0, end));
        if (end == std::wstring_view::npos) break;
        text.remove_prefix(end + 1);
        if (text.empty()) pieces.emplace_back();
    }
    return pieces;
}

std::wstring JoinFontList(std::span<const std::wstring> names) {
    std::wstring text;
    for (const std::wstring& name : names) {
        if (&name != names.data()) text += kSeparator;
        text += name;
    }
    return text;
}

}  // namespace vmk
