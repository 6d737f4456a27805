#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

// Fonts that need not be installed on the machine:
//
//     const TestFont restricted({.family = L"Vmk Restricted", .embeddingLicence = 2});
//     OpenWithoutLoading();
//     EXPECT_THAT(NamesIn(page, IDC_FONTS_AVAILABLE), Contains(L"Vmk Restricted"));

namespace vmk::test {

// A family to make a font file of. The file has the tables that a font needs and an empty space character.
struct FontRecipe {
    enum class Kind { kTrueType, kRaster };

    std::wstring family;  // at most 31 characters; of ASCII in a raster font
    Kind kind = Kind::kTrueType;
    std::uint16_t embeddingLicence = 0;  // fsType of a TrueType font: 2 is restricted licence embedding
    bool vertical = false;  // a TrueType font for Japanese: the system adds a face for vertical writing
};

// A font of ours that is installed for this process as long as the object lives.
class TestFont {
  public:
    explicit TestFont(const FontRecipe& recipe);
    ~TestFont();
    TestFont(const TestFont&) = delete;
    TestFont& operator=(const TestFont&) = delete;

  private:
    std::wstring m_path;
};

}  // namespace vmk::test
