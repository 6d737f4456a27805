#include "host/report_page.h"

#include <algorithm>
#include <utility>

#include "host/meanings.h"
#include "host/text.h"
#include "host/values.h"
#include "settings/choices.h"
#include "settings/groups.h"
#include "tools/setting_descriptions.h"

namespace vmk {
namespace {

// Nothing is fetched: neither a script nor a style nor a picture.
constexpr std::string_view kHead = R"(<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'; script-src 'unsafe-inline'">
<title>Printing preferences</title>
)";

constexpr std::string_view kTools = R"(<div class="tools" role="search" aria-label="Settings">
<label>Find <input type="search" id="query"></label>
<label><input type="checkbox" id="only"> Only what differs from the default or is damaged</label>
<p id="count" role="status"></p>
</div>
)";

constexpr std::string_view kColumns =
    R"(<thead><tr><th scope="col">Setting</th><th scope="col">Value</th><th scope="col">Default</th>)"
    R"(<th scope="col">Remarks</th></tr></thead>)";

struct Entity {
    char character;
    std::string_view html;
};
constexpr Entity kEntities[] = {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}};

std::string Html(std::string_view utf8) {
    return HtmlText(WideFromUtf8(utf8));
}

std::string_view MeaningOfSetting(std::string_view name) {
    const auto* const row =
        std::ranges::find(docs::kSettingDescriptions, name, &docs::SettingDescription::name);
    return row == std::end(docs::kSettingDescriptions) ? std::string_view() : row->meaning;
}

class PageWriter {
  public:
    explicit PageWriter(const ReportWords& words) : m_words(words) {}

    void AddHeader(const std::vector<ReportedKey>& keys) {
        std::size_t damaged = 0;
        std::size_t differing = 0;
        for (const ReportedKey& key : keys) {
            damaged += key.damage.size();
            differing += Differences(Defaults(), key.document).size();
        }
        m_html +=
            "<a class=\"skip\" href=\"#settings\">To the settings</a>\n<header>\n<h1>Printing "
            "preferences</h1>\n";
        m_html += R"(<p class="lead">Differing from the default: )" + std::to_string(differing) +
                  ". Damaged: " + std::to_string(damaged) + ".</p>\n</header>\n";
    }

    void AddNavigation() {
        m_html += "<nav aria-label=\"Pages\"><ul>\n";
        for (const GroupInfo& group : kGroupInfos) {
            if (!HasSettings(group.bit)) continue;
            m_html += R"(<li><a href="#)" + IdOf(0, group) + R"(">)" + Translated(group.name) + "</a></li>\n";
        }
        m_html += "</ul></nav>\n";
    }

    void AddKey(const ReportedKey& key, std::size_t place) {
        m_pagesPerSheet = PagesPerSheet(key.document);
        m_html += "<section>\n<h2>" + Html(key.name) + "</h2>\n";
        for (const GroupInfo& group : kGroupInfos) {
            if (HasSettings(group.bit)) AddGroup(key, group, IdOf(place, group));
        }
        m_html += "</section>\n";
    }

    std::string Take() { return std::exchange(m_html, {}); }

  private:
    static bool HasSettings(PageSet group) {
        return std::ranges::find(Settings(), group, &SettingInfo::group) != Settings().end();
    }

    static std::string IdOf(std::size_t place, const GroupInfo& group) {
        return "key" + std::to_string(place) + "-" + std::string(group.identifier);
    }

    void AddGroup(const ReportedKey& key, const GroupInfo& group, const std::string& id) {
        const std::string name = Translated(group.name);
        m_html += R"(<section class="group" id=")" + id + "\">\n<h3>" + name + "</h3>\n<table><caption>" +
                  name + "</caption>";
        m_html.append(kColumns) += "\n<tbody>\n";
        for (const auto& [setting, value] : key.document) {
            if (setting->group == group.bit) AddRow(key, *setting, value);
        }
        m_html += "</tbody></table>\n</section>\n";
    }

    void AddRow(const ReportedKey& key, const SettingInfo& setting, const Value& value) {
        const auto damage = std::ranges::find(key.damage, &setting, &Damage::setting);
        const bool isDamaged = damage != key.damage.end();
        const bool differs = value != setting.standard;
        m_html += isDamaged ? R"(<tr class="damaged">)" : differs ? R"(<tr class="differs">)" : "<tr>";
        m_html += R"(<th scope="row"><code>)" + Html(setting.name) + R"(</code><span class="about">)" +
                  Html(MeaningOfSetting(setting.name)) + "</span></th>";
        m_html +=
            "<td>" + Words(setting, value) + "</td><td>" + Words(setting, setting.standard) + "</td><td>";
        if (isDamaged) {
            m_html += R"(<span class="mark">Damaged</span>Stored is <code>)" + Html(damage->stored) +
                      "</code>: " + Html(damage->reason) + ". A host reads <code>" + Html(damage->read) +
                      "</code>.";
        } else if (differs) {
            m_html += R"(<span class="mark">Differs</span>)";
        }
        m_html += "</td></tr>\n";
    }

    // A value as the dialog shows it, and the number that is stored for it.
    std::string Words(const SettingInfo& setting, const Value& value) const {
        if (const auto* const text = std::get_if<std::wstring>(&value)) {
            if (text->empty()) return "<em>empty</em>";
            if (setting.secret) return "<em>a password</em>";
            return R"(<code class="text">)" + HtmlText(*text) + "</code>";
        }
        const auto number = std::get<std::int32_t>(value);
        const NumberValues& values = *setting.numbers;
        if (const Choice* const choice = FindChoice(ChoicesFor(values, m_pagesPerSheet), number)) {
            return Translated(choice->text) + R"(<span class="number">)" + std::to_string(number) + "</span>";
        }
        std::string words = std::to_string(number);
        if (values.IsInRange(number) && !values.unit.empty()) words += " " + Html(values.unit);
        return words;
    }

    std::string Translated(std::wstring_view text) const {
        const std::wstring_view translated = m_words.Translated(text);
        std::string html = HtmlText(translated.substr(0, translated.find_last_not_of(L' ') + 1));
        if (m_words.Tag() == "en") return html;
        return R"(<span lang=")" + m_words.Tag() + R"(">)" + html + "</span>";
    }

    const ReportWords& m_words;
    std::int32_t m_pagesPerSheet = 0;  // of the key that is written
    std::string m_html;
};

}  // namespace

std::string HtmlText(std::wstring_view text) {
    std::string html;
    // Control characters have pictures that follow each other as they do.
    constexpr wchar_t kPictures = 0x2400;
    std::wstring plain;
    for (const wchar_t c : text) {
        const bool isShown = c >= 0x20 || c == L'\n' || c == L'\t' || c == L'\r';
        plain += c == 0x7F ? L'\u2421' : isShown ? c : static_cast<wchar_t>(kPictures + c);
    }
    for (const char c : Utf8FromWide(plain)) {
        const auto* const entity = std::ranges::find(kEntities, c, &Entity::character);
        if (entity != std::end(kEntities)) {
            html += entity->html;
        } else if (c != '\r') {
            html += c;
        }
    }
    return html;
}

std::string ReportPage(const std::vector<ReportedKey>& keys, const ReportWords& words,
                       const PageParts& parts) {
    PageWriter page(words);
    page.AddHeader(keys);
    page.AddNavigation();
    const std::string head = page.Take();
    for (std::size_t place = 0; place != keys.size(); ++place) page.AddKey(keys[place], place);
    std::string html = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n";
    html.append(kHead)
        .append("<style>\n")
        .append(parts.style)
        .append("</style>\n</head>\n<body>\n")
        .append(head);
    html.append(kTools).append("<main id=\"settings\">\n").append(page.Take()).append("</main>\n<script>\n");
    return html.append(parts.script).append("</script>\n</body>\n</html>\n");
}

}  // namespace vmk
