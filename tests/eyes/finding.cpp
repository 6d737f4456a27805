#include "tests/eyes/finding.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <sstream>

namespace vmk::test {
namespace {

using Line = std::array<std::wstring, 9>;

std::string Utf8(const std::wstring& text) {
    const int length = static_cast<int>(text.size());
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(static_cast<std::size_t>(WideCharToMultiByte(
        CP_UTF8, 0, text.data(), length, bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

std::wstring Quoted(std::wstring text) {
    std::ranges::replace(text, L'\n', L' ');
    std::ranges::replace(text, L'\r', L' ');
    return L"\"" + text + L"\"";
}

Line LineOf(const Finding& finding) {
    const bool isMeasured = finding.needed != 0 || finding.has != 0;
    return {finding.sight.language,
            std::to_wstring(finding.sight.dpi),
            finding.sight.page,
            std::to_wstring(finding.id),
            finding.className,
            std::wstring(finding.kind.begin(), finding.kind.end()),
            isMeasured ? std::to_wstring(finding.needed) : L"",
            isMeasured ? std::to_wstring(finding.has) : L"",
            Quoted(finding.text)};
}

}  // namespace

void Report::Add(const Report& other) {
    findings.insert(findings.end(), other.findings.begin(), other.findings.end());
    for (const auto& [kind, count] : other.looked) looked[kind] += count;
}

std::string Table(const std::vector<Finding>& findings) {
    if (findings.empty()) return "Nothing was found.\n";
    std::vector<Line> lines = {
        {L"Language", L"DPI", L"Page", L"Control", L"Class", L"Finding", L"Needed", L"Has", L"Text"}};
    for (const Finding& finding : findings) lines.push_back(LineOf(finding));
    std::array<std::size_t, std::tuple_size_v<Line>> widths{};
    for (const Line& line : lines) {
        for (std::size_t column = 0; column < line.size(); ++column)
            widths.at(column) = std::max(widths.at(column), line.at(column).size());
    }
    std::wstring table;
    for (Line& line : lines) {
        for (std::size_t column = 0; column + 1 < line.size(); ++column) {
            line.at(column).resize(widths.at(column) + 2, L' ');
            table += line.at(column);
        }
        table += line.back() + L"\n";
    }
    return Utf8(table);
}

std::string Summary(const Report& report) {
    std::ostringstream text;
    for (const auto& [kind, looked] : report.looked)
        text << looked << " looked at, " << std::ranges::count(report.findings, kind, &Finding::kind)
             << " found: " << kind << "\n";
    return text.str();
}

}  // namespace vmk::test
