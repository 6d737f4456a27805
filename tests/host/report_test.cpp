#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "host/files.h"
#include "host/report_page.h"
#include "tests/host/program.h"
#include "tests/support/scratch_key.h"
#include "tests/support/temporary_folder.h"

// What the page says. How it behaves in a browser, script/report-check tries.

namespace vmk::test {
namespace {

using testing::HasSubstr;
using testing::Not;

std::wstring Quoted(const std::wstring& text) {
    return L" \"" + text + L"\" ";
}

std::size_t CountOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

struct Written {
    ProgramRun run;
    std::string html;
};

Written WriteReport(const std::wstring& arguments) {
    const TemporaryFolder folder;
    const std::wstring file = folder.File(L"report.html");
    Written written;
    written.run = RunVmkprefs(L"report --html \"" + file + L"\" " + arguments);
    if (written.run.status == 0) written.html = ReadFileBytes(file);
    return written;
}

TEST(Reports, ShowEverySettingWithItsValueInWordsAndItsDefault) {
    const ScratchKey key;
    key.SetNumber("Compression.Color.Method", 2);
    key.SetText("Info.Title", L"<b>\"A\" & B</b>\n\x01");
    const std::string html = WriteReport(Quoted(key.SubKey())).html;
    EXPECT_EQ(CountOf(html, "<th scope=\"row\">"), Settings().size());
    EXPECT_THAT(
        html,
        HasSubstr("<td>JPEG<span class=\"number\">2</span></td><td>Auto<span class=\"number\">1</span></td>"
                  "<td><span class=\"mark\">Differs</span></td>"));
    EXPECT_THAT(html, HasSubstr("&lt;b&gt;&quot;A&quot; &amp; B&lt;/b&gt;\n\xE2\x90\x81"));
    EXPECT_THAT(html, HasSubstr("Method for high-colour and grayscale images."));
    EXPECT_THAT(html, HasSubstr("<td>10 tenths of a point</td>"));
}

TEST(Reports, NameTheOrderByThePagesPerSheet) {
    const ScratchKey key;
    key.SetNumber("Paper.Nup", 2);
    key.SetNumber("Paper.NupOrder", 1);
    EXPECT_THAT(WriteReport(Quoted(key.SubKey())).html, HasSubstr("<td>Right To Left<span"));
    EXPECT_EQ(RunVmkprefs(L"get Paper.NupOrder --key" + Quoted(key.SubKey())).output,
              "Paper.NupOrder = 1 (Right To Left)\n");
}

TEST(Reports, ShowDamagedValuesWithWhatAHostReads) {
    const ScratchKey key;
    key.SetNumber("Paper.Nup", 7);
    const std::string html = WriteReport(Quoted(key.SubKey())).html;
    EXPECT_EQ(CountOf(html, "<tr class=\"damaged\">"), 1U);
    EXPECT_THAT(html, HasSubstr("Stored is <code>7</code>: 7 is not one of 1 (1 page)"));
    EXPECT_THAT(html, HasSubstr("A host reads <code>7 (not a known value)</code>."));
    EXPECT_THAT(html, HasSubstr(". Damaged: 1."));
}

TEST(Reports, NeverShowPasswords) {
    const ScratchKey key;
    key.SetText("Security.UserPwd", L"geheim");
    key.SetNumber("Overlay.Password", 0x6D656867);
    const std::string html = WriteReport(Quoted(key.SubKey())).html;
    EXPECT_THAT(html, Not(HasSubstr("geheim")));
    EXPECT_THAT(html, Not(HasSubstr("ghem")));
    EXPECT_THAT(html, HasSubstr("<em>a password</em>"));
}

TEST(Reports, SpeakTheLanguageThatIsAskedFor) {
    const ScratchKey key;
    key.SetNumber("Paper.Nup", 2);
    const std::wstring folder = L" --folder \"" + ArtifactFolder() + L"languages\" ";
    const std::string html = WriteReport(Quoted(key.SubKey()) + folder + L"--language 0407").html;
    EXPECT_THAT(html, HasSubstr("<h3><span lang=\"de-DE\">Komprimierung</span></h3>"));
    EXPECT_THAT(html,
                HasSubstr("<td><span lang=\"de-DE\">2 Seiten</span><span class=\"number\">2</span></td>"));
    const Written missing = WriteReport(Quoted(key.SubKey()) + folder + L"--language 0413");
    EXPECT_EQ(missing.run.status, 2);
    EXPECT_THAT(missing.run.error, HasSubstr("there is no language file for 0413; vmkprefs languages lists"));
}

TEST(Reports, NeedNothingFromElsewhere) {
    const ScratchKey key;
    key.SetNumber("Paper.Nup", 2);
    const std::string html = WriteReport(Quoted(key.SubKey())).html;
    EXPECT_THAT(html, HasSubstr("default-src 'none'"));
    EXPECT_THAT(html, HasSubstr("prefers-color-scheme: dark"));
    EXPECT_THAT(html, HasSubstr("@media print"));
    for (const char* part : {"http:", "https:", "src=", "<link", "@import", "url("})
        EXPECT_THAT(html, Not(HasSubstr(part)));
}

TEST(Reports, AreAboutSeveralKeys) {
    const ScratchKey one;
    const ScratchKey two;
    one.SetNumber("Paper.Nup", 2);
    two.SetNumber("Paper.Nup", 4);
    EXPECT_EQ(CountOf(WriteReport(Quoted(one.SubKey()) + Quoted(two.SubKey())).html, "<h2>"), 2U);
    EXPECT_EQ(WriteReport(Quoted(one.SubKey()) + L"Nowhere").run.status, 2);
}

}  // namespace
}  // namespace vmk::test
