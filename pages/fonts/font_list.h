#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vmk {

// What is to be known of a face: a bit set that is at once the index of the face's icon.
namespace font_flag {
inline constexpr std::uint32_t kNotTrueType = 1;
inline constexpr std::uint32_t kRestrictedLicence = 2;
inline constexpr std::uint32_t kRaster = 4;  // on its own: nothing else is examined
}  // namespace font_flag

// A face of an installed font, by itself.
struct FontFace {
    std::wstring name;
    std::uint32_t flags = 0;

    bool operator==(const FontFace&) const = default;
};

// What the system says of a face when it enumerates it, in the system's numbers.
struct FaceReport {
    static constexpr std::uint32_t kDeviceType = 2;
    static constexpr std::uint32_t kTrueTypeType = 4;
    static constexpr std::uint32_t kTrueTypePitch = 4;

    std::wstring_view name;
    std::uint32_t type = 0;            // kDeviceType and kTrueTypeType are bits of it
    std::uint32_t pitchAndFamily = 0;  // kTrueTypePitch is a bit of it
};

// Finds out a font's embedding licence word; empty when the font has none. Costly: it makes the font.
using LicenceQuery = std::function<std::optional<std::uint32_t>()>;

// The enumerated faces in the system's order. A face that the system reports more than once (for each of its
// character sets) is here as often, but only its first report is examined, and its name is kept once.
class FontFaces {
  public:
    struct Entry {
        const std::wstring* name;  // the same object for the same name
        std::uint32_t flags;
    };

    FontFaces() = default;
    ~FontFaces() = default;
    FontFaces(FontFaces&&) = default;
    FontFaces& operator=(FontFaces&&) = default;
    FontFaces(const FontFaces&) = delete;
    FontFaces& operator=(const FontFaces&) = delete;

    // Appends a face with its flags. The licence is asked for only where the flags depend on it.
    void Add(const FaceReport& report, const LicenceQuery& licence);

    std::span<const Entry> All() const { return m_entries; }
    // The first entry with exactly this name; null when there is none.
    const Entry* Find(const std::wstring& name) const;

  private:
    std::vector<Entry> m_entries;
    std::unordered_map<std::wstring, std::size_t> m_firstByName;  // its keys are the entries' names
};

// The faces that are offered for choosing, each name once, while stored lists take theirs out of them.
// Borrows the faces.
class FontOffer {
  public:
    // Names with equal keys count as the same name.
    using NameKey = std::function<std::string(const std::wstring& name)>;

    // Offers every face but raster fonts; of several with one name the first.
    FontOffer(const FontFaces& faces, NameKey key);

    // Takes the faces of a stored list out of the offer, in the list's order. A name that is not, or no
    // longer, on offer is looked up among all faces, and left out if there is none with exactly this name.
    std::vector<FontFace> Take(std::wstring_view storedList);

    // What is on offer still, in the order of the faces.
    std::vector<FontFace> Rest() const;

  private:
    const FontFaces::Entry* TakeName(const std::wstring& name);

    const FontFaces& m_faces;
    NameKey m_key;
    std::vector<const FontFaces::Entry*> m_offered;  // null once taken
    std::unordered_map<std::string, std::size_t> m_byKey;
};

// The stored form of a font list: names with ";" between them. Splitting keeps empty pieces, but an empty
// text has none. The pieces are views into the text.
std::vector<std::wstring_view> SplitFontList(std::wstring_view text);
std::wstring JoinFontList(std::span<const std::wstring> names);

}  // namespace vmk
