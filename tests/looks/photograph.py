#!/usr/bin/python3
"""photograph.py BUILD OUT: puts a picture of every screen and state into OUT/100 and OUT/200."""

import os
import pathlib
import shutil
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "outside"))

from desktop import Desktop  # noqa: E402

SCREEN = (1920, 1080)
DAY = "2026.03.25."
# At twice the scale two kinds are enough to see what goes wrong there.
KINDS = {1: ("9-light", "9-dark", "12-light", "12-dark", "manual"), 2: ("9-light", "12-dark")}


def photograph(build, out, scale):
    """Pictures at one scale, on a display that has room for the same at every scale."""
    desktop = Desktop(size=[side * scale for side in SCREEN])
    household, empty = desktop.scratch / "household", desktop.scratch / "empty"
    household.mkdir()
    empty.mkdir()
    log = HERE.parents[1] / "tools/demo/fuel_log_estate.csv"
    subprocess.run([build / "tools/demo/tarvik_make_demo", log, household, DAY], check=True)
    environment = dict(os.environ, QT_SCALE_FACTOR=str(scale), FONTCONFIG_FILE=str(HERE / "fonts.conf"))
    del environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"]
    command = [build / "tests/looks/tarvik_looks", household, empty, out / str(100 * scale), *KINDS[scale]]
    subprocess.run(command, env=environment, check=True)
    desktop.end()


def main():
    build, out = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    shutil.rmtree(out, ignore_errors=True)
    for scale in KINDS:
        photograph(build, out, scale)


main()
