"""The mouse as a person moves it."""

import subprocess

NOTCHES = 3
WHEEL_BACK = 5


def _go_to(part):
    left, top, width, height = part.extents
    subprocess.run(["xdotool", "mousemove", str(left + width // 2), str(top + height // 2)], check=True)


def click(part, button=1):
    """Clicks into the middle of a part."""
    _go_to(part)
    subprocess.run(["xdotool", "click", str(button)], check=True)


def turn_wheel(part):
    """Turns the wheel towards the person over the middle of a part."""
    _go_to(part)
    subprocess.run(["xdotool", "click", "--repeat", str(NOTCHES), str(WHEEL_BACK)], check=True)
