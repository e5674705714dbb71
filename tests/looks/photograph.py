#!/usr/bin/python3
"""photograph.py BUILD OUT: puts a picture of every screen and state into OUT/100 and OUT/200, and of those
that are put together otherwise where the display is low into OUT/low."""

import os
import pathlib
import shutil
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "outside"))

from desktop import Desktop  # noqa: E402

SCREEN = (1920, 1080)
LOW_SCREEN = (1366, 728)
DAY = "2026.03.25."
# All scenes once; of the other letters, colours and scale as many that each style element is seen there.
KINDS = {
    1: (
        "9-light",
        "manual",
        "charts",
        "9-dark:gallery,main-row,chart-2d-bars,chart-3d-area,box-delete",
        "12-light:main-filter,settings-start,tyres-change,alert-km",
        "12-dark:main-row,chart-3d-line,reminders-km,alert-date,tyres,settings-cars,box-error",
        "9-contrast:gallery,main-row,main-filter,chart-2d-line,tyres,alert-date,box-record",
    ),
    2: ("9-light:gallery,main-row,chart-3d-bars,settings-lists,box-change", "12-dark:main,tyres,repairs,chart-2d-area"),
}


def photograph(build, out, kinds, size, scale=1):
    """Pictures at one scale, on a display of that size."""
    desktop = Desktop(size=[side * scale for side in size])
    household, empty = desktop.scratch / "household", desktop.scratch / "empty"
    household.mkdir()
    empty.mkdir()
    log = HERE.parents[1] / "tools/demo/fuel_log_estate.csv"
    subprocess.run([build / "tools/demo/tarvik_make_demo", log, household, DAY], check=True)
    environment = dict(os.environ, QT_SCALE_FACTOR=str(scale), FONTCONFIG_FILE=str(HERE / "fonts.conf"))
    del environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"]
    command = [build / "tests/looks/tarvik_looks", household, empty, out, *kinds]
    subprocess.run(command, env=environment, check=True)
    desktop.end()


def main():
    build, out = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    shutil.rmtree(out, ignore_errors=True)
    for scale, kinds in KINDS.items():
        photograph(build, out / str(100 * scale), kinds, SCREEN, scale)
    photograph(build, out / "low", ["9-light:main-row,chart-2d-bars", "14-light:main-row"], LOW_SCREEN)


main()
