#!/usr/bin/python3
"""Writes translations/countries.en.txt from Debian's iso-codes (ISO 3166-1).

Six frequent countries, the separator line (flagged "not_selectable"), then the
alphabetical list of countries and inhabited territories. Run by hand; committed.
"""
import json
from pathlib import Path

OUT = Path(__file__).resolve().parent.parent / "translations" / "countries.en.txt"
FREQUENT = ["United States", "Germany", "France", "Japan", "China", "United Kingdom"]
# Territories without a permanent population are no one's country of residence.
UNINHABITED = {"AQ", "BV", "HM", "TF", "GS", "UM", "IO", "CX", "CC", "NF", "PN", "SJ"}


def main():
    entries = json.loads(Path("/usr/share/iso-codes/json/iso_3166-1.json").read_text())["3166-1"]
    names = sorted(e.get("common_name", e["name"]) for e in entries if e["alpha_2"] not in UNINHABITED)
    lines = FREQUENT + ["--------------- ; not_selectable"] + names
    OUT.write_text("\n".join(lines) + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
