// What looking up and selecting a language cost: lookup against gettext() on the same texts, the growth of
// selecting a language with the number of its texts, and the speed of reading a file.

#include <libintl.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <limits>
#include <random>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

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

/// The fastest of the rounds that a second and a half holds, in nanoseconds per item.
template <typename Function>
double NanosecondsPerItem(std::size_t items, Function&& round) {
    double best = std::numeric_limits<double>::infinity();
    for (const double start = Now(); Now() - start < 1.5e9;) {
        const double begin = Now();
        round();
        best = std::min(best, Now() - begin);
    }
    return best / static_cast<double>(items);
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

struct Times {
    double select;   // reading the file and building the table, per entry
    double lookup;   // per text
    double gettext;  // per text
};

constexpr std::size_t kMostTexts = 100000;

/// Selecting languages of so many texts, one after the other until the most have been read: were it the same
/// small file again and again, the processor would know it by heart.
double MeasureSelect(std::size_t count) {
    std::vector<std::vector<std::byte>> files;
    for (unsigned seed = 0; seed < kMostTexts / count; ++seed)
        files.push_back(LanguageFileOf(MakeTexts(count, seed)));
    return NanosecondsPerItem(kMostTexts, [&] {
        for (const std::vector<std::byte>& bytes : files) {
            const LanguageTable table(ReadLanguageFile(bytes).value());
            if (table.size() != count) throw std::runtime_error("texts are missing");
        }
    });
}

Times Measure(const Catalogues& catalogues, std::size_t count) {
    std::vector<std::string> texts = MakeTexts(count, 1);
    catalogues.Use("bench" + std::to_string(count), texts);
    const LanguageTable table(ReadLanguageFile(LanguageFileOf(texts)).value());

    std::shuffle(texts.begin(), texts.end(), std::mt19937(1));
    std::vector<std::wstring> wideTexts;
    wideTexts.reserve(texts.size());
    for (const std::string& text : texts) wideTexts.emplace_back(text.begin(), text.end());

    std::size_t found = 0;
    Times times{};
    times.select = MeasureSelect(count);
    times.lookup = NanosecondsPerItem(count, [&] {
        for (const std::wstring& text : wideTexts) found += table.Find(text).value().size();
    });
    times.gettext = NanosecondsPerItem(count, [&] {
        for (const std::string& text : texts) found += static_cast<unsigned char>(*gettext(text.c_str()));
    });
    if (found == 0) throw std::runtime_error("nothing was found");
    return times;
}

void PrintReadingSpeed() {
    const std::vector<std::byte> bytes = LanguageFileOf(MakeTexts(300000, 1));
    std::size_t entries = 0;
    const double full =
        NanosecondsPerItem(bytes.size(), [&] { entries += ReadLanguageFile(bytes).value().entries.size(); });
    const double header =
        NanosecondsPerItem(bytes.size(), [&] { entries += ReadLanguageHeader(bytes).value().langid; });
    if (entries == 0) throw std::runtime_error("nothing was read");
    std::printf("reading a file of %.0f MB: %.0f MB/s; its header only: %.0f MB/s\n",
                static_cast<double>(bytes.size()) / 1e6, 1e3 / full, 1e3 / header);
}

void Run() {
    const Catalogues catalogues;
    std::printf("%8s | %22s | %30s\n", "", "select, per entry", "lookup, per text");
    std::printf("%8s | %11s %10s | %9s %9s %10s\n", "texts", "ns", "to 1,000", "ns", "gettext", "to gettext");
    double smallest = 0;
    for (const std::size_t count : {std::size_t{1000}, std::size_t{10000}, kMostTexts}) {
        const Times times = Measure(catalogues, count);
        if (smallest == 0) smallest = times.select;
        std::printf("%8zu | %11.1f %10.2f | %9.1f %9.1f %10.2f\n", count, times.select,
                    times.select / smallest, times.lookup, times.gettext, times.lookup / times.gettext);
    }
    PrintReadingSpeed();
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
