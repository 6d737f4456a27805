// What looking up and selecting a language cost: lookup against gettext() on the same texts, the growth of
// selecting a language with the number of its texts, and the speed of reading and indexing a file.

#include <libintl.h>

#include <algorithm>
#include <array>
#include <bit>
#include <clocale>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bench/figures.h"
#include "language/language_file.h"
#include "language/language_table.h"

namespace vmk {
namespace {

/// The processor time of this process in nanoseconds; what else the machine does is left out.
double Now() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e9 + static_cast<double>(now.tv_nsec);
}

double Nanoseconds(auto&& work) {
    const double begin = Now();
    work();
    return Now() - begin;
}

/// Texts as dialogs have them: several words, many with the same beginning, none twice, in no order.
std::vector<std::string> MakeTexts(std::size_t count, unsigned seed) {
    constexpr std::array kWords = {"Enable", "the",    "printing", "of",        "embedded", "fonts",
                                   "and",    "images", "Allow",    "page",      "document", "security",
                                   "All",    "links",  "color",    "resolution"};
    std::mt19937 random(seed);
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < count; ++i) {
        std::string text;
        for (auto words = random() % 4 + 2; words > 0; --words) {
            text += kWords[random() % kWords.size()];
            text += ' ';
        }
        texts.push_back(text + std::to_string(i));
    }
    return texts;
}

std::string TranslationOf(const std::string& text) {
    return "Deutsch: " + text;
}

std::vector<std::byte> LanguageFileOf(const std::vector<std::string>& texts) {
    std::string content =
        "$langid = 0407\r\n$langname = Deutsch\r\n$productID = vmkctrl.PdfPrinterPreferences\r\n";
    for (const std::string& text : texts) content += '"' + text + "\" = \"" + TranslationOf(text) + "\"\r\n";
    std::vector<std::byte> bytes = {std::byte{0xFF}, std::byte{0xFE}};
    for (const char unit : content) {
        bytes.push_back(static_cast<std::byte>(unit));
        bytes.push_back(std::byte{});
    }
    return bytes;
}

/// A folder of catalogues for gettext(), removed when the benchmark ends.
class Catalogues {
  public:
    Catalogues() {
        std::string name = std::filesystem::temp_directory_path() / "language_bench.XXXXXX";
        if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
        m_folder = name;
        std::filesystem::create_directories(m_folder / "de/LC_MESSAGES");
        setenv("LANGUAGE", "de", 1);
        if (!std::setlocale(LC_ALL, "C.UTF-8")) throw std::runtime_error("no locale C.UTF-8");
    }
    Catalogues(const Catalogues&) = delete;
    Catalogues& operator=(const Catalogues&) = delete;
    ~Catalogues() {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

    /// Compiles the texts and makes them the current domain.
    void Use(const std::string& domain, const std::vector<std::string>& texts) const {
        const std::string source = m_folder / (domain + ".po");
        std::ofstream out(source);
        out << "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n";
        for (const std::string& text : texts)
            out << "msgid \"" << text << "\"\nmsgstr \"" << TranslationOf(text) << "\"\n";
        out.close();
        const std::string command =
            "msgfmt -o " + (m_folder / "de/LC_MESSAGES" / (domain + ".mo ")).string() + source;
        if (std::system(command.c_str()) != 0) throw std::runtime_error("msgfmt failed");
        bindtextdomain(domain.c_str(), m_folder.c_str());
        textdomain(domain.c_str());
        if (gettext(texts[0].c_str()) != TranslationOf(texts[0]))
            throw std::runtime_error("gettext() does not find its catalogue");
    }

  private:
    std::filesystem::path m_folder;
};

constexpr int kRounds = 21;
constexpr std::size_t kMostTexts = 100000;  // of one file, and what each measurement treats in all

/// Language files of so many texts, as many as the largest has texts: were it the same small file again and
/// again, the processor would know it by heart.
std::vector<std::vector<std::byte>> LanguageFilesOf(std::size_t count) {
    std::vector<std::vector<std::byte>> files;
    for (unsigned seed = 0; seed < kMostTexts / count; ++seed)
        files.push_back(LanguageFileOf(MakeTexts(count, seed)));
    return files;
}

/// Reads and indexes the files one after the other.
void Select(const std::vector<std::vector<std::byte>>& files, std::size_t count) {
    for (const std::vector<std::byte>& bytes : files) {
        const LanguageTable table(ReadLanguageFile(bytes).value());
        if (table.size() != count) throw std::runtime_error("texts are missing");
    }
}

void CompareSelecting() {
    const auto few = LanguageFilesOf(1000);
    const auto many = LanguageFilesOf(kMostTexts);
    std::vector<double> fewTimes;
    std::vector<double> manyTimes;
    std::vector<double> speeds;  // MB/s
    for (int round = 0; round < kRounds; ++round) {
        fewTimes.push_back(Nanoseconds([&] { Select(few, 1000); }));
        manyTimes.push_back(Nanoseconds([&] { Select(many, kMostTexts); }));
        speeds.push_back(1e3 * static_cast<double>(many[0].size()) / manyTimes.back());
    }
    std::printf("selecting a language: %.0f ns per text of 1,000, %.0f ns per text of 100,000\n",
                Median(fewTimes) / kMostTexts, Median(manyTimes) / kMostTexts);
    PrintRow("selecting a language: MB/s", SpreadOf(speeds), AtLeast(100));
    PrintRow("selecting a language: per text of 100,000 to one of 1,000", RatioOf(manyTimes, fewTimes),
             AtMost(1.5));
}

/// Texts that a table of up to so many puts into the same one of its buckets, as somebody would choose them
/// to make it slow.
std::vector<std::string> TextsOfOneBucket(std::size_t count) {
    std::vector<std::string> texts;
    for (std::size_t i = 0; texts.size() < count; ++i) {
        const std::string text = "text " + std::to_string(i);
        const std::wstring wide(text.begin(), text.end());
        if (std::hash<std::wstring_view>{}(wide) % std::bit_ceil(count) == 0) texts.push_back(text);
    }
    std::ranges::shuffle(texts, std::mt19937(1));
    return texts;
}

/// Were the work to grow with the square of the number, four times the texts would take four times as long
/// each.
void CompareChosenTexts() {
    constexpr std::size_t kMany = 4096;
    std::vector<std::string> texts = TextsOfOneBucket(kMany);
    const std::vector<std::vector<std::byte>> many(8, LanguageFileOf(texts));
    texts.resize(kMany / 4);
    const std::vector<std::vector<std::byte>> few(32, LanguageFileOf(texts));
    std::vector<double> fewTimes;
    std::vector<double> manyTimes;
    for (int round = 0; round < kRounds; ++round) {
        fewTimes.push_back(Nanoseconds([&] { Select(few, kMany / 4); }));
        manyTimes.push_back(Nanoseconds([&] { Select(many, kMany); }));
    }
    std::printf("texts chosen to be slow: %.0f ns per text of %zu, %.0f ns per text of %zu\n",
                Median(fewTimes) / (8 * kMany), kMany / 4, Median(manyTimes) / (8 * kMany), kMany);
    PrintRow("texts chosen to be slow: per text of 4,096 to one of 1,024", RatioOf(manyTimes, fewTimes),
             AtMost(2));
}

void CompareLookup(const Catalogues& catalogues, std::size_t count) {
    std::vector<std::string> texts = MakeTexts(count, 1);
    catalogues.Use("bench" + std::to_string(count), texts);
    const LanguageTable table(ReadLanguageFile(LanguageFileOf(texts)).value());

    std::ranges::shuffle(texts, std::mt19937(1));
    std::vector<std::wstring> wideTexts;
    wideTexts.reserve(texts.size());
    for (const std::string& text : texts) wideTexts.emplace_back(text.begin(), text.end());

    std::size_t found = 0;
    std::vector<double> ours;
    std::vector<double> theirs;
    const auto oursOnce = [&] {
        for (const std::wstring& text : wideTexts) found += table.Find(text).value().size();
    };
    const auto theirsOnce = [&] {
        for (const std::string& text : texts) found += static_cast<unsigned char>(*gettext(text.c_str()));
    };
    const auto often = [&](auto&& once) {
        return Nanoseconds([&] {
            for (std::size_t done = 0; done < kMostTexts; done += count) once();
        });
    };
    for (int round = 0; round < kRounds; ++round) {
        ours.push_back(often(oursOnce));
        theirs.push_back(often(theirsOnce));
    }
    if (found == 0) throw std::runtime_error("nothing was found");
    std::printf("looking up one of %zu texts: %.0f ns, gettext() %.0f ns\n", count, Median(ours) / kMostTexts,
                Median(theirs) / kMostTexts);
    const std::string what = "looking up one of " + std::to_string(count) + " texts: to gettext()";
    PrintRow(what.c_str(), RatioOf(ours, theirs), AtMost(1));
}

void Run() {
    const Catalogues catalogues;
    for (const std::size_t count : {std::size_t{1000}, std::size_t{10000}, kMostTexts})
        CompareLookup(catalogues, count);
    CompareSelecting();
    CompareChosenTexts();
}

}  // namespace
}  // namespace vmk

int main() try {
    vmk::Run();
    return EXIT_SUCCESS;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "error: %s\n", failure.what());
    return EXIT_FAILURE;
}
