#include "tests/support/language_files.h"

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <map>
#include <random>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "language/language_session.h"
#include "resources/ids/watermarks.h"
#include "settings/registry_path.h"
#include "tests/chaos/damage.h"
#include "tests/chaos/meddler.h"
#include "tests/chaos/pages_contract.h"
#include "tests/chaos/seed.h"
#include "tests/chaos/visit.h"
#include "tests/support/effort.h"
#include "tests/support/language_folder.h"
#include "tests/support/loaded_module.h"
#include "tests/support/utf16_bytes.h"

namespace vmk::test {
namespace {

using testing::IsEmpty;

using Bytes = std::vector<std::byte>;

constexpr wchar_t kProduct[] = L"vmkctrl.PdfPrinterPreferences";
constexpr wchar_t kSource[] = L"Enable Printing Watermark";

// The languages that are in good order, before and behind all that is not.
constexpr LANGID kFirst = 0x0C0A;
constexpr LANGID kLast = 0x0C0C;
const std::map<LANGID, std::wstring> kGood = {{kFirst, L"Primero"}, {kLast, L"Dernier"}};

// What is found in a folder: the languages with their translations of kSource.
using Found = std::map<std::uint32_t, std::wstring>;
using Scan = std::function<Found(const LanguageFiles& folder)>;

Found ScanWithSession(const LanguageFiles& folder) {
    LanguageSession session(folder.NarrowPath(), kProduct);
    Found found;
    for (const LanguageRecord& record : session.Languages()) {
        const std::uint32_t langid = record.header.langid;
        if (session.SelectLanguage(langid)) found.emplace(langid, session.TranslateString(kSource));
    }
    return found;
}

void WriteGoodFiles(const LanguageFiles& folder) {
    folder.WriteTranslations(L"!first.vlf", kFirst, {{kSource, kGood.at(kFirst)}});
    folder.WriteTranslations(L"~last.vlf", kLast, {{kSource, kGood.at(kLast)}});
}

// The languages in good order are there, whatever is beside them.
Findings CheckGood(const Found& found) {
    Findings findings;
    for (const auto& [langid, translation] : kGood) {
        const auto language = found.find(langid);
        if (language == found.end()) {
            findings.push_back("language " + std::to_string(langid) + " is not found");
        } else if (language->second != translation) {
            findings.push_back("language " + std::to_string(langid) + " says something else");
        }
    }
    return findings;
}

Bytes ShippedFile() {
    const std::wstring path = TestFolder() + L"\\..\\languages\\german.vlf";
    HANDLE const file =
        CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    Bytes bytes(file == INVALID_HANDLE_VALUE ? 0 : GetFileSize(file, nullptr));
    DWORD read = 0;
    ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    CloseHandle(file);
    return bytes;
}

Bytes MadeFile() {
    return LanguageFileBytes(std::wstring(L"; a comment\r\n$langid = 0x0410 ; and another\n$productID = \"") +
                             kProduct + L"\"\r$langname = Made\n\"" + kSource +
                             L"\" = \"Filigrana; \\\"\\\\\\n\\t\"\n\"a\\\"b\"=\"c\"\n\"unfinished\" = \"");
}

// Changes bytes, units, pieces and lengths at random places.
Bytes Mutated(Bytes bytes, std::mt19937& random) {
    static constexpr wchar_t kNasty[] = L"\"\\=$;\r\n\t \0\xFFFF\xD800\xDC00\xFEFFx";
    const auto below = [&](std::size_t limit) { return limit ? random() % limit : 0; };
    for (unsigned changes = 1 + random() % 8; changes > 0; --changes) {
        const std::size_t at = below(bytes.size());
        const std::size_t length = below(std::min<std::size_t>(bytes.size() - at, 200));
        const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(at);
        const auto end = begin + static_cast<std::ptrdiff_t>(length);
        const Bytes piece(begin, end);
        const Bytes unit = Utf16Bytes({kNasty + random() % std::size(kNasty), 1});
        switch (random() % 7) {
            case 0:
                if (at < bytes.size()) bytes[at] ^= static_cast<std::byte>(1U << random() % 8);
                break;
            case 1:
                bytes.insert(begin, unit.begin(), unit.end());
                break;
            case 2:
                if (at + 1 < bytes.size())
                    std::ranges::copy(unit, bytes.begin() + static_cast<std::ptrdiff_t>(at));
                break;
            case 3:
                bytes.erase(begin, end);
                break;
            case 4:
                bytes.insert(begin, piece.begin(), piece.end());
                break;
            case 5:
                std::reverse(begin, end);
                break;
            default:
                // Mostly of its whole units.
                if (random() % 4 == 0) bytes.resize(at);
                break;
        }
    }
    return bytes;
}

class LanguageFilesInDisorder : public testing::Test {
  protected:
    LanguageFilesInDisorder() { WriteGoodFiles(m_folder); }

    // The dialog in one language; what its box for watermarks is called.
    std::wstring NameInDialog(LANGID language) const {
        m_object->EnablePage(Watermarks);
        std::wstring name;
        const Visit visit =
            VisitDialog(*m_object,
                        [&](HWND dialog) {
                            wchar_t text[300] = {};
                            GetDlgItemTextW(PagesOf(dialog).at(0), IDC_WATERMARKS_PRINT, text, 300);
                            name = text;
                        },
                        {.language = language});
        EXPECT_EQ(visit.exitCode, IDOK);
        EXPECT_TRUE(visit.wasSeen);
        return name;
    }
    void ExpectGoodInDialog() const {
        for (const auto& [langid, translation] : kGood) EXPECT_EQ(NameInDialog(langid), translation);
    }

    const ComApartment m_apartment;
    const LanguageFolder m_folder;
    const LoadedModule m_module;
    const ComPointer<IPdfPrinterPreferences> m_object = m_module.CreatePreferences();
};

TEST_F(LanguageFilesInDisorder, MutatedAtRandomHideNoOthers) {
    const Bytes sources[] = {ShippedFile(), MadeFile()};
    ASSERT_GT(sources[0].size(), 10'000U);
    std::mt19937 random(Seed());
    const long rounds = Effort(24, 20'000);
    constexpr int kFiles = 8;
    long found = 0;
    for (long round = 0; round < rounds; ++round) {
        for (int file = 0; file < kFiles; ++file)
            m_folder.Write(std::to_wstring(file) + L".vlf",
                           Mutated(sources[random() % std::size(sources)], random));
        const Found languages = ScanWithSession(m_folder);
        ASSERT_THAT(CheckGood(languages), IsEmpty()) << "round " << round;
        found += static_cast<long>(languages.size() - kGood.size());
        // Opening the dialog takes a hundred times as long as reading the files.
        if (round % 12 != 0) continue;
        for (const auto& [langid, translation] : languages) NameInDialog(static_cast<LANGID>(langid));
        ExpectGoodInDialog();
    }
    EXPECT_GT(found, 0);
    PrintFigures("mutated language files", {{"folders", rounds},
                                            {"mutated files in them", rounds * kFiles},
                                            {"of these still of a language", found}});
}

void WriteHuge(const LanguageFiles& folder, const std::wstring& name, const std::wstring& begin,
               LONGLONG size) {
    folder.WriteText(name, begin);
    HANDLE const file =
        CreateFileW(folder.File(name).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    LARGE_INTEGER end;
    end.QuadPart = size;
    EXPECT_TRUE(SetFilePointerEx(file, end, nullptr, FILE_BEGIN));
    EXPECT_TRUE(SetEndOfFile(file));
    CloseHandle(file);
}

TEST_F(LanguageFilesInDisorder, OfAllSortsAreReadOrPassedOver) {
    const std::wstring italian = std::wstring(L"$langid = 0410\n$productID = ") + kProduct + L"\n";
    const auto write = [&](const std::wstring& name, const std::string& bytes) {
        m_folder.Write(name, std::as_bytes(std::span(bytes)));
    };
    write(L"empty.vlf", "");
    write(L"byte.vlf", "\xFF");
    write(L"mark.vlf", "\xFF\xFE");
    write(L"half a unit.vlf", "\xFF\xFE$");
    write(L"utf8.vlf", "\xEF\xBB\xBF$langid = 0411\n$productID = vmkctrl.PdfPrinterPreferences\n");
    write(L"ansi.vlf", "$langid = 0412\n$productID = vmkctrl.PdfPrinterPreferences\n");
    write(L"big endian.vlf", {"\xFE\xFF\0$\0l\0a\0n\0g\0i\0d\0=\0"
                              "9",
                              20});
    write(L"utf32.vlf", {"\xFF\xFE\0\0$\0\0\0", 8});
    write(L"program.vlf", "MZ\x90");
    m_folder.WriteText(L"huge.vlf", italian + L"\"" + std::wstring(4'000'000, L'x') + L"\" = \"y\"\n");
    // No file that can be read has more bytes than 32 bits count; most of this one is not on the disk.
    WriteHuge(m_folder, L"too huge.vlf", L"$langid = 0413\n$productID = vmkctrl.PdfPrinterPreferences\n",
              5LL << 30);
    WriteHuge(m_folder, L"zeros.vlf", L"$langid = 0414\n$productID = vmkctrl.PdfPrinterPreferences\n",
              64 << 20);
    // Names that the narrow functions cannot say, and the longest that they can.
    m_folder.WriteText(L"\u0416\u4E2D.vlf", L"$langid = 0415\n$productID = vmkctrl.PdfPrinterPreferences\n");
    m_folder.WriteText(L"\xD83D\xDE00.vlf", L"$langid = 0416\n$productID = vmkctrl.PdfPrinterPreferences\n");
    const std::wstring longest(MAX_PATH - std::wstring(L"\\.vlf").size() - 1 - m_folder.Path().size(), L'n');
    m_folder.WriteText(longest + L".vlf", L"$langid = 0417\n$productID = vmkctrl.PdfPrinterPreferences\n");
    const std::wstring hidden = m_folder.Write(
        L"hidden.vlf", LanguageFileBytes(L"$langid=0418\n$productID=vmkctrl.PdfPrinterPreferences"));
    SetFileAttributesW(hidden.c_str(),
                       FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_SYSTEM);
    ASSERT_TRUE(CreateDirectoryW(m_folder.File(L"0 folder.vlf").c_str(), nullptr));

    const Found languages = ScanWithSession(m_folder);
    EXPECT_THAT(CheckGood(languages), IsEmpty());
    for (const std::uint32_t readable : {0x410U, 0x414U, 0x417U, 0x418U})
        EXPECT_TRUE(languages.contains(readable)) << readable;
    for (const std::uint32_t other : {0x411U, 0x412U, 0x413U, 0x415U, 0x416U})
        EXPECT_FALSE(languages.contains(other)) << other;
    ExpectGoodInDialog();
    EXPECT_EQ(NameInDialog(0x0410), kSource);

    SetFileAttributesW(hidden.c_str(), FILE_ATTRIBUTE_NORMAL);
    RemoveDirectoryW(m_folder.File(L"0 folder.vlf").c_str());
}

// What a language file may go through while somebody reads it.
class ChangingFile {
  public:
    explicit ChangingFile(const LanguageFiles& folder) : m_folder(folder) {}

    void Change(unsigned time) const try {
        switch (time % 5) {
            case 0:  // it is there
                m_folder.Write(kName, kWhole);
                break;
            case 1:  // it grows
                for (const std::size_t length : {kWhole.size() / 4, kWhole.size() / 2, kWhole.size()})
                    m_folder.Write(kName, std::span(kWhole).first(length));
                break;
            case 2:  // somebody has it for himself, or some bytes of it
                Hold(0);
                Hold(FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
                break;
            case 3:  // another one takes its place
                m_folder.Write(L"next", kOther);
                MoveFileExW(m_folder.File(L"next").c_str(), m_folder.File(kName).c_str(),
                            MOVEFILE_REPLACE_EXISTING);
                break;
            default:
                DeleteFileW(m_folder.File(kName).c_str());
                break;
        }
    } catch (const std::runtime_error&) {
        // Whoever writes cannot do so while it is read.
    }

    // Half a file may have half a translation.
    static bool IsPossible(const std::wstring& translation) {
        return translation == kSource || translation == kOtherText || kText.starts_with(translation);
    }

    static constexpr std::uint32_t kLangid = 0x0410;

  private:
    void Hold(DWORD sharing) const {
        HANDLE const file = CreateFileW(m_folder.File(kName).c_str(), GENERIC_READ, sharing, nullptr,
                                        OPEN_EXISTING, 0, nullptr);
        if (file == INVALID_HANDLE_VALUE) return;
        LockFile(file, 0, 0, 16, 0);
        Sleep(0);
        CloseHandle(file);
    }

    static constexpr wchar_t kName[] = L"changing.vlf";
    static inline const std::wstring kOtherText = L"Altra";
    static inline const std::wstring kText = std::wstring(20'000, L'e') + L"nd";
    static Bytes FileWith(const std::wstring& text) {
        return LanguageFileBytes(std::wstring(L"$langid=0410\n$productID=") + kProduct + L"\n\"" + kSource +
                                 L"\"=\"" + text + L"\"\n");
    }
    static inline const Bytes kWhole = FileWith(kText);
    static inline const Bytes kOther = FileWith(kOtherText);

    const LanguageFiles& m_folder;
};

TEST_F(LanguageFilesInDisorder, ThatChangeWhileTheyAreReadHideNoOthers) {
    const ChangingFile file(m_folder);
    const long rounds = Effort(120, 50'000);
    std::map<std::size_t, long> lengths;
    long missing = 0;
    unsigned changes = 0;
    // The changes are seen: with one text, with the other, cut off, or not at all. On a busy machine that
    // takes longer.
    const auto isSeen = [&] { return missing > 0 && lengths.size() > 2; };
    const long longest = 50 * rounds;
    long round = 0;
    {
        const Meddler meddler([&](unsigned time) { file.Change(time); });
        for (; round < rounds || (!isSeen() && round < longest); ++round) {
            const Found languages = ScanWithSession(m_folder);
            ASSERT_THAT(CheckGood(languages), IsEmpty()) << "round " << round;
            const auto changing = languages.find(ChangingFile::kLangid);
            if (changing == languages.end()) {
                ++missing;
                continue;
            }
            ASSERT_TRUE(ChangingFile::IsPossible(changing->second)) << "round " << round;
            ++lengths[changing->second.size()];
            if (round % 40 == 0) {
                NameInDialog(ChangingFile::kLangid);
                ExpectGoodInDialog();
            }
        }
        changes = meddler.Times();
    }
    EXPECT_TRUE(isSeen()) << missing << " missing, " << lengths.size() << " lengths";
    PrintFigures("a language file that changes while it is read",
                 {{"sessions", round}, {"changes", changes}, {"sessions without it", missing}});
}

// The value that says where they are can be damaged like any other.
TEST_F(LanguageFilesInDisorder, InAFolderWhoseNameIsDamagedLeaveTheDialogEnglish) {
    const std::vector<Damage>& damages = AllDamages();
    const auto tries = static_cast<std::size_t>(Effort(12, static_cast<long>(damages.size())));
    const std::size_t shift = Seed() % damages.size();
    for (std::size_t time = 0; time < tries; ++time) {
        const Damage& damage = damages[(shift + time * damages.size() / tries) % damages.size()];
        SCOPED_TRACE(damage.kind);
        if (damage.value) {
            const std::string padded = damage.value->bytes + "\x01\x01\x01";
            UniqueRegistryKey key;
            ASSERT_EQ(RegOpenKeyExA(HKEY_LOCAL_MACHINE, kRegistryRoot, 0, KEY_SET_VALUE, key.put()),
                      ERROR_SUCCESS);
            RegSetValueExW(key.get(), L"VLF_PATH", 0, damage.value->type,
                           reinterpret_cast<const BYTE*>(padded.data()),
                           static_cast<DWORD>(damage.value->bytes.size()));
        } else {
            RegDeleteKeyValueA(HKEY_LOCAL_MACHINE, kRegistryRoot, "VLF_PATH");
        }
        EXPECT_EQ(NameInDialog(kFirst), kSource);
    }
    PrintFigures("damaged names of the language folder", {{"opened", tries}});
}

// What the tests above would find.

// Stops at the first file that is no good.
Found ScanThatStops(const LanguageFiles& folder) {
    Found found;
    for (const std::wstring& name : folder.Files()) {
        const LanguageFiles one;
        const std::wstring copy = one.File(L"a.vlf");
        CopyFileW(folder.File(name).c_str(), copy.c_str(), FALSE);
        const Found languages = ScanWithSession(one);
        if (languages.empty()) break;
        found.insert(languages.begin(), languages.end());
    }
    return found;
}

TEST_F(LanguageFilesInDisorder, AreFoundToHideOthersWhereAScanStopsAtThem) {
    EXPECT_THAT(CheckGood(ScanThatStops(m_folder)), IsEmpty());
    m_folder.Write(L"0.vlf", {});
    EXPECT_THAT(CheckGood(ScanThatStops(m_folder)), testing::Not(IsEmpty()));
}

}  // namespace
}  // namespace vmk::test
