#include "pages/fonts/font_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vmk::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t kRasterType = 1;
constexpr std::uint32_t kDevice = FaceReport::kDeviceType;
constexpr std::uint32_t kTrueType = FaceReport::kTrueTypeType;
constexpr std::uint32_t kOutlines = FaceReport::kTrueTypePitch;

std::optional<std::uint32_t> NoLicence() {
    return {};
}

// The names match regardless of the case of ASCII letters.
std::string Key(const std::wstring& name) {
    std::string key;
    for (const wchar_t unit : name) {
        const bool upper = unit >= L'A' && unit <= L'Z';
        key += static_cast<char>(upper ? unit - L'A' + L'a' : unit);
    }
    return key;
}

FontFaces Faces(const std::vector<std::wstring>& names) {
    FontFaces faces;
    for (const std::wstring& name : names)
        faces.Add({.name = name, .type = kTrueType, .pitchAndFamily = kOutlines}, NoLicence);
    return faces;
}

std::vector<std::wstring> Names(const std::vector<FontFace>& faces) {
    std::vector<std::wstring> names(faces.size());
    std::ranges::transform(faces, names.begin(), &FontFace::name);
    return names;
}

std::vector<FontFace> Copies(const FontFaces& faces) {
    std::vector<FontFace> copies;
    for (const FontFaces::Entry& entry : faces.All())
        copies.push_back({.name = *entry.name, .flags = entry.flags});
    return copies;
}

std::uint32_t FlagsOf(const FaceReport& report, std::optional<std::uint32_t> licence = {}) {
    FontFaces faces;
    faces.Add(report, [&] { return licence; });
    return faces.All().front().flags;
}

TEST(FontListText, AnEmptyTextHasNoPieces) {
    EXPECT_THAT(SplitFontList(L""), IsEmpty());
}

TEST(FontListText, SplitsAtEachSeparatorAndKeepsEmptyPieces) {
    EXPECT_THAT(SplitFontList(L"Arial"), ElementsAre(L"Arial"));
    EXPECT_THAT(SplitFontList(L"Arial;Courier New"), ElementsAre(L"Arial", L"Courier New"));
    EXPECT_THAT(SplitFontList(L"Arial;;Arial"), ElementsAre(L"Arial", L"", L"Arial"));
    EXPECT_THAT(SplitFontList(L";Arial;"), ElementsAre(L"", L"Arial", L""));
    EXPECT_THAT(SplitFontList(L";"), ElementsAre(L"", L""));
}

TEST(FontListText, KeepsBlanksAroundNames) {
    EXPECT_THAT(SplitFontList(L" Arial ; B"), ElementsAre(L" Arial ", L" B"));
}

TEST(FontListText, JoinsWithoutATrailingSeparator) {
    EXPECT_EQ(JoinFontList({}), L"");
    EXPECT_EQ(JoinFontList(std::vector<std::wstring>{L"Arial"}), L"Arial");
    EXPECT_EQ(JoinFontList(std::vector<std::wstring>{L"Arial", L"Symbol", L"Times"}), L"Arial;Symbol;Times");
}

TEST(FontFaces, AFontThatIsNeitherTrueTypeNorADeviceFontIsARasterFont) {
    for (const std::uint32_t type : {0U, kRasterType})
        EXPECT_EQ(FlagsOf({.name = L"A", .type = type, .pitchAndFamily = kOutlines}, 2), font_flag::kRaster);
}

TEST(FontFaces, ARasterFontStaysOneUnderANameWithAnAtSignOrTwice) {
    FontFaces faces;
    for (int i = 0; i < 2; ++i) faces.Add({.name = L"@A", .type = kRasterType}, NoLicence);
    EXPECT_THAT(Copies(faces), ElementsAre(FontFace{.name = L"@A", .flags = font_flag::kRaster},
                                           FontFace{.name = L"@A", .flags = font_flag::kRaster}));
}

TEST(FontFaces, TheTrueTypeBitOfThePitchDecidesWhetherAFontIsTrueType) {
    for (const std::uint32_t type : {kTrueType, kDevice, kTrueType | kDevice | kRasterType}) {
        EXPECT_EQ(FlagsOf({.name = L"A", .type = type, .pitchAndFamily = 0xFF}), 0U);
        EXPECT_EQ(FlagsOf({.name = L"A", .type = type, .pitchAndFamily = 0xFF & ~kOutlines}),
                  font_flag::kNotTrueType);
    }
}

TEST(FontFaces, OnlyTheThreeLowBitsOfTheLicenceTellARestrictedOne) {
    const FaceReport report = {.name = L"A", .type = kTrueType, .pitchAndFamily = kOutlines};
    for (const std::uint32_t word : {2U, 0x102U, 0x30AU})
        EXPECT_EQ(FlagsOf(report, word), font_flag::kRestrictedLicence) << word;
    for (const std::uint32_t word : {0U, 1U, 3U, 4U, 6U, 8U, 0x200U})
        EXPECT_EQ(FlagsOf(report, word), 0U) << word;
    EXPECT_EQ(FlagsOf({.name = L"A", .type = kDevice}, 2),
              font_flag::kNotTrueType | font_flag::kRestrictedLicence);
}

TEST(FontFaces, AFaceForVerticalWritingHasNoFlagsAndIsNotExamined) {
    FontFaces faces;
    faces.Add({.name = L"@A", .type = kDevice}, []() -> std::optional<std::uint32_t> {
        ADD_FAILURE() << "examined";
        return 2;
    });
    EXPECT_THAT(Copies(faces), ElementsAre(FontFace{.name = L"@A", .flags = 0}));
}

TEST(FontFaces, ARepeatedFaceIsAppendedWithoutFlagsAndExaminedOnce) {
    FontFaces faces;
    int examined = 0;
    for (const wchar_t* const name : {L"A", L"A", L"a", L"A"}) {
        faces.Add({.name = name, .type = kDevice}, [&]() -> std::optional<std::uint32_t> {
            ++examined;
            return 2;
        });
    }
    EXPECT_EQ(examined, 2);
    EXPECT_THAT(Copies(faces), ElementsAre(FontFace{.name = L"A", .flags = 3}, FontFace{.name = L"A"},
                                           FontFace{.name = L"a", .flags = 3}, FontFace{.name = L"A"}));
}

TEST(FontFaces, FindsTheFirstFaceWithExactlyTheName) {
    FontFaces faces;
    faces.Add({.name = L"A", .type = kRasterType}, NoLicence);
    faces.Add({.name = L"A", .type = kTrueType, .pitchAndFamily = kOutlines}, NoLicence);
    EXPECT_EQ(faces.Find(L"A"), &faces.All()[0]);
    EXPECT_EQ(faces.Find(L"a"), nullptr);
    EXPECT_EQ(faces.Find(L""), nullptr);
}

TEST(FontFaces, NamesOutliveTheMoveOfTheirFaces) {
    FontFaces faces = Faces({L"A", L"B", L"A"});
    const FontFaces moved = std::move(faces);
    EXPECT_THAT(Copies(moved),
                ElementsAre(FontFace{.name = L"A"}, FontFace{.name = L"B"}, FontFace{.name = L"A"}));
    EXPECT_EQ(moved.Find(L"A"), &moved.All()[0]);
}

TEST(FontOffer, OffersEachNameOnceWithTheIconOfItsFirstOccurrence) {
    FontFaces faces;
    faces.Add({.name = L"B", .type = kDevice}, NoLicence);
    faces.Add({.name = L"@B", .type = kTrueType}, NoLicence);
    faces.Add({.name = L"B", .type = kTrueType, .pitchAndFamily = kOutlines}, NoLicence);
    faces.Add({.name = L"A", .type = kTrueType, .pitchAndFamily = kOutlines}, NoLicence);
    EXPECT_THAT(FontOffer(faces, Key).Rest(),
                ElementsAre(FontFace{.name = L"B", .flags = 1}, FontFace{.name = L"@B", .flags = 0},
                            FontFace{.name = L"A", .flags = 0}));
}

// Making keys is what takes time when a machine has many fonts.
TEST(FontOffer, MakesNoKeysOfRepetitionsThatFollowTheirName) {
    const FontFaces faces = Faces({L"One", L"One", L"One", L"Two", L"One"});
    std::vector<std::wstring> keys;
    const FontOffer offer(faces, [&](const std::wstring& name) {
        keys.push_back(name);
        return Key(name);
    });
    EXPECT_THAT(keys, ElementsAre(L"One", L"Two", L"One"));
}

TEST(FontOffer, NamesThatDifferInCaseAreOneName) {
    EXPECT_THAT(Names(FontOffer(Faces({L"Arial", L"ARIAL", L"Symbol"}), Key).Rest()),
                ElementsAre(L"Arial", L"Symbol"));
}

TEST(FontOffer, NeverOffersARasterFontButFindsItForAStoredList) {
    FontFaces faces;
    faces.Add({.name = L"Courier", .type = kRasterType}, NoLicence);
    FontOffer offer(faces, Key);
    EXPECT_THAT(offer.Rest(), IsEmpty());
    EXPECT_THAT(offer.Take(L"Courier"),
                ElementsAre(FontFace{.name = L"Courier", .flags = font_flag::kRaster}));
    EXPECT_THAT(offer.Take(L"courier"), IsEmpty());
}

TEST(FontOffer, ARasterFontWithARepeatedNameIsOfferedByItsOtherFace) {
    FontFaces faces;
    faces.Add({.name = L"Courier", .type = kRasterType}, NoLicence);
    faces.Add({.name = L"Courier", .type = kTrueType}, NoLicence);
    FontOffer offer(faces, Key);
    EXPECT_THAT(offer.Rest(), ElementsAre(FontFace{.name = L"Courier", .flags = 0}));
    EXPECT_THAT(offer.Take(L"Courier;Courier"),
                ElementsAre(FontFace{.name = L"Courier", .flags = 0},
                            FontFace{.name = L"Courier", .flags = font_flag::kRaster}));
}

TEST(FontOffer, AStoredListTakesItsNamesInItsOrderAndDropsWhatIsNotInstalled) {
    const FontFaces faces = Faces({L"Arial", L"Symbol", L"Times"});
    FontOffer offer(faces, Key);
    EXPECT_THAT(Names(offer.Take(L"Times;Nowhere;;Arial; Symbol")), ElementsAre(L"Times", L"Arial"));
    EXPECT_THAT(Names(offer.Rest()), ElementsAre(L"Symbol"));
}

TEST(FontOffer, ANameTwiceInAListIsTakenOnceAndFoundAgain) {
    const FontFaces faces = Faces({L"Arial", L"Times"});
    FontOffer offer(faces, Key);
    EXPECT_THAT(Names(offer.Take(L"Arial;;Arial")), ElementsAre(L"Arial", L"Arial"));
    EXPECT_THAT(Names(offer.Rest()), ElementsAre(L"Times"));
}

TEST(FontOffer, ANameThatAnotherListTookIsFoundAgain) {
    const FontFaces faces = Faces({L"Arial"});
    FontOffer offer(faces, Key);
    offer.Take(L"Arial");
    EXPECT_THAT(Names(offer.Take(L"Arial")), ElementsAre(L"Arial"));
}

TEST(FontOffer, AListInAnotherCaseTakesFromTheOfferButIsNotFoundAgain) {
    const FontFaces faces = Faces({L"Arial"});
    FontOffer offer(faces, Key);
    EXPECT_THAT(Names(offer.Take(L"ARIAL;arial")), ElementsAre(L"Arial"));
    EXPECT_THAT(offer.Rest(), IsEmpty());
}

}  // namespace
}  // namespace vmk::test
