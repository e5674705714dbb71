"""Keys as a person presses them, on the Hungarian layout."""

import subprocess


def press(*keys):
    """Presses keys one after the other: "Tab", "alt+r", "shift+Tab"."""
    subprocess.run(["xdotool", "key", "--clearmodifiers", *keys], check=True)


def type_text(text):
    """Types a text."""
    subprocess.run(["xdotool", "type", "--clearmodifiers", "--delay", "5", text], check=True)
