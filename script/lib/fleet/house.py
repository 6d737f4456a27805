"""The policies of a made-up house with two units, and what its users get by them. Every policy that there is is used."""
import admx
import client

DOMAIN_USERS_UNITS = ("Print", "Office")

# The page of fonts shows those that are installed and stores no others; the build machine has these.
TEXTS = {"Save.FileName": "%[DocName] – Haus", "Save.Folder": "\\\\server\\Ablage für alle",
         "Fonts.Embedd.Always": "Liberation Sans;Tahoma", "Fonts.Embedd.Never": "Liberation Mono",
         "Overlay.File": "C:\\Haus\\Briefkopf.pdf", "Email.SMTP.Address": "mail.fleet.test"}
ANY_TEXT = "House \"A&B\" <ÄÖß €>"

# What no policy has comes as items of Group Policy Preferences.
HOUSE_ITEMS = ("Links.Border.Color=255", "Info.Title=Titel des Hauses", "Info.Keywords=a;b", "Email.Content=Zeile 1\r\nZeile 2",
               "Security.Digisig.Page=3")
PRINT_ITEMS = ("Info.Title=Titel der Druckerei",)

# The policy objects: where each is linked, how, and what it says. Of those at the domain the later one is stronger.
OLD, HOUSE, PRINT, ENFORCED, UNUSED = "Old house rules", "House rules", "Print room", "Mail server", "Not in use"


def stored_name(definitions, policy):
    element = definitions.element(policy)
    return (policy if element is None else element).get("valueName")


def other_than(definitions, policy, default):
    """A state of the policy that stores something else than the default."""
    element = definitions.element(policy)
    if element is None:
        return "Disabled" if default else "Enabled"
    if admx.bare(element) == "enum":
        options = definitions.options(policy)
        values = [definitions.data(element, option)[1] for option in options]
        return options[(values.index(default) + 1) % len(options)]
    if admx.bare(element) == "decimal":
        return default + 1 if default < admx.numbers(element)[1] else default - 1
    return TEXTS.get(stored_name(definitions, policy), ANY_TEXT)


def last_option(definitions, name):
    return definitions.options(definitions.policy(name))[-1]


def states(definitions, defaults):
    """{object: {policy: state}}."""
    house = {policy.get("name"): other_than(definitions, policy, defaults[stored_name(definitions, policy)])
             for policy in definitions.policies}
    return {
        OLD: {"Paper_Nup": "9 pages", "Info_Author": "Old author", "Compression_Color_JPEGQuality": 1},
        HOUSE: house,
        PRINT: {"Paper_Nup": "16 pages", "Compression_Color_Method": last_option(definitions, "Compression_Color_Method"),
                "Info_Author": "Druckerei", "Watermarks_Print": "Disabled", "Optimization_SwapToDisk": "Disabled",
                "Email_CC": "Disabled", "Email_SMTP_Port": 26},
        ENFORCED: {"Email_SMTP_Port": 2525},
        UNUSED: {"Info_Creator": "nobody", "Email_SMTP_Port": 1},
    }


def entries(definitions, chosen):
    return [entry for name, state in chosen.items() for entry in definitions.entries(name, state)]


def order(unit):
    """The objects that users of a unit get, the strongest at the end, as somebody reads it off the list above."""
    return [OLD, HOUSE, *([PRINT] if unit == "Print" else []), ENFORCED]


def shown(definitions, chosen, unit):
    """{setting: what people read of it} after all policies: texts and numbers as they were chosen."""
    texts = {}
    for name in order(unit):
        for policy_name, state in chosen[name].items():
            policy = definitions.policy(policy_name)
            setting = stored_name(definitions, policy)
            if definitions.element(policy) is None:
                texts[setting] = "On" if state == "Enabled" else "Off"
            elif state == "Disabled":
                texts.pop(setting)
            else:
                texts[setting] = str(state)
    for item in HOUSE_ITEMS + (PRINT_ITEMS if unit == "Print" else ()):
        setting, _, value = item.partition("=")
        texts[setting] = value
    return texts


def expected_values(all_entries, all_items, unit):
    """The values of a user of the unit, without looking at what the domain says."""
    parts = [all_entries[name] for name in order(unit)] + [all_items[HOUSE]]
    if unit == "Print":
        parts.append(all_items[PRINT])
    return client.applied({}, [entry for part in parts for entry in part])
