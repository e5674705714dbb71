"""Keys as a person presses them, on the Hungarian layout."""

import subprocess


def press(*keys):
    """Presses keys one after the other: "Tab", "alt+r", "shift+Tab"."""
    subprocess.run(["xdotool", "key", "--clearmodifiers", *keys], check=True)


def type_text(text, milliseconds=5):
    """Types a text, with a pause after each key."""
    subprocess.run(["xdotool", "type", "--clearmodifiers", "--delay", str(milliseconds), text], check=True)
