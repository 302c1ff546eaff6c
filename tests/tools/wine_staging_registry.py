"""[registry] under Wine beyond what `reg import` can: keys that refuse, and data byte for byte."""

import re

from machine_text import Staging
from wine_staging import Orders

KEY = re.compile(r"\[(?P<minus>-?)HKEY_LOCAL_MACHINE\\(?P<key>[^\]]+)\]", re.IGNORECASE)
RAW = re.compile(r'"(?P<name>(?:\\.|[^"\\])*)"=hex\((?P<type>[0-9a-f]+)\):(?P<data>[0-9a-f,]*)', re.IGNORECASE)
HIVE = "HKEY_LOCAL_MACHINE\\"


def add_orders(staging: Staging, orders: Orders) -> None:
    """Raw data goes by the stager, which adds no terminator and rounds nothing; then the refusals."""
    if "registry" not in staging.stages:
        return
    for key, name, kind, data in raw_values(staging.registry):
        orders.add("raw", key, name, kind, data)
    for key in staging.refused_keys:
        for refused in (key[len(HIVE):], *keys_below(key, staging.registry)):
            orders.add("refuse", refused, undo=("allow", refused))


def keys_below(key: str, lines: list[str]) -> list[str]:
    """The keys that the lines make below `key`: where it is refused, they are as well."""
    below = (key + "\\").lower()
    headings = filter(None, map(KEY.fullmatch, lines))
    return list(dict.fromkeys(heading["key"] for heading in headings
                              if (HIVE + heading["key"]).lower().startswith(below)))


def importable(staging: Staging) -> list[str]:
    """The lines for `reg import`: without those that the stager takes care of, which it may not survive."""
    if "registry" not in staging.stages:
        return staging.registry
    return [line for line in joined(staging.registry) if not RAW.fullmatch(line)]


def raw_values(lines: list[str]) -> list[tuple[str, str, str, str]]:
    """Key, name, number of the type and digits of each value that is written as `hex(TYPE):`."""
    found, key = {}, ""
    for line in joined(lines):
        heading = KEY.fullmatch(line)
        if heading:
            key = heading["key"]
            if heading["minus"]:
                found = {at: value for at, value in found.items()
                         if not (at[0] + "\\").startswith(key.lower() + "\\")}
            continue
        name = re.match(r'"((?:\\.|[^"\\])*)"=', line)
        if name:
            found.pop((key.lower(), name[1].lower()), None)
        raw = RAW.fullmatch(line)
        if raw:
            plain = re.sub(r"\\(.)", r"\1", raw["name"])
            found[key.lower(), raw["name"].lower()] = (key, plain, str(int(raw["type"], 16)),
                                                       raw["data"].replace(",", ""))
    return list(found.values())


def joined(lines: list[str]) -> list[str]:
    """The lines, each with those that a backslash at its end continues."""
    whole, begun = [], ""
    for line in lines:
        if line.endswith("\\"):
            begun += line[:-1]
        else:
            whole.append(begun + line)
            begun = ""
    return whole
