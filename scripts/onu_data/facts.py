"""The facts about ONU models and unit types, as the tables under data/facts/ hold them.

An empty cell is unknown and stays out of everything derived from it; a zero was read in a
source and is kept as a zero.
"""

import csv
from dataclasses import dataclass

FIRST_TYPE_CODE = 1001
NAME_LIMIT = 20  # characters of a type name or device name that an ONU can report
FORBIDDEN_IN_NAMES = set(';:"\\')

PON_BITS = {"GPON": 1, "XG-PON": 2, "XGS-PON": 4, "EPON": 8, "10G-EPON": 16}
CAPABILITY = {"SFU": 0, "HGU": 1}

# Column of onu_models.csv -> ability that counts it.
COUNT_COLUMNS = {
    "fe_ports": "FE_PORTS",
    "ge_ports": "GE_PORTS",
    "ge2_5_ports": "GE2_5_PORTS",
    "ge10_ports": "GE10_PORTS",
    "pots_ports": "POTS_PORTS",
    "rf_ports": "RF_PORTS",
    "usb_ports": "USB_PORTS",
    "wifi_24g_ssids": "WIFI_2G4_SSIDS",
    "wifi_5g_ssids": "WIFI_5G_SSIDS",
    "lamps": "LAMPS",
}


@dataclass(frozen=True)
class Model:
    code: int  # type code, also the key value of its profiles
    name: str
    vendor_name: str
    vendor_id: str  # empty when unknown
    kind: str  # SFU, HGU, SFP or empty
    pon: int  # mask of PON_BITS, 0 when unknown
    counts: tuple  # ((ability name, count), ...), known ones only
    equipment_id: str  # empty when unknown
    source: str

    @property
    def type_name(self):
        return self.name[:NAME_LIMIT]

    @property
    def device_name(self):
        """What such a unit is expected to report as its device name."""
        return (self.equipment_id or self.name)[:NAME_LIMIT]

    @property
    def profile_name(self):
        return f"{self.vendor_name} {self.name}".strip()


def _model(code, row):
    name = row["model"]
    if not name.isascii() or not name.isprintable() or FORBIDDEN_IN_NAMES & set(name):
        raise ValueError(f"model name {name!r} does not fit the command help")
    pon = sum(PON_BITS[kind] for kind in row["pon"].split("/") if kind)
    counts = tuple((ability, int(row[column]))
                   for column, ability in COUNT_COLUMNS.items() if row[column])
    return Model(code, name, row["vendor_name"], row["vendor_id"], row["kind"], pon, counts,
                 row["equipment_id"], row["source"])


def read_models(path):
    """The models in file order; the n-th has the type code FIRST_TYPE_CODE + n."""
    with open(path, newline="", encoding="utf-8") as table:
        models = [_model(FIRST_TYPE_CODE + n, row) for n, row in enumerate(csv.DictReader(table))]
    for what in ("type_name", "device_name"):
        names = [getattr(model, what) for model in models]
        if len(set(names)) != len(names):
            raise ValueError(f"two models share a {what}; their patterns could not be told apart")
    return models


def read_unit_types(path):
    """Name of a plug-in unit type -> its code."""
    with open(path, newline="", encoding="utf-8") as table:
        return {row["name"]: int(row["code"]) for row in csv.DictReader(table)
                if row["record"] == "plugin_unit_type"}
