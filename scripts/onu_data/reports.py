"""The invented population: ONUs of the catalogue's types, and what each is expected to become.

Every expectation follows from how the ONU was made. One that could be taken for several types
has none; its comment says so.
"""

from onu_data.catalogue import COMMON_TYPES, HOUSE_HGU, HOUSE_SFU, HOUSE_VENDOR, by_code
from onu_data.dice import Dice
from onu_data.facts import PON_BITS

SEED = 20261121
FOREIGN_PON = 64  # a PON kind that no type of the catalogue has
TECHNOLOGIES = ["GPON", "GPON", "GPON", "XGS-PON", "GPON", "EPON", "GPON", "GPON", "10G-EPON"]
PLACE_SIZES = [64, 1, 32, 17, 48, 24, 8, 40, 4, 33, 12, 52, 21, 2, 28, 19, 9, 44, 30, 6, 26, 38,
               15, 29]
# What the host answers about translation; every other place keeps the reported types.
MODES = {
    3: {"hgu_mode": 1}, 5: {"hgu_mode": 2}, 8: {"hgu_mode": 3}, 10: {"hgu_mode": 4},
    12: {"sfu_mode": 1}, 15: {"sfu_mode": 1, "hgu_mode": 2}, 18: {"sfu_mode": 2, "hgu_mode": 9},
    22: {"setting_1": 7, "hgu_mode": 4, "setting_3": 1},
}
KINDS = {
    "known": 61, "named": 9, "recognisable": 6, "nameless": 3, "sparse": 6, "name_alone": 3,
    "mistaken_type": 2, "other_ports": 2, "stranger": 4, "unmatched": 3, "silent": 1,
}
HOUSE_PLACES = [1, 5, 8, 10, 12, 15, 22]
WILD = "any"
PORTS = ("GE_PORTS", "FE_PORTS", "GE10_PORTS")
KEY_ORDER = ["about", "place", "onu", "vendor_id", "reported_type", "read_abilities", "device_name",
             "private_capability", "abilities", "expect"]


def translated(place, real_type, capability, flagged, vendor_id):
    """The reported type after the place's identify modes."""
    modes = MODES.get(place, {})
    if not flagged:
        return real_type
    if capability == 0:
        return COMMON_TYPES["sfu"] if modes.get("sfu_mode") == 1 else real_type
    of_house = vendor_id == HOUSE_VENDOR
    gives_common = {2: True, 3: not of_house, 4: of_house}
    mode = modes.get("hgu_mode", 0)
    if mode == 1:
        return COMMON_TYPES["sfu"]
    return COMMON_TYPES["hgu"] if gives_common.get(mode, False) else real_type


class Population:
    def __init__(self, models, data):
        self.onus = []
        self.modes = MODES
        self._dice = Dice(SEED)
        self._models = models
        self._real = {profile.key: profile.abilities for profile in data.real}
        self._patterns = {profile.key: profile.compared() for profile in data.match}
        for place, size in enumerate(PLACE_SIZES, start=1):
            self._fill(place, size)

    def about(self, place):
        modes = ", ".join(f"{name} {value}" for name, value in MODES.get(place, {}).items())
        return f"{self._technology(place)}, {modes or 'no translation'}"

    def _technology(self, place):
        return TECHNOLOGIES[(place - 1) % len(TECHNOLOGIES)]

    def _fill(self, place, size):
        bit = PON_BITS[self._technology(place)]
        pool = [m for m in self._models if m.pon & bit or (not m.pon and bit == PON_BITS["GPON"])]
        house = [HOUSE_HGU, HOUSE_SFU] if place in HOUSE_PLACES else []
        pools = {
            "recognisable": [m for m in pool if self._is_recognisable(m)],
            "other_ports": [m for m in pool if self._counted_port(m)],
        }
        for number in range(1, size + 1):
            if house:
                onu = self._house(house.pop(0), unknown=(number + place) % 2 == 0)
            else:
                kind = self._dice.weighted(KINDS)
                choice = pools.get(kind, pool)
                kind, choice = (kind, choice) if choice else ("known", pool)
                onu = getattr(self, "_" + kind)(self._dice.one_of(choice))
            expected = onu.pop("truth")
            onu.update(place=place, onu=number)
            if expected is not None:
                onu["expect"] = self._expectation(place, onu, *expected)
            if "abilities" in onu:
                onu["abilities"] = by_code(onu["abilities"])
            self.onus.append({key: onu[key] for key in KEY_ORDER if key in onu})

    def _expectation(self, place, onu, real_type, how):
        if how == "none":
            return {"real_type": "none", "how": how, "report_type": self._low(onu)}
        real = self._real[real_type]
        # The match profile replaces the report, so its vendor is the one that counts.
        vendor_id = self._patterns[real_type].get("VENDOR_ID")
        report_type = translated(place, real_type, real.get("ONU_CAPA", 0),
                                 real.get("TRANS_TYPE", 0), vendor_id)
        return {"real_type": real_type, "how": how, "report_type": report_type}

    @staticmethod
    def _low(onu):
        return 0xFFFF if onu["reported_type"] == "unknown" else onu["reported_type"] & 0xFFFF

    def _unknown_type(self):
        """A type code that no profile has: later than the catalogue, or none at all."""
        return "unknown" if self._dice.chance(30) else 20000 + self._dice.below(100000)

    def _unit(self, code, reported_type):
        """A complete report of a unit of the type."""
        pattern = dict(self._patterns[code])
        onu = {"vendor_id": pattern.pop("VENDOR_ID", None), "reported_type": reported_type,
               "device_name": pattern.pop("TYPE_NAME", None)}
        capability = pattern.pop("ONU_CAPA", None)
        if capability is not None:
            pattern["VEIP"] = capability
            if self._dice.chance(60):
                onu["private_capability"] = ("sfu", "hgu")[capability]
        onu["abilities"] = pattern
        return {key: value for key, value in onu.items() if value not in (None, {})}

    def _known(self, model):
        return {**self._unit(model.code, model.code), "about": model.profile_name,
                "truth": (model.code, "type")}

    def _named(self, model):
        return {**self._unit(model.code, self._unknown_type()),
                "about": f"{model.profile_name}, its type unknown here",
                "truth": (model.code, "abilities")}

    def _house(self, code, unknown):
        reported_type = self._unknown_type() if unknown else code
        how = "abilities" if unknown else "type"
        return {**self._unit(code, reported_type), "truth": (code, how),
                "about": f"made-up unit of vendor {HOUSE_VENDOR}"}

    def _without_name(self, model, reported_type):
        onu = self._unit(model.code, reported_type)
        del onu["device_name"]
        return onu

    def _is_recognisable(self, model):
        """Whether its pattern demands most of those that fit a unit without a device name."""
        onu = self._without_name(model, "unknown")
        onu.pop("private_capability", None)
        return self._as_specific(model.code, onu) == 0

    def _recognisable(self, model):
        onu = self._without_name(model, self._unknown_type())
        known_by = "vendor and ports" if "vendor_id" in onu else "ports"
        return {**onu, "about": f"{model.profile_name}, known by its {known_by} alone",
                "truth": (model.code, "abilities")}

    def _nameless(self, model):
        onu = self._without_name(model, self._unknown_type())
        rivals = self._as_specific(model.code, onu)
        if rivals == 0:
            return self._recognisable(model)
        return {**onu, "about": f"{model.profile_name} without a device name: no expectation,\n"
                f"{rivals} other types fit as closely", "truth": None}

    def _as_specific(self, code, onu):
        """How many other patterns contradict nothing reported and demand as much or more."""
        said = {**onu["abilities"], "VENDOR_ID": onu.get("vendor_id")}
        if "private_capability" in onu:
            said["ONU_CAPA"] = ("sfu", "hgu").index(onu["private_capability"])
            said.pop("VEIP", None)
        said = {name: value for name, value in said.items() if value is not None}
        return sum(1 for other, pattern in self._patterns.items()
                   if other != code and len(pattern) >= len(self._patterns[code])
                   and all(pattern.get(name, value) == value for name, value in said.items()))

    def _sparse(self, model):
        """A known type is believed, however little else the unit tells."""
        onu = self._unit(model.code, model.code)
        loss = self._dice.below(4)
        if loss == 0:
            onu = {"reported_type": model.code, "read_abilities": False}
        elif loss == 1:
            onu.pop("vendor_id", None)
            del onu["device_name"]
        elif loss == 2:
            onu["abilities"] = {name: WILD for name in onu.get("abilities", {"GE_PORTS": WILD})}
        else:
            onu.pop("abilities", None)
        lost = ["abilities cannot be read", "no vendor, no device name", "every ability a wildcard",
                "no ability reported"][loss]
        return {**onu, "about": f"{model.profile_name}: {lost}", "truth": (model.code, "type")}

    def _name_alone(self, model):
        onu = self._unit(model.code, self._unknown_type())
        wild = {name: WILD for name in onu.get("abilities", {})}
        return {"reported_type": onu["reported_type"], "device_name": onu["device_name"],
                **({"abilities": wild} if wild else {}),
                "about": f"{model.profile_name}: only the device name tells",
                "truth": (model.code, "abilities")}

    def _mistaken_type(self, model):
        other = self._models[(model.code + 41) % len(self._models)]
        return {**self._unit(model.code, other.code), "truth": (other.code, "type"),
                "about": f"{model.profile_name} that reports the type of {other.profile_name}:\n"
                         "the reported type is believed"}

    def _counted_port(self, model):
        return next((name for name in PORTS if name in self._patterns[model.code]), None)

    def _other_ports(self, model):
        """The name of a model, a port count that it does not have: not that model."""
        onu = self._unit(model.code, self._unknown_type())
        onu["abilities"][self._counted_port(model)] += 3
        onu["private_capability"] = role = self._dice.one_of(["sfu", "hgu"])
        return {**onu, "truth": (COMMON_TYPES[role], "abilities"),
                "about": f"calls itself {model.profile_name} with other ports: common type"}

    def _foreign(self, abilities):
        number = 100 + self._dice.below(900)
        onu = {"reported_type": self._unknown_type(), "device_name": f"NEW-ONU-{number}",
               "abilities": dict(abilities)}
        return {"vendor_id": "XNEW", **onu} if self._dice.chance(70) else onu

    def _stranger(self, _model):
        """A model that the catalogue lacks; what it can do makes it a common type."""
        role = self._dice.one_of(["sfu", "hgu"])
        onu = self._foreign({"GE_PORTS": 1 + self._dice.below(8)})
        if self._dice.chance(50):
            onu["private_capability"] = role
            told = "its capability"
        else:
            onu["abilities"]["VEIP"] = ("sfu", "hgu").index(role)
            told = "its VEIP count"
        return {**onu, "about": f"unlisted model, common type by {told}",
                "truth": (COMMON_TYPES[role], "abilities")}

    def _unmatched(self, _model):
        onu = self._foreign({"FE_PORTS": 24, "PON_KIND": FOREIGN_PON})
        if self._dice.chance(50):
            onu["private_capability"] = 2
            told = "a capability that is neither SFU nor HGU"
        else:
            onu["abilities"]["VEIP"] = 2
            told = "two VEIPs"
        return {**onu, "about": f"unlisted multi-dwelling unit with {told}: nothing matches",
                "truth": (None, "none")}

    def _silent(self, _model):
        return {"reported_type": "unknown", "read_abilities": False, "truth": None,
                "about": "tells nothing at all: no expectation, every pattern fits"}
