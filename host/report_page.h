#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/document.h"
#include "host/report_words.h"
#include "host/validation.h"

namespace vmk {

// What a report says of one key.
struct ReportedKey {
    std::string name;
    Document document;
    std::vector<Damage> damage;
};

// Style and script of the page.
struct PageParts {
    std::string_view style;
    std::string_view script;
};

// A page for browsers that needs nothing but itself.
std::string ReportPage(const std::vector<ReportedKey>& keys, const ReportWords& words,
                       const PageParts& parts);

// A text as content of an element: what means something in HTML is escaped, and what cannot be shown is
// replaced by a picture of it.
std::string HtmlText(std::wstring_view text);

}  // namespace vmk
