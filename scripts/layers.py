#!/usr/bin/env python3
"""Fails on an #include that runs against the direction of dependencies.

Each layer names its files (by path pattern under src/, the first that fits
counts) and the layers that it may include besides itself. What is not listed
here is refused, so a new folder has to find its place first.
"""

import fnmatch
import pathlib
import re
import sys

LIBRARY = ["platform", "vocabulary", "hooks", "attributes", "codes", "profile", "table_base",
           "tables", "manager", "confirmation", "table_area", "queries", "command_line"]
HOST_BASE = LIBRARY + ["host platform", "host text"]
AREA = "onu_ability_common/"
TABLE = AREA + "onu_ability_common_table/"

# (layer, patterns, layers that it may include)
LAYERS = [
    ("platform", ["platform/*"], []),
    ("vocabulary", [AREA + "onu_ability_common_global*"], ["platform"]),
    ("hooks", [AREA + "onu_ability_common_reg_extern_func*"], ["platform", "vocabulary"]),
    # The places where a lower thing has to ask a higher one, in sources of their own.
    ("attributes, deletion", [TABLE + "onu_ability_attr_info_deletion.cpp"], LIBRARY[:5]),
    ("codes, deletion", [TABLE + "onu_ability_code_info_deletion.cpp"], LIBRARY[:9]),
    ("attributes", [TABLE + "onu_ability_attr_info*", TABLE + "onu_ability_code_attr_info.cpp"],
     LIBRARY[:3]),
    ("codes", [TABLE + "onu_ability_code_info*", TABLE + "ability_*", TABLE + "name_text.h",
               TABLE + "registered_codes.*"], LIBRARY[:4]),
    ("profile", [TABLE + "onu_ability_profile*", TABLE + "held_ports.*"], LIBRARY[:5]),
    ("manager", [TABLE + "onu_ability_table_manager*"], LIBRARY[:8]),
    ("table_base",
     [TABLE + "onu_ability_table_*", TABLE + "*_index.*", TABLE + "table_lock.h"], LIBRARY[:6]),
    ("tables", [TABLE + "onu_match_ability_table*", TABLE + "onu_real_ability_table*"],
     LIBRARY[:7]),
    ("confirmation", [TABLE + "confirm_onu_type*"], LIBRARY[:9]),
    ("table_area", [AREA + "onu_ability_common_table.h"], LIBRARY[:10]),
    ("queries", [AREA + "onu_ability_common_service_cinterface*"], LIBRARY[:11]),
    ("command_line", [AREA + "onu_ability_common_service_cli*"], LIBRARY[:12]),
    ("host platform", ["olt_host/platform/*"], LIBRARY),
    ("host text", ["olt_host/text/*"], []),
    ("host vty", ["olt_host/vty/*"], HOST_BASE),
    ("host catalogue", ["olt_host/catalogue/*"], HOST_BASE),
    ("host confirmation", ["olt_host/confirmation/*"], LIBRARY + ["host text", "host catalogue"]),
    ("host state", ["olt_host/state/*"], HOST_BASE + ["host catalogue"]),
    ("host recognition", ["olt_host/recognition/*"],
     HOST_BASE + ["host catalogue", "host confirmation", "host state"]),
    ("host generation", ["olt_host/generation/*"],
     HOST_BASE + ["host catalogue", "host confirmation", "host state", "host recognition"]),
    ("host network", ["olt_host/network/*"],
     HOST_BASE + ["host catalogue", "host confirmation", "host state", "host recognition",
                  "host generation"]),
    ("host session", ["olt_host/session/*"], HOST_BASE + ["host vty"]),
    ("host transport", ["olt_host/transport/*"], HOST_BASE + ["host vty", "host session"]),
    ("host commands", ["olt_host/commands/*"],
     HOST_BASE + ["host vty", "host catalogue", "host confirmation", "host state",
                  "host recognition", "host session"]),
    ("host program", ["olt_host/*"],
     HOST_BASE + ["host vty", "host catalogue", "host confirmation", "host state",
                  "host recognition", "host generation", "host network", "host session",
                  "host transport", "host commands"]),
]

# Where an include by bare name is looked for.
ROOTS = ["", "platform/", "onu_ability_common/", "olt_host/"]
# Made at build time, for the command line only.
GENERATED = {"onu_type_help.h"}
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"')


def layer_of(path):
    for name, patterns, may_include in LAYERS:
        if any(fnmatch.fnmatch(path, pattern) for pattern in patterns):
            return name, may_include
    return None, []


def resolve(source, included, files):
    near = str(pathlib.PurePosixPath(source).parent / included)
    return next((path for path in [near] + [root + included for root in ROOTS] if path in files),
                None)


def main():
    src = pathlib.Path(__file__).resolve().parent.parent / "src"
    files = {str(path.relative_to(src)) for suffix in ("*.h", "*.cpp") for path in src.rglob(suffix)}
    errors = []
    arrows = 0
    for source in sorted(files):
        name, may_include = layer_of(source)
        if name is None:
            errors.append(f"src/{source}: belongs to no layer; add it to scripts/layers.py")
            continue
        for number, line in enumerate((src / source).read_text().splitlines(), 1):
            match = INCLUDE.match(line)
            if not match or match[1] in GENERATED:
                continue
            target = resolve(source, match[1], files)
            if target is None:
                errors.append(f"src/{source}:{number}: no header {match[1]} under src/")
                continue
            arrows += 1
            target_layer = layer_of(target)[0]
            if target_layer != name and target_layer not in may_include:
                errors.append(f"src/{source}:{number}: {name} must not include {target_layer} "
                              f"({match[1]})")
    for error in errors:
        print(error, file=sys.stderr)
    if not errors:
        print(f"layers: {arrows} includes in {len(files)} files all point down")
    return 1 if errors else 0


if __name__ == "__main__":
    sys.exit(main())
