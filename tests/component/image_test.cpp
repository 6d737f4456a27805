#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/support/loaded_module.h"

// The file itself: what it exports and imports, how it may be loaded, and what it says about itself.

#define QUOTED(text) L## #text
#define QUOTED_VALUE(name) QUOTED(name)

namespace vmk::test {
namespace {

// What the build says that the version is.
constexpr const wchar_t* kVersion = QUOTED_VALUE(VMK_VERSION);
constexpr std::array<DWORD, 4> kVersionNumbers{VMK_VERSION_NUMBERS};

// The headers and tables of an image that the system has loaded.
class Image {
  public:
    explicit Image(HMODULE module) : m_base(reinterpret_cast<const BYTE*>(module)) {}

    template <typename Type>
    const Type* At(DWORD offset) const {
        return reinterpret_cast<const Type*>(m_base + offset);
    }

    const IMAGE_NT_HEADERS64& Headers() const {
        return *At<IMAGE_NT_HEADERS64>(static_cast<DWORD>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
    }

    template <typename Type>
    const Type* Directory(int index) const {
        return At<Type>(Headers().OptionalHeader.DataDirectory[index].VirtualAddress);
    }

    std::vector<std::string> ExportedNames() const {
        const auto* const directory = Directory<IMAGE_EXPORT_DIRECTORY>(IMAGE_DIRECTORY_ENTRY_EXPORT);
        std::vector<std::string> names;
        for (DWORD index = 0; index < directory->NumberOfNames; ++index)
            names.emplace_back(At<char>(At<DWORD>(directory->AddressOfNames)[index]));
        return names;
    }

    std::vector<std::string> ImportedModules() const {
        std::vector<std::string> names;
        for (const auto* entry = Directory<IMAGE_IMPORT_DESCRIPTOR>(IMAGE_DIRECTORY_ENTRY_IMPORT);
             entry->Name; ++entry) {
            std::string name = At<char>(entry->Name);
            std::ranges::transform(name, name.begin(), [](unsigned char c) { return std::tolower(c); });
            names.push_back(std::move(name));
        }
        return names;
    }

  private:
    const BYTE* m_base;
};

class ImageFile : public testing::Test {
  protected:
    // What the file holds from this place on.
    static std::string FileBytes(DWORD offset) {
        std::ifstream file(std::filesystem::path(BuiltModulePath()), std::ios::binary);
        file.seekg(offset);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    LoadedModule m_module;
    Image m_image{m_module.get()};
};

TEST_F(ImageFile, ExportsTheFourEntryPointsUndecoratedAndNothingElse) {
    EXPECT_THAT(m_image.ExportedNames(), testing::ElementsAre("DllCanUnloadNow", "DllGetClassObject",
                                                              "DllRegisterServer", "DllUnregisterServer"));
    EXPECT_EQ(m_image.Directory<IMAGE_EXPORT_DIRECTORY>(IMAGE_DIRECTORY_ENTRY_EXPORT)->NumberOfFunctions, 4U);
}

TEST_F(ImageFile, ImportsDllsOfTheSystemOnly) {
    const std::vector<std::string> imported = m_image.ImportedModules();
    EXPECT_THAT(imported, testing::Contains("kernel32.dll"));
    EXPECT_THAT(imported,
                testing::Each(testing::AnyOf("advapi32.dll", "comctl32.dll", "gdi32.dll", "kernel32.dll",
                                             "msvcrt.dll", "ole32.dll", "oleaut32.dll", "shell32.dll",
                                             "shlwapi.dll", "user32.dll", "uxtheme.dll")));
}

TEST_F(ImageFile, IsA64BitDllThatMayBeLoadedAnywhereAndRunsNoData) {
    const IMAGE_NT_HEADERS64& headers = m_image.Headers();
    EXPECT_EQ(headers.FileHeader.Machine, IMAGE_FILE_MACHINE_AMD64);
    EXPECT_TRUE(headers.FileHeader.Characteristics & IMAGE_FILE_DLL);
    const WORD flags = headers.OptionalHeader.DllCharacteristics;
    EXPECT_TRUE(flags & IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE);
    EXPECT_TRUE(flags & IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA);
    EXPECT_TRUE(flags & IMAGE_DLLCHARACTERISTICS_NX_COMPAT);
    EXPECT_NE(headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_BASERELOC].Size, 0U);
}

TEST_F(ImageFile, IsStrippedAndHoldsNoTimeOfBuilding) {
    const IMAGE_FILE_HEADER& header = m_image.Headers().FileHeader;
    EXPECT_EQ(header.NumberOfSymbols, 0U);
    EXPECT_EQ(header.TimeDateStamp, 0U);
    const IMAGE_SECTION_HEADER* section = IMAGE_FIRST_SECTION(&m_image.Headers());
    for (WORD index = 0; index < header.NumberOfSections; ++index) {
        const std::string name(reinterpret_cast<const char*>(section[index].Name), IMAGE_SIZEOF_SHORT_NAME);
        // Longer names, as those of debug sections are, stand in a string table: "/4". One may be there,
        // which says what file the symbols are in.
        if (name[0] == '/') {
            EXPECT_STREQ(FileBytes(section[index].PointerToRawData).c_str(), "vmkctrl.dll.debug") << name;
        }
    }
}

TEST_F(ImageFile, IsSmall) {
    EXPECT_LE(std::filesystem::file_size(BuiltModulePath()), 400U * 1024);
}

TEST_F(ImageFile, CarriesManifestTypeLibraryAndRegistryScripts) {
    EXPECT_TRUE(FindResourceW(m_module.get(), MAKEINTRESOURCEW(2), RT_MANIFEST));
    EXPECT_TRUE(FindResourceW(m_module.get(), MAKEINTRESOURCEW(1), L"TYPELIB"));
    EXPECT_TRUE(FindResourceW(m_module.get(), MAKEINTRESOURCEW(101), L"REGISTRY"));
    EXPECT_TRUE(FindResourceW(m_module.get(), MAKEINTRESOURCEW(102), L"REGISTRY"));
}

class VersionBlock : public testing::Test {
  protected:
    void SetUp() override {
        const std::wstring path = BuiltModulePath();
        m_block.resize(GetFileVersionInfoSizeW(path.c_str(), nullptr));
        ASSERT_TRUE(GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(m_block.size()), m_block.data()));
    }

    std::wstring Text(const std::wstring& name) {
        void* text = nullptr;
        UINT length = 0;
        if (!VerQueryValueW(m_block.data(), (L"\\StringFileInfo\\040904B0\\" + name).c_str(), &text, &length))
            return L"(missing)";
        return static_cast<const wchar_t*>(text);
    }

    std::vector<BYTE> m_block;
};

TEST_F(VersionBlock, NamesMakerProductAndVersion) {
    EXPECT_EQ(Text(L"CompanyName"), L"Orrin Systems");
    EXPECT_EQ(Text(L"FileVersion"), kVersion);
    EXPECT_EQ(Text(L"ProductVersion"), kVersion);
    EXPECT_EQ(Text(L"OriginalFilename"), L"vmkctrl.dll");
    EXPECT_EQ(Text(L"InternalName"), L"vmkctrl");
    EXPECT_EQ(Text(L"ProductName"), L"PDF Printer");
    EXPECT_EQ(Text(L"FileDescription"), L"PDF Printer Preferences");
}

TEST_F(VersionBlock, HoldsTheVersionAsNumbers) {
    void* data = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(m_block.data(), L"\\", &data, &length));
    const auto* const fixed = static_cast<const VS_FIXEDFILEINFO*>(data);
    EXPECT_EQ(fixed->dwFileVersionMS, kVersionNumbers[0] << 16U | kVersionNumbers[1]);
    EXPECT_EQ(fixed->dwFileVersionLS, kVersionNumbers[2] << 16U | kVersionNumbers[3]);
    EXPECT_EQ(fixed->dwFileType, static_cast<DWORD>(VFT_DLL));
}

}  // namespace
}  // namespace vmk::test
