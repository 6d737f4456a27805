#include "tools/policy/policy_definitions.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>
#include <variant>
#include <vector>

#include "settings/choices.h"
#include "tools/policy/policies.h"
#include "tools/policy/settings_list.h"
#include "tools/policy/text.h"
#include "tools/setting_descriptions.h"
#include "tools/settings_reference.h"

namespace vmk::policy {
namespace {

constexpr std::string_view kNamespaces =
    " xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\""
    " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\""
    " xmlns=\"http://schemas.microsoft.com/GroupPolicy/2006/07/PolicyDefinitions\""
    " revision=\"1.0\" schemaVersion=\"1.0\"";
constexpr std::string_view kHead = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";
constexpr std::string_view kGenerated = "<!-- Made from the settings of vmkctrl; do not edit. -->\n";
// The one element of a policy that has one.
constexpr std::string_view kElement = "Value";

// What a policy sets its value to.
enum class Kind { Switch, Choice, Number, Text };

Kind KindOf(const Setting& setting) {
    if (!setting.mayBeNumber) return Kind::Text;
    if (IsSwitch(setting)) return Kind::Switch;
    return setting.Numbers()->HasRange() ? Kind::Number : Kind::Choice;
}

struct Range {
    std::int32_t smallest;
    std::int32_t largest;
};

// A number of its own beside the range has to be next to it, so that one range holds all.
Range RangeOfPolicy(const Setting& setting) {
    const NumberValues& values = *setting.Numbers();
    Range range = {.smallest = values.smallest, .largest = values.largest};
    for (const Choice& choice : values.choices) range.smallest = std::min(range.smallest, choice.value);
    const auto extra = static_cast<std::int64_t>(values.smallest) - range.smallest;
    if (range.smallest < 0 || extra > static_cast<std::int64_t>(values.choices.size())) {
        throw std::logic_error("the numbers of " + std::string(setting.name) +
                               " cannot be those of a policy");
    }
    return range;
}

std::string Identifier(std::string_view name) {
    return Replaced(Replaced(name, '.', "_"), ' ', "_");
}

std::string ValueIdentifier(const Setting& setting, std::int32_t value) {
    return Identifier(setting.name) + "_" + std::to_string(value);
}

std::string StringReference(std::string_view identifier) {
    return "$(string." + std::string(identifier) + ")";
}

std::string CategoryIdentifier(const Setting& setting) {
    return "Category_" + std::string(setting.group);
}

const Setting& SettingOf(const PolicyName& policy) {
    const Setting* const setting = FindSetting(policy.setting);
    if (!setting) throw std::logic_error("there is no setting " + std::string(policy.setting));
    return *setting;
}

// A new setting is made a policy, or left out for a reason.
void CheckTables() {
    for (const Setting& setting : AllSettings()) {
        const auto rows = std::ranges::count(kPolicyNames, setting.name, &PolicyName::setting) +
                          std::ranges::count(kNoPolicies, setting.name, &NoPolicy::setting);
        if (rows == 1) continue;
        throw std::logic_error(std::string(setting.name) + " belongs into one of the tables of policies.h");
    }
}

// The first policy of each group, in their order.
std::vector<const Setting*> GroupsWithPolicies() {
    std::vector<const Setting*> groups;
    for (const PolicyName& policy : kPolicyNames) {
        const Setting& setting = SettingOf(policy);
        if (std::ranges::find(groups, setting.group, &Setting::group) == groups.end())
            groups.push_back(&setting);
    }
    return groups;
}

// --- the language-neutral file

std::string ElementOf(const Setting& setting) {
    const std::string start = Attribute("id", kElement) + Attribute("valueName", setting.name);
    const std::string required = Attribute("required", "true");
    switch (KindOf(setting)) {
        case Kind::Choice: {
            std::string element = "        <enum" + start + required + ">\n";
            for (const Choice& choice : setting.Numbers()->choices) {
                element += "          <item" +
                           Attribute("displayName", StringReference(ValueIdentifier(setting, choice.value))) +
                           "><value><decimal" + Attribute("value", std::to_string(choice.value)) +
                           " /></value></item>\n";
            }
            return element + "        </enum>\n";
        }
        case Kind::Number: {
            const Range range = RangeOfPolicy(setting);
            return "        <decimal" + start + required +
                   Attribute("minValue", std::to_string(range.smallest)) +
                   Attribute("maxValue", std::to_string(range.largest)) + " />\n";
        }
        default:
            return "        <text" + start + " />\n";
    }
}

std::string PolicyElement(const PolicyKey& key, const Setting& setting) {
    const std::string identifier = Identifier(setting.name);
    const bool isSwitch = KindOf(setting) == Kind::Switch;
    std::string policy = "    <policy" + Attribute("name", identifier) + Attribute("class", "User") +
                         Attribute("displayName", StringReference(identifier)) +
                         Attribute("explainText", StringReference(identifier + "_Help")) +
                         Attribute("key", key.Path());
    policy += isSwitch ? Attribute("valueName", setting.name)
                       : Attribute("presentation", "$(presentation." + identifier + ")");
    policy += ">\n      <parentCategory" + Attribute("ref", CategoryIdentifier(setting)) +
              " />\n      <supportedOn" + Attribute("ref", "Supported") + " />\n";
    policy += isSwitch ? "      <enabledValue><decimal" + Attribute("value", "1") +
                             " /></enabledValue>\n      <disabledValue><decimal" + Attribute("value", "0") +
                             " /></disabledValue>\n"
                       : "      <elements>\n" + ElementOf(setting) + "      </elements>\n";
    return policy + "    </policy>\n";
}

// --- the texts of a language

// Texts of other tables mark what is stored by what Markdown marks code with.
std::string Plain(std::string_view text) {
    return Replaced(text, '`', "\"");
}

class Texts {
  public:
    Texts(const PolicyKey& key, const Translation& translation) : m_key(key), m_translation(translation) {}

    std::string All() const {
        std::string strings;
        std::string presentations;
        strings += String("Category", CategoryName());
        strings += String("Supported", m_translation.Of("Vellumark 3.0 on 64-bit Windows"));
        for (const Setting* const setting : GroupsWithPolicies())
            strings += String(CategoryIdentifier(*setting), m_translation.Of(setting->groupName));
        for (const PolicyName& policy : kPolicyNames) {
            const Setting& setting = SettingOf(policy);
            const std::string name = m_translation.Of(policy.name);
            strings += String(Identifier(setting.name), name);
            strings += String(Identifier(setting.name) + "_Help", Help(setting));
            if (KindOf(setting) == Kind::Choice) {
                for (const Choice& choice : setting.Numbers()->choices)
                    strings += String(ValueIdentifier(setting, choice.value), m_translation.Of(choice.text));
            }
            if (KindOf(setting) != Kind::Switch) presentations += Presentation(setting, name);
        }
        const std::string about =
            Xml(m_translation.Of("Policies for the settings of the printing preferences"));
        return std::string(kHead) + std::string(kGenerated) + "<policyDefinitionResources" +
               std::string(kNamespaces) + ">\n  <displayName>" + Xml(CategoryName()) +
               "</displayName>\n  <description>" + about +
               "</description>\n  <resources>\n    <stringTable>\n" + strings +
               "    </stringTable>\n    <presentationTable>\n" + presentations +
               "    </presentationTable>\n  </resources>\n</policyDefinitionResources>\n";
    }

  private:
    static std::string String(std::string_view identifier, std::string_view text) {
        return "      <string" + Attribute("id", identifier) + ">" + Xml(text) + "</string>\n";
    }

    std::string CategoryName() const {
        const std::string name = m_translation.Of("Vellumark 3.0 Printing Preferences");
        return m_key.SubKey().empty() ? name : name + " (" + m_key.SubKey() + ")";
    }

    std::string Help(const Setting& setting) const {
        const docs::SettingDescription& description = *docs::FindDescription(setting.name);
        std::string help = Plain(m_translation.Of(description.meaning)) + "\n\n";
        if (KindOf(setting) == Kind::Number) help += NumbersText(setting) + "\n";
        if (!setting.mayBeNumber) {
            const std::string texts = m_translation.Of(description.texts);
            help += Plain(Filled(m_translation.Of("What it may be: %1."), texts)) + "\n";
        }
        help +=
            Filled(m_translation.Of("Stored as %1; the default is %2."), setting.name, DefaultText(setting));
        help += "\n\n" + m_translation.Of(
                             KindOf(setting) == Kind::Switch
                                 ? "Enabled stores 1, Disabled stores 0."
                                 : "Enabled stores the value. Disabled removes it, and its default counts.");
        return help + " " +
               m_translation.Of(
                   "Users can change the value in the dialog until the next refresh of policy writes it "
                   "again. It stays when the policy is no longer applied.");
    }

    std::string NumbersText(const Setting& setting) const {
        const NumberValues& values = *setting.Numbers();
        const std::string smallest = std::to_string(values.smallest);
        const std::string largest = std::to_string(values.largest);
        std::string text = values.unit.empty() ? Filled(m_translation.Of("From %1 to %2."), smallest, largest)
                                               : Filled(m_translation.Of("From %1 to %2 %3."), smallest,
                                                        largest, m_translation.Of(values.unit));
        for (const Choice& choice : values.choices) {
            text += " " + Filled(m_translation.Of("%1 stands for: %2."), std::to_string(choice.value),
                                 m_translation.Of(choice.text));
        }
        return text;
    }

    std::string DefaultText(const Setting& setting) const {
        if (const auto* const text = std::get_if<std::string>(&setting.byDefault))
            return text->empty() ? m_translation.Of("empty") : *text;
        const auto number = std::get<std::int32_t>(setting.byDefault);
        const Choice* const choice = FindChoice(setting.Numbers()->choices, number);
        return std::to_string(number) + (choice ? " (" + m_translation.Of(choice->text) + ")" : "");
    }

    std::string Presentation(const Setting& setting, const std::string& name) const {
        const std::string reference = Attribute("refId", kElement);
        const std::string label = Xml(name + ":");
        std::string control;
        switch (KindOf(setting)) {
            case Kind::Choice:
                control = "<dropdownList" + reference + Attribute("noSort", "true") +
                          Attribute("defaultItem", std::to_string(PlaceOfDefault(setting))) + ">" + label +
                          "</dropdownList>";
                break;
            case Kind::Number:
                control =
                    "<decimalTextBox" + reference +
                    Attribute("defaultValue", std::to_string(std::get<std::int32_t>(setting.byDefault))) +
                    ">" + label + "</decimalTextBox>";
                break;
            default:
                control = "<textBox" + reference + "><label>" + label + "</label><defaultValue>" +
                          Xml(std::get<std::string>(setting.byDefault)) + "</defaultValue></textBox>";
        }
        return "      <presentation" + Attribute("id", Identifier(setting.name)) + ">" + control +
               "</presentation>\n";
    }

    // The place of the default among the choices.
    static std::ptrdiff_t PlaceOfDefault(const Setting& setting) {
        const auto& choices = setting.Numbers()->choices;
        const Choice* const choice = FindChoice(choices, std::get<std::int32_t>(setting.byDefault));
        if (!choice) throw std::logic_error("the default of " + std::string(setting.name) + " is no choice");
        return choice - choices.data();
    }

    const PolicyKey& m_key;
    const Translation& m_translation;
};

}  // namespace

std::string PolicyDefinitions(const PolicyKey& key) {
    CheckTables();
    const auto category = [](std::string_view identifier) {
        return "    <category" + Attribute("name", identifier) +
               Attribute("displayName", StringReference(identifier));
    };
    std::string categories = category("Category") + " />\n";
    for (const Setting* const setting : GroupsWithPolicies()) {
        categories += category(CategoryIdentifier(*setting)) + ">\n      <parentCategory" +
                      Attribute("ref", "Category") + " />\n    </category>\n";
    }
    std::string policies;
    for (const PolicyName& policy : kPolicyNames) policies += PolicyElement(key, SettingOf(policy));
    return std::string(kHead) + std::string(kGenerated) + "<policyDefinitions" + std::string(kNamespaces) +
           ">\n  <policyNamespaces>\n    <target prefix=\"vmkctrl\" namespace=\"Vellumark.Policies." +
           key.Identifier() +
           "\" />\n  </policyNamespaces>\n  <resources minRequiredRevision=\"1.0\" />\n"
           "  <supportedOn>\n    <definitions>\n"
           "      <definition name=\"Supported\" displayName=\"$(string.Supported)\" />\n"
           "    </definitions>\n  </supportedOn>\n  <categories>\n" +
           categories + "  </categories>\n  <policies>\n" + policies +
           "  </policies>\n</policyDefinitions>\n";
}

std::string PolicyTexts(const PolicyKey& key, const Translation& translation) {
    return Texts(key, translation).All();
}

}  // namespace vmk::policy
