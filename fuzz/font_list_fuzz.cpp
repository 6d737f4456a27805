#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "pages/fonts/font_list.h"

// Stored font lists of any content over faces of any kind: the hashed lookups against a second reading of the
// rules that searches everything from the beginning each time.
//
// An input begins with the faces, three bytes each (a letter of the name, the system's font type, the pitch),
// up to a zero; what follows is the stored list, one character a byte.
namespace vmk {
namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

struct Input {
    struct Face {
        std::wstring name;
        std::uint32_t type;
        std::uint32_t pitch;
    };
    std::vector<Face> faces;
    std::wstring list;
};

// Few names, so that they meet: "a" to "d" in either case, each with and without the mark of vertical
// writing.
std::wstring NameOf(std::uint8_t byte) {
    const auto letter = static_cast<wchar_t>((byte & 0x10 ? L'a' : L'A') + (byte & 3));
    return byte & 0x20 ? std::wstring{L'@', letter} : std::wstring{letter};
}

Input ReadInput(const std::uint8_t* data, std::size_t size) {
    Input input;
    std::size_t next = 0;
    for (; next + 2 < size && data[next] != 0; next += 3)
        input.faces.push_back({.name = NameOf(data[next]), .type = data[next + 1], .pitch = data[next + 2]});
    for (; next < size; ++next) input.list += static_cast<wchar_t>(data[next]);
    return input;
}

std::wstring LowerCase(std::wstring text) {
    for (wchar_t& unit : text)
        if (unit >= L'A' && unit <= L'Z') unit += L'a' - L'A';
    return text;
}

std::string Key(const std::wstring& name) {
    std::string key;
    for (const wchar_t unit : LowerCase(name)) key += static_cast<char>(unit);
    return key;
}

// The pitch doubles as the licence word.
std::vector<FontFace> SlowFaces(const Input& input) {
    std::vector<FontFace> faces;
    for (const Input::Face& face : input.faces) {
        std::uint32_t flags = 0;
        if ((face.type & 6) == 0) {
            flags = 4;
        } else if (face.name[0] != L'@' && std::ranges::count(faces, face.name, &FontFace::name) == 0) {
            flags = (face.pitch & 4 ? 0 : 1) + (face.pitch % 8 == 2 ? 2 : 0);
        }
        faces.push_back({.name = face.name, .flags = flags});
    }
    return faces;
}

auto FindIn(std::vector<FontFace>& offer, const std::wstring& name) {
    return std::ranges::find_if(
        offer, [&](const FontFace& face) { return LowerCase(face.name) == LowerCase(name); });
}

std::vector<FontFace> SlowOffer(const std::vector<FontFace>& faces) {
    std::vector<FontFace> offer;
    for (const FontFace& face : faces)
        if (face.flags != 4 && FindIn(offer, face.name) == offer.end()) offer.push_back(face);
    return offer;
}

std::vector<std::wstring> SlowPieces(const std::wstring& list) {
    std::vector<std::wstring> pieces(1);
    for (const wchar_t unit : list) {
        if (unit == L';') {
            pieces.emplace_back();
        } else {
            pieces.back() += unit;
        }
    }
    return pieces;
}

std::vector<FontFace> SlowTake(std::vector<FontFace>& offer, const std::vector<FontFace>& faces,
                               const std::wstring& list) {
    std::vector<FontFace> taken;
    for (const std::wstring& piece : SlowPieces(list)) {
        if (const auto offered = FindIn(offer, piece); offered != offer.end()) {
            taken.push_back(*offered);
            offer.erase(offered);
        } else if (const auto face = std::ranges::find(faces, piece, &FontFace::name); face != faces.end()) {
            taken.push_back(*face);
        }
    }
    return taken;
}

void CheckText(const std::wstring& list) {
    const std::vector<std::wstring_view> views = SplitFontList(list);
    const std::vector<std::wstring> pieces(views.begin(), views.end());
    Require(list.empty() ? pieces.empty() : pieces == SlowPieces(list));
    Require(JoinFontList(pieces) == list);
}

void Check(const Input& input) {
    CheckText(input.list);

    FontFaces faces;
    for (const Input::Face& face : input.faces) {
        faces.Add({.name = face.name, .type = face.type, .pitchAndFamily = face.pitch},
                  [&] { return std::optional(face.pitch); });
    }
    const std::vector<FontFace> slowFaces = SlowFaces(input);
    Require(std::ranges::equal(faces.All(), slowFaces, [](const FontFaces::Entry& a, const FontFace& b) {
        return *a.name == b.name && a.flags == b.flags;
    }));

    FontOffer offer(faces, Key);
    std::vector<FontFace> slowOffer = SlowOffer(slowFaces);
    Require(offer.Rest() == slowOffer);
    for (int list = 0; list < 2; ++list) {
        Require(offer.Take(input.list) == SlowTake(slowOffer, slowFaces, input.list));
        Require(offer.Rest() == slowOffer);
    }
}

}  // namespace
}  // namespace vmk

// NOLINTNEXTLINE(readability-identifier-naming): the fuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vmk::Check(vmk::ReadInput(data, size));
    return 0;
}
