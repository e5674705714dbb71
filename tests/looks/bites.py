#!/usr/bin/python3
"""bites.py BUILD: the comparison of pictures sees each of twenty details that is erased or stands a pixel off."""

import pathlib
import shutil
import subprocess
import sys
import tempfile

# Picture, part, how it is spoilt, and which piece of the part: left, top, width and height in shares of it.
WHOLE = (0, 0, 1, 1)
DETAILS = (
    ("main-row", "cmd_del", "erased", WHOLE),
    ("main-row", "cmd_rogzit", "shifted", WHOLE),
    ("main-row", "mnuPrint", "erased", WHOLE),
    ("main-row", "ChkTeletank", "erased", WHOLE),
    ("main-row", "ChkOlajcsere", "erased", (0, 0, 0.15, 1)),
    ("main-row", "tx_teljes_ktg", "erased", WHOLE),
    ("main-row", "tx_fogyaszt", "shifted", WHOLE),
    ("main-row", "ListView1", "erased", (0, 0.12, 0.12, 0.1)),
    ("main-row", "ListView1", "erased", (0.9, 0.5, 0.1, 0.45)),
    ("main-row", "lbFtperLiter", "erased", WHOLE),
    ("main-row", "lbNaplo", "erased", WHOLE),
    ("main-row", "Combo1", "erased", (0.8, 0, 0.2, 1)),
    ("main-row", "lbDatum", "shifted", WHOLE),
    ("main-filter", "opSzürö_1", "erased", WHOLE),
    ("chart-2d-bars", "MSChart1", "erased", (0, 0.88, 1, 0.1)),
    ("chart-2d-bars", "MSChart1", "shifted", (0.4, 0.3, 0.2, 0.6)),
    ("tyres", "ListViewGumi", "erased", (0.9, 0, 0.1, 0.5)),
    ("box-error", "qt_msgbox_label", "erased", WHOLE),
    ("box-error", "qt_msgboxex_icon_label", "erased", WHOLE),
    ("settings-cars", "List1", "erased", (0, 0, 0.5, 0.3)),
)


def place_of(fresh, picture, part, piece):
    for line in (fresh / "parts.txt").read_text().splitlines():
        found, name, *numbers = line.split()
        if (found, name) != (picture, part):
            continue
        left, top, width, height = (float(number) for number in numbers)
        return (round(left + piece[0] * width), round(top + piece[1] * height), round(piece[2] * width),
                round(piece[3] * height))
    sys.exit(f"{picture} has no {part}")


def spoil(path, kind, place):
    left, top, width, height = place
    if kind == "erased":
        corner = f"%[pixel:u.p{{{max(left - 1, 0)},{top + height // 2}}}]"
        colour = subprocess.run(["convert", path, "-format", corner, "info:"], check=True, capture_output=True,
                                text=True).stdout
        change = ["-fill", colour, "-draw", f"rectangle {left},{top} {left + width - 1},{top + height - 1}"]
    else:
        change = ["(", "+clone", "-crop", f"{width}x{height}+{left}+{top}", "+repage", ")", "-geometry",
                  f"+{left}+{top + 1}", "-composite"]
    subprocess.run(["convert", path, *change, path], check=True)


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    fresh = build / "tests/looks/fresh/100/9-light"
    unseen = []
    with tempfile.TemporaryDirectory() as scratch:
        kept, spoilt = pathlib.Path(scratch, "kept"), pathlib.Path(scratch, "spoilt")
        for picture, part, kind, piece in DETAILS:
            for folder in (kept, spoilt):
                folder.mkdir(exist_ok=True)
                shutil.copy(fresh / f"{picture}.png", folder / "picture.png")
            spoil(spoilt / "picture.png", kind, place_of(fresh, picture, part, piece))
            told = subprocess.run([build / "tests/looks/tarvik_compare", kept, spoilt], capture_output=True, text=True)
            if (told.returncode, told.stdout) != (1, "picture.png\n"):
                unseen.append(f"{picture}: {part} {kind}")
    if unseen:
        sys.exit("The comparison does not see:\n  " + "\n  ".join(unseen))


main()
