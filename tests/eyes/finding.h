#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <vector>

// What is wrong with a window that somebody looks at, as a table for people:
//
//     Report report;
//     LookAt(page, {.page = L"Save"}, report);
//     EXPECT_TRUE(report.findings.empty()) << Table(report.findings);

namespace vmk::test {

// Where something was seen.
struct Sight {
    std::wstring language = L"English";
    int dpi = 96;
    std::wstring page = {};
};

struct Finding {
    Sight sight;
    int id;
    std::wstring className;
    std::string kind;  // one of those in kinds.h
    std::wstring text;
    // In pixels: what would be needed and what there is, or where the control should be and where it is. 0
    // and 0 where that says nothing.
    int needed = 0;
    int has = 0;
    HWND window = nullptr;
};

// The findings, and how many things were looked at for each kind: nothing found means something only then.
struct Report {
    std::vector<Finding> findings;
    std::map<std::string, int> looked;

    void Add(const Report& other);
};

// One line per finding, below a line of headings; UTF-8. Plain words when there is none.
std::string Table(const std::vector<Finding>& findings);
// One line per kind: how many things were looked at and how many were found.
std::string Summary(const Report& report);

}  // namespace vmk::test
