#!/usr/bin/python3
"""Produces the nine font files of the resources from freely licensed families.

Run once by hand when a face changes; its output is committed:
    resources/tools/make_fonts.py <folder of the unpacked @expo-google-fonts/maven-pro package>

Roboto and Open Sans come from Debian's fonts-roboto-unhinted and fonts-open-sans;
Maven Pro from the npm package @expo-google-fonts/maven-pro (fetch it with `npm pack`).
The style sheets ask for one family per face ("RobotoRegular", "OpenSansLight"), so
those faces are given that family name. The Maven Pro files are copied unchanged: its
licence reserves the name, so a derivative may not carry it.
"""
import shutil
import sys
from pathlib import Path

from fontTools.ttLib import TTFont

ROBOTO = Path("/usr/share/fonts/truetype/roboto/unhinted/RobotoTTF")
OPEN_SANS = Path("/usr/share/fonts/truetype/open-sans")
OUT = Path(__file__).resolve().parent.parent / "fonts"


def renamed(source, target, family):
    font = TTFont(source)
    names = font["name"]
    for record in list(names.names):
        if record.nameID in (16, 17, 21, 22):
            names.removeNames(nameID=record.nameID)
    for record in names.names:
        if record.nameID in (1, 4):
            record.string = family
        elif record.nameID == 2:
            record.string = "Regular"
        elif record.nameID == 6:
            record.string = family
    # One face per family: each is its family's regular style.
    font["OS/2"].fsSelection = (font["OS/2"].fsSelection & ~0b1100001) | 0b1000000
    font["head"].macStyle = 0
    font.save(OUT / target)


def copied(source, target):
    shutil.copyfile(source, OUT / target)


def main():
    maven = Path(sys.argv[1])
    OUT.mkdir(exist_ok=True)
    renamed(ROBOTO / "Roboto-Bold.ttf", "Roboto-Bold.ttf", "RobotoBold")
    renamed(ROBOTO / "Roboto-Light.ttf", "Roboto-Light.ttf", "RobotoLight")
    renamed(ROBOTO / "Roboto-Regular.ttf", "Roboto-Regular.ttf", "RobotoRegular")
    renamed(ROBOTO / "Roboto-Medium.ttf", "Roboto-Medium.ttf", "RobotoMedium")
    renamed(OPEN_SANS / "OpenSans-Light.ttf", "OpenSans-Light.ttf", "OpenSansLight")
    # No free Segoe UI exists: Open Sans Regular, a humanist sans of the same kind,
    # stands in under the file name the code loads, keeping its own family name.
    copied(OPEN_SANS / "OpenSans-Regular.ttf", "Segoe+UI.ttf")
    copied(maven / "400Regular/MavenPro_400Regular.ttf", "MavenPro-Regular.ttf")
    copied(maven / "500Medium/MavenPro_500Medium.ttf", "MavenPro-Medium.ttf")
    # Maven Pro has no light weight: the regular face stands in, TrueType data under
    # the .otf name (the font loader goes by content, not by extension).
    copied(maven / "400Regular/MavenPro_400Regular.ttf", "MavenProLight-300.otf")


if __name__ == "__main__":
    main()
