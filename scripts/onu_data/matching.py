"""A plain model of how an ONU is recognised, to prove that the derived data says what it means.

It knows the rules only (search by reported type, then patterns from the newest to the oldest
with wildcards), nothing of how the population was made.
"""

WILDCARDS = (None, "", "any", 0xFFFFFFFF)


def fits(pattern, reported):
    """Whether what an ONU reported contradicts no code of the pattern."""
    for code, value in reported.items():
        expected = pattern.get(code)
        if value in WILDCARDS or expected in WILDCARDS:
            continue
        if value != expected:
            return False
    return True


def reported_values(onu):
    """The compared values of a report: ability name -> number or text."""
    reported = {}
    if onu.get("vendor_id"):
        reported["VENDOR_ID"] = onu["vendor_id"]
    if not onu.get("read_abilities", True):
        return reported
    reported.update(onu.get("abilities", {}))
    if onu.get("device_name"):
        reported["TYPE_NAME"] = onu["device_name"]
    capability = {"sfu": 0, "hgu": 1}.get(onu.get("private_capability"),
                                          onu.get("private_capability"))
    if capability is not None:
        # A known capability decides; the VEIP count is then no longer compared.
        reported["ONU_CAPA"] = capability
        reported.pop("VEIP", None)
    return reported


def recognise(patterns, onu):
    """(type code or None, how) for a report; `patterns` are (type code, pattern) in file order."""
    for code, _ in reversed(patterns):
        if code == onu["reported_type"]:
            return code, "type"
    reported = reported_values(onu)
    for code, pattern in reversed(patterns):
        if fits(pattern, reported):
            return code, "abilities"
    return None, "none"
