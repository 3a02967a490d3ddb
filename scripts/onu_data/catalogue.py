"""The catalogue: attributes, ability codes and the profiles of every type."""

from dataclasses import dataclass

from onu_data.facts import CAPABILITY

COMMON_TYPES = {"sfu": 857, "hgu": 762}
HOUSE_VENDOR = "ZKWM"
HOUSE_HGU, HOUSE_SFU = 9001, 9002

COMPARED = 1  # takes part when a report is matched against the patterns
ASKED = 2  # read from the ONU, one by one
LAN_PORT, DATA_UNI = 3, 7


@dataclass(frozen=True)
class Code:
    code: int
    name: str
    confirm: int = 0
    unit: str = ""  # name of its plug-in unit type
    lamp: int = 0
    port_type: int = 0
    text: bool = False
    help: str = ""


CODE_GROUPS = [
    ("Ports: the code is the plug-in unit type where the ports have one of their own.\n"
     "Port types: 1 telephone, 2 video, 3 LAN, 4 USB host, 7 other data UNI. A VEIP carries the\n"
     "data of a gateway's LAN side to the OLT; code 48 is set aside for the comparison as soon as\n"
     "the ONU's private capability is known.", [
         Code(24, "FE_PORTS", 3, "10/100BASE-T", port_type=LAN_PORT),
         Code(32, "POTS_PORTS", 3, "POTS", port_type=1),
         Code(38, "RF_PORTS", 3, "Video service", port_type=2),
         Code(47, "GE_PORTS", 3, "10/100/1000BASE-T", port_type=LAN_PORT),
         Code(48, "VEIP", 3, "VEIP", port_type=DATA_UNI, help="virtual Ethernet interface points"),
         Code(49, "GE10_PORTS", 3, "10GBASE-T", port_type=LAN_PORT),
         Code(50, "GE2_5_PORTS", 3, "2.5GBASE-T", port_type=LAN_PORT)]),
    ("Derived totals. No port type, or they would be summed again; not compared, because a\n"
     "pattern that lacks one kind of port has too small a total.", [
         Code(1001, "ALL_LAN", help="sum of the LAN ports")]),
    ("ONU capability: 0 SFU, 1 HGU.", [
         Code(1002, "ONU_CAPA", 3, help="0 SFU, 1 HGU")]),
    ("Access side: a mask of PON kinds (1 GPON, 2 XG-PON, 4 XGS-PON, 8 EPON, 16 10G-EPON) and\n"
     "whether the unit is a pluggable stick.", [
         Code(1010, "PON_KIND", 3, help="1 GPON, 2 XG-PON, 4 XGS-PON, 8 EPON, 16 10G-EPON"),
         Code(1011, "SFP_FORM", 3, help="1 pluggable stick, 0 own housing")]),
    ("Lamps and USB sockets: known of the type, reported by no ONU.", [
         Code(1012, "LAMPS", lamp=1, help="indicator lamps"),
         Code(1013, "USB_PORTS", port_type=4, help="USB host sockets")]),
    ("Non-zero in a real profile: the identify modes translate the reported type.", [
         Code(1023, "TRANS_TYPE", help="1: identify modes translate the reported type")]),
    ("Both radio bands are the same plug-in unit type, so they have codes of their own.", [
         Code(1040, "WIFI_2G4_SSIDS", 3, "802.11", port_type=DATA_UNI),
         Code(1041, "WIFI_5G_SSIDS", 3, "802.11", port_type=DATA_UNI)]),
    ("Types and the key: never compared, or an ONU that reports an unknown type would match no\n"
     "pattern.", [
         Code(1080, "REPORT_TYPE"), Code(1081, "REAL_TYPE"),
         Code(1082, "VENDOR_ID", COMPARED, text=True),
         Code(1083, "TYPE_NAME", COMPARED, text=True,
              help="type name; in a report and a pattern the device name"),
         Code(1085, "TYPE_KEY", help="key ability code"),
         Code(1093, "PROFILE_NAME", text=True)]),
    ("", [Code(65533, "DATA_UNI_TOTAL", help="sum of the data UNIs")]),
]
ATTRIBUTES = [(1, "CONFIRM_TYPE"), (2, "UNIT"), (3, "LAMP"), (4, "PORT_TYPE"), (5, "VALUE_TYPE")]
CODES = {code.name: code for _, codes in CODE_GROUPS for code in codes}


@dataclass(frozen=True)
class Profile:
    key: int
    abilities: dict
    source: str

    def compared(self):
        return {name: value for name, value in self.abilities.items()
                if CODES[name].confirm & COMPARED}


def by_code(abilities):
    """Without unknowns, in the order of the ability codes."""
    known = {name: value for name, value in abilities.items() if value not in (None, "")}
    return dict(sorted(known.items(), key=lambda item: CODES[item[0]].code))


def real_profile(model):
    """What the type can do. Zeros are a real profile's default and are not stored."""
    abilities = dict(model.counts)
    abilities.update(
        REPORT_TYPE=model.code, REAL_TYPE=model.code, VENDOR_ID=model.vendor_id,
        TYPE_NAME=model.type_name, PROFILE_NAME=model.profile_name, PON_KIND=model.pon,
        SFP_FORM=int(model.kind == "SFP"), ONU_CAPA=CAPABILITY.get(model.kind, 0),
        TRANS_TYPE=int(model.kind in CAPABILITY))
    non_zero = {name: value for name, value in abilities.items() if value != 0}
    return Profile(model.code, by_code(non_zero), model.source)


def match_profile(model):
    """The pattern of the type: the types it stands for and whatever is compared, zeros included."""
    abilities = {name: value for name, value in model.counts if CODES[name].confirm & COMPARED}
    abilities.update(
        REPORT_TYPE=model.code, REAL_TYPE=model.code, VENDOR_ID=model.vendor_id,
        TYPE_NAME=model.device_name, PROFILE_NAME=model.profile_name, PON_KIND=model.pon or None,
        SFP_FORM={"SFP": 1, "SFU": 0, "HGU": 0}.get(model.kind),
        ONU_CAPA=CAPABILITY.get(model.kind))
    source = model.source
    if not model.equipment_id:
        source += "; device name assumed to be the model name"
    return Profile(model.code, by_code(abilities), source)


def _own_type(key, name, source, real, match):
    names = {"REPORT_TYPE": key, "REAL_TYPE": key, "TYPE_NAME": name, "PROFILE_NAME": name}
    pattern = {code: value for code, value in names.items() if code != "TYPE_NAME"}
    return (Profile(key, by_code({**names, **real}), source),
            Profile(key, by_code({**pattern, **match}), source))


def common_types():
    """(real, match) of the two common types, recognised by capability or VEIP alone."""
    source = "own definition: common type"
    return [
        _own_type(COMMON_TYPES["hgu"], "HGU-COMMON", source,
                  {"ONU_CAPA": 1, "VEIP": 1}, {"ONU_CAPA": 1, "VEIP": 1}),
        _own_type(COMMON_TYPES["sfu"], "SFU-COMMON", source,
                  {}, {"ONU_CAPA": 0, "VEIP": 0}),
    ]


def house_types():
    """(real, match) of two invented types whose vendor identify modes 3 and 4 single out."""
    source = "invented: an example of a type whose vendor the HGU identify modes 3 and 4 single out"
    common = {"VENDOR_ID": HOUSE_VENDOR, "PON_KIND": 1}
    hgu, sfu = {**common, "GE_PORTS": 4, "POTS_PORTS": 2}, {**common, "GE_PORTS": 1}
    return [
        _own_type(HOUSE_HGU, "EXAMPLE-HGU-4G2P", source, {**hgu, "ONU_CAPA": 1, "TRANS_TYPE": 1},
                  {**hgu, "ONU_CAPA": 1, "SFP_FORM": 0, "TYPE_NAME": "EXAMPLE-HGU-4G2P"}),
        _own_type(HOUSE_SFU, "EXAMPLE-SFU-1G", source, {**sfu, "TRANS_TYPE": 1},
                  {**sfu, "ONU_CAPA": 0, "SFP_FORM": 0, "TYPE_NAME": "EXAMPLE-SFU-1G"}),
    ]


@dataclass(frozen=True)
class Catalogue:
    real: list  # profiles, in the order of their keys
    match: list  # profiles, in file order: the last is tried first
    names: dict  # type code -> name of the model or type


def build(models):
    """Match profiles: common types first, then by growing number of compared codes.

    The search starts at the end, so the pattern that asks most of an ONU is tried first; a
    pattern whose demands are part of another's has fewer of them and always stands before it.
    """
    common, house = common_types(), house_types()
    real = [profile for profile, _ in common + house] + [real_profile(m) for m in models]
    match = [profile for _, profile in house] + [match_profile(m) for m in models]
    match.sort(key=lambda profile: (len(profile.compared()), profile.key))
    names = {profile.key: profile.abilities["TYPE_NAME"] for profile, _ in common + house}
    names.update((model.code, model.name) for model in models)
    return Catalogue(sorted(real, key=lambda profile: profile.key),
                     [profile for _, profile in common] + match, names)
