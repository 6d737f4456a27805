#include "tests/support/test_font.h"

#include <array>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace vmk::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Numbers one after the other, most significant byte first as in a TrueType file or last as in a raster font.
class Writer {
  public:
    explicit Writer(bool bigEndian) : m_bigEndian(bigEndian) {}

    Writer& Byte(std::uint32_t value) { return Number(value, 1); }
    Writer& Word(std::uint32_t value) { return Number(value, 2); }
    Writer& Long(std::uint32_t value) { return Number(value, 4); }
    Writer& Zeros(std::size_t count) {
        m_bytes.insert(m_bytes.end(), count, 0);
        return *this;
    }
    Writer& Append(const Bytes& bytes) {
        m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end());
        return *this;
    }

    std::uint32_t size() const { return static_cast<std::uint32_t>(m_bytes.size()); }
    Bytes Take() { return std::move(m_bytes); }

  private:
    Writer& Number(std::uint32_t value, int bytes) {
        for (int i = 0; i < bytes; ++i) {
            const int shift = 8 * (m_bigEndian ? bytes - 1 - i : i);
            m_bytes.push_back(static_cast<std::uint8_t>(value >> shift));
        }
        return *this;
    }

    Bytes m_bytes;
    bool m_bigEndian;
};

Writer BigEndian() {
    return Writer(true);
}

constexpr std::uint32_t kVersion1 = 0x00010000;
constexpr std::uint32_t kUnitsPerEm = 1000;
constexpr std::uint32_t kAscent = 800;
constexpr std::uint32_t kDescent = 200;
constexpr std::uint32_t kAdvance = 500;
constexpr std::uint32_t kSpace = 0x20;

Bytes HeadTable() {
    return BigEndian()
        .Long(kVersion1)
        .Long(kVersion1)
        .Long(0)
        .Long(0x5F0F3CF5)
        .Word(0)
        .Word(kUnitsPerEm)
        .Zeros(24)  // dates and bounding box
        .Word(0)
        .Word(8)  // smallest readable size
        .Word(2)
        .Word(0)  // short offsets in loca
        .Word(0)
        .Take();
}

Bytes HorizontalHeaderTable() {
    return BigEndian()
        .Long(kVersion1)
        .Word(kAscent)
        .Word(0 - kDescent)
        .Word(0)
        .Word(kAdvance)
        .Zeros(6)
        .Word(1)  // upright caret
        .Zeros(14)
        .Word(1)  // one advance for all glyphs
        .Take();
}

Bytes LicenceAndMetricsTable(const FontRecipe& recipe) {
    constexpr std::uint32_t kLatin1 = 1;
    constexpr std::uint32_t kJapanese = 1 << 17;
    return BigEndian()
        .Word(1)
        .Word(kAdvance)
        .Word(FW_NORMAL)
        .Word(5)
        .Word(recipe.embeddingLicence)
        .Zeros(20)  // subscript, superscript, strikeout
        .Zeros(12)  // class and appearance
        .Long(1)    // Basic Latin
        .Zeros(12)
        .Zeros(4)    // vendor
        .Word(0x40)  // regular
        .Word(kSpace)
        .Word(kSpace)
        .Word(kAscent)
        .Word(0 - kDescent)
        .Word(0)
        .Word(kAscent)
        .Word(kDescent)
        .Long(recipe.vertical ? kJapanese : kLatin1)
        .Long(0)
        .Take();
}

// The space is glyph 1; one segment for it, and the closing one.
Bytes CharacterMapTable() {
    return BigEndian()
        .Word(0)
        .Word(1)
        .Word(3)  // Windows, Unicode
        .Word(1)
        .Long(12)
        .Word(4)  // format
        .Word(32)
        .Word(0)
        .Word(4)
        .Word(4)
        .Word(1)
        .Word(0)
        .Word(kSpace)
        .Word(0xFFFF)
        .Word(0)
        .Word(kSpace)
        .Word(0xFFFF)
        .Word(1 - kSpace)
        .Word(1)
        .Word(0)
        .Word(0)
        .Take();
}

Bytes NameTable(const std::wstring& family) {
    const std::array<std::pair<std::uint32_t, std::wstring_view>, 5> names = {
        {{1, family}, {2, L"Regular"}, {3, family}, {4, family}, {6, family}}};
    Writer records = BigEndian();
    Writer texts = BigEndian();
    records.Word(0).Word(names.size()).Word(6 + 12 * names.size());
    for (const auto& [id, text] : names) {
        records.Word(3).Word(1).Word(0x0409).Word(id);
        records.Word(static_cast<std::uint32_t>(2 * text.size())).Word(texts.size());
        for (const wchar_t unit : text) texts.Word(unit);
    }
    return records.Append(texts.Take()).Take();
}

std::uint32_t Checksum(const Bytes& table) {
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < table.size(); ++i)
        sum += static_cast<std::uint32_t>(table[i]) << (24 - 8 * (i % 4));
    return sum;
}

Bytes TrueTypeFile(const FontRecipe& recipe) {
    const std::array<std::pair<std::string_view, Bytes>, 10> tables = {{
        {"OS/2", LicenceAndMetricsTable(recipe)},
        {"cmap", CharacterMapTable()},
        {"glyf", Bytes(4)},
        {"head", HeadTable()},
        {"hhea", HorizontalHeaderTable()},
        {"hmtx", BigEndian().Word(kAdvance).Word(0).Word(0).Take()},
        {"loca", Bytes(6)},
        {"maxp", BigEndian().Long(kVersion1).Word(2).Zeros(8).Word(2).Zeros(16).Take()},
        {"name", NameTable(recipe.family)},
        {"post", BigEndian().Long(0x00030000).Zeros(28).Take()},
    }};
    Writer file = BigEndian();
    file.Long(kVersion1).Word(tables.size()).Word(128).Word(3).Word(32);
    Writer contents = BigEndian();
    for (const auto& [tag, table] : tables) {
        for (const char letter : tag) file.Byte(static_cast<std::uint8_t>(letter));
        file.Long(Checksum(table)).Long(12 + 16 * tables.size() + contents.size());
        file.Long(static_cast<std::uint32_t>(table.size()));
        contents.Append(table).Zeros((4 - table.size() % 4) % 4);
    }
    return file.Append(contents.Take()).Take();
}

// A font resource with a blank of 8 by 8 pixels for the space.
Bytes RasterFont(const FontRecipe& recipe) {
    constexpr std::uint32_t kGlyphTable = 118;
    constexpr std::uint32_t kGlyphs = kGlyphTable + 2 * 4;
    constexpr std::uint32_t kSize = 8;
    constexpr std::uint32_t kFaceName = kGlyphs + kSize;
    Writer font(false);
    font.Word(0x200).Long(kFaceName + static_cast<std::uint32_t>(recipe.family.size()) + 1).Zeros(60);
    font.Word(0).Word(kSize).Word(96).Word(96).Word(kSize - 1).Word(0).Word(0).Zeros(3).Word(FW_NORMAL);
    font.Byte(ANSI_CHARSET).Word(kSize).Word(kSize).Byte(FF_MODERN).Word(kSize).Word(kSize);
    font.Byte(kSpace).Byte(kSpace).Byte(0).Byte(0).Word(2).Long(0).Long(kFaceName).Long(0);
    font.Long(kGlyphs).Byte(0);
    font.Word(kSize).Word(kGlyphs).Word(kSize).Word(kGlyphs);  // the space and the end of the table
    font.Zeros(kSize);
    for (const wchar_t letter : recipe.family) font.Byte(static_cast<std::uint8_t>(letter));
    return font.Byte(0).Take();
}

// A 16-bit module whose only resource is the font.
Bytes RasterFile(const FontRecipe& recipe) {
    constexpr std::uint32_t kHeader = 64;
    constexpr std::uint32_t kResourceTable = 64;
    constexpr std::uint32_t kResourceTableSize = 2 + 8 + 12 + 2;
    constexpr std::uint32_t kNames = kResourceTable + kResourceTableSize;
    constexpr std::uint32_t kAlignment = 16;
    constexpr std::uint32_t kFontStart = 160;  // a multiple of the alignment
    static_assert(kHeader + kNames <= kFontStart && kFontStart % kAlignment == 0);
    Bytes font = RasterFont(recipe);
    font.resize((font.size() + kAlignment - 1) / kAlignment * kAlignment);

    Writer file(false);
    file.Word(0x5A4D).Zeros(58).Long(kHeader);
    file.Word(0x454E).Zeros(34).Word(kResourceTable).Word(kNames).Zeros(24);
    file.Word(4);  // sizes are shifted by as much
    file.Word(0x8008).Word(1).Long(0);
    file.Word(kFontStart / kAlignment).Word(static_cast<std::uint32_t>(font.size()) / kAlignment);
    file.Word(0).Word(0x8001).Long(0);
    file.Word(0);
    file.Zeros(kFontStart - file.size());
    return file.Append(font).Take();
}

std::wstring TemporaryFile(const Bytes& contents) {
    wchar_t folder[MAX_PATH] = {};
    wchar_t path[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    if (GetTempFileNameW(folder, L"fnt", 0, path) == 0)
        throw std::runtime_error("there is no place for a font file");
    HANDLE file = CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, contents.data(), static_cast<DWORD>(contents.size()), &written, nullptr);
    CloseHandle(file);
    if (written != contents.size()) throw std::runtime_error("the font file cannot be written");
    return path;
}

}  // namespace

TestFont::TestFont(const FontRecipe& recipe)
    : m_path(TemporaryFile(recipe.kind == FontRecipe::Kind::kRaster ? RasterFile(recipe)
                                                                    : TrueTypeFile(recipe))) {
    if (AddFontResourceExW(m_path.c_str(), FR_PRIVATE, nullptr) == 0) {
        DeleteFileW(m_path.c_str());
        throw std::runtime_error("the system refuses the font file");
    }
}

TestFont::~TestFont() {
    RemoveFontResourceExW(m_path.c_str(), FR_PRIVATE, nullptr);
    DeleteFileW(m_path.c_str());
}

}  // namespace vmk::test
