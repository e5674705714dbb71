"""A system without Qt to start the package in, from an archive, with mounts that end with what runs in it. Needs root."""

import os
import pathlib
import shlex

from desktop import Desktop, spawn

PACKAGE = pathlib.Path(os.environ["TARVIK_PACKAGE"])
PLACE = "Új hely ő"


def isolated(script):
    """Runs a shell script whose mounts and processes are gone when it ends."""
    as_root = [] if os.geteuid() == 0 else ["sudo", "--preserve-env=DISPLAY"]
    return spawn(as_root + ["unshare", "--mount", "--pid", "--fork", "--kill-child", "sh", "-ec", script])


def started_in(root, scratch, command, environment, seen=()):
    """Runs a shell command where the package was unpacked, in a path with spaces and an ő, on a bare system.

    It has this environment and no other, and of the machine's folders those that are to be `seen`, under their names.
    """
    binds = "\n".join(f"mkdir -p {scratch}{folder}; mount --bind {folder} {scratch}{folder}" for folder in seen)
    variables = " ".join(shlex.quote(f"{name}={value}") for name, value in environment.items())
    inside = shlex.quote(f'cd "/{PLACE}/Tarvik" && {command}')
    return isolated(f"""
        mount -t tmpfs none {scratch}
        tar -C {scratch} -xf {os.environ["TARVIK_ROOT_" + root]}
        mount -t proc none {scratch}/proc
        {binds}
        mkdir "{scratch}/{PLACE}"
        tar -C "{scratch}/{PLACE}" -xf {shlex.quote(str(PACKAGE))}
        chroot {scratch} env -i HOME=/root LC_ALL=C.UTF-8 PATH=/usr/bin:/bin {variables} sh -c {inside}""")
