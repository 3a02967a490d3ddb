"""The derived files as text: YAML laid out for reading, and the list of ONU types."""

from onu_data.catalogue import ATTRIBUTES, CODE_GROUPS, CODES, COMMON_TYPES

WIDTH = 100
ORIGIN = "# Derived by scripts/derive_data.py from data/facts/; change those, not this file.\n"
# Tells editors which schema a file follows; they look for it in the first lines.
MODELINE = "# yaml-language-server: $schema=schema/{}.schema.json\n"
BARE_WORDS = {"any", "unknown", "none", "type", "abilities", "sfu", "hgu"}


class Raw(str):
    """Text that is YAML already."""


def scalar(value):
    if isinstance(value, bool):
        return "true" if value else "false"
    if isinstance(value, int) or value in BARE_WORDS:
        return str(value)
    return '"' + value.replace("\\", "\\\\").replace('"', '\\"') + '"'


def _entries(entries):
    return [f"{key}: {value if isinstance(value, Raw) else scalar(value)}"
            for key, value in entries.items()]


def flow_map(entries):
    return "{" + ", ".join(_entries(entries)) + "}"


def wrapped(lead, entries, indent):
    """A flow map after `lead`, broken between entries so that lines keep within WIDTH."""
    parts = _entries(entries)
    lines = [lead + "{"]
    for n, part in enumerate(parts):
        text = part + ("}" if n + 1 == len(parts) else ",")
        if len(lines[-1]) + 1 + len(text) <= WIDTH:
            lines[-1] += ("" if lines[-1].endswith("{") else " ") + text
        else:
            lines += _folded(text, indent)
    return "\n".join(lines) + "\n"


def _folded(text, indent):
    """One entry on a line of its own, continued on the next where its map is too long."""
    text = " " * indent + text
    if len(text) <= WIDTH:
        return [text]
    cut = text.rindex(", ", 0, WIDTH) + 1
    return [text[:cut]] + _folded(text[cut + 1:], indent + 2)


def comment(text, indent=2):
    return "".join(" " * indent + f"# {line}\n" for line in text.splitlines())


def _code_entry(code, unit_types):
    attributes = {"CONFIRM_TYPE": code.confirm, "UNIT": unit_types[code.unit] if code.unit else 0,
                  "LAMP": code.lamp, "PORT_TYPE": code.port_type}
    attributes = {name: value for name, value in attributes.items() if value}
    if code.text:
        attributes["VALUE_TYPE"] = Raw("string")
    entry = {"code": code.code, "name": Raw(code.name)}
    if attributes:
        entry["attributes"] = Raw(flow_map(attributes))
    if code.help:
        entry["help"] = code.help
    return wrapped("  - ", entry, 5)


def _profile(profile):
    return (f"  - key: {profile.key}\n    source: {scalar(profile.source)}\n"
            + wrapped("    abilities: ", profile.abilities, 6))


def catalogue(data, unit_types):
    text = MODELINE.format("catalogue") + ORIGIN
    text += "# data/README.md tells what the facts are and where they come from.\n\n"
    text += 'catalogue: {name: "Public ONU models", version: "2026-11-21"}\n'
    text += f"key_ability_code: {CODES['TYPE_KEY'].code}\n"
    text += f"common_types: {flow_map(COMMON_TYPES)}\n\n"
    text += ("# CONFIRM_TYPE: 1 compared with patterns, 2 asked from the ONU. UNIT: plug-in unit"
             " type.\n# LAMP: counts lamps. PORT_TYPE: kind of port. VALUE_TYPE: number or"
             " string.\nattributes:\n")
    text += "".join(f"  - {{id: {id_}, name: {name}}}\n" for id_, name in ATTRIBUTES)
    text += "\ncodes:\n"
    for about, codes in CODE_GROUPS:
        text += comment(about) + "".join(_code_entry(code, unit_types) for code in codes)
    text += ("\n# What a type can do. An absent code is zero, or in no source that was read.\n"
             "real_profiles:\n")
    text += "".join(_profile(profile) for profile in data.real)
    text += ("\n# What an ONU of the type reports. An absent code is unknown and blocks no match; a"
             " 0 was read.\n# The last pattern is tried first. The two common types are the last"
             " resort; the others stand\n# by growing number of compared codes, so that a pattern"
             " whose demands are part of another's\n# is tried after it.\nmatch_profiles:\n")
    return text + "".join(_profile(profile) for profile in data.match)


def onu_types(data):
    lines = [f"{code} {name}" for code, name in sorted(data.names.items())]
    return ORIGIN + "\n".join(lines) + "\n"


def _onu(onu):
    entry = {key: value for key, value in onu.items() if key != "about"}
    for key in ("abilities", "expect"):
        if key in entry:
            entry[key] = Raw(flow_map(entry[key]))
    return comment(onu["about"]) + wrapped("  - ", entry, 5)


def reports(population):
    text = MODELINE.format("reports") + ORIGIN
    text += "# An invented population: no ONU below exists. data/README.md tells how it"
    text += " was made up.\n\nreports: {name: \"Invented population of the public ONU models\"}\n"
    text += "identify:\n  default: {sfu_mode: 0, setting_1: 0, hgu_mode: 0, setting_3: 0}\n"
    text += "  places:\n"
    text += "".join(f"    - {flow_map({'place': place, **modes})}\n"
                    for place, modes in population.modes.items())
    text += "onus:\n"
    place = None
    for onu in population.onus:
        if onu["place"] != place:
            place = onu["place"]
            text += f"\n  # ---- place {place}: {population.about(place)}\n"
        text += _onu(onu)
    return text
