"""A program whose calls the system refuses for a while."""

import os
import select
import shutil
import subprocess

from accessible import wait_for

ATTACH_LIMIT_SECONDS = 10
KILL = "KILL"


def can_inject():
    """Whether this machine lets a test refuse the calls of another process."""
    if shutil.which("strace") is None:
        return False
    probe = subprocess.run(["strace", "-e", "inject=getppid:error=EPERM", "true"], capture_output=True)
    return probe.returncode == 0


class Refused:
    """While a `with` lasts, the calls of these names fail for the program with this error: Refused(program,
    "fsync", "EIO"). With `nth` the call of that number alone fails; KILL as the error ends the program there."""

    def __init__(self, program, calls, error, nth=None):
        self._program = program
        self._calls = calls
        self._fault = "signal=KILL" if error == KILL else f"error={error}"
        if nth is not None:
            self._fault += f":when={nth}"
        self._log = program.folder / "refused.log"
        self._tracer = None

    def __enter__(self):
        command = ["strace", "-p", str(self._program.process.pid), "-o", str(self._log), "-e",
                   f"trace={self._calls}", "-e", f"inject={self._calls}:{self._fault}"]
        self._tracer = subprocess.Popen(command, stdin=subprocess.DEVNULL, stderr=subprocess.PIPE)
        ready = select.select([self._tracer.stderr], [], [], ATTACH_LIMIT_SECONDS)[0]
        told = os.read(self._tracer.stderr.fileno(), 4096) if ready else b""
        if b"attached" not in told:
            raise RuntimeError(f"strace did not attach: {told.decode()}")
        return self

    def __exit__(self, *_):
        self._tracer.terminate()
        self._tracer.wait()
        self._tracer.stderr.close()
        log = self._log.read_text()
        self.happened = "(INJECTED)" in log or "killed by SIGKILL" in log
        self._log.unlink()


def wait_settled(program, ready):
    """Waits until the program has said something, or `ready()` holds; gives the box's text or None."""

    def outcome():
        is_ready = ready()
        # It answers when it is through with what it does, listing anew among it.
        box = [window for window in program.windows() if window.name == " H i b a !"]
        if box:
            return [part.name for part in box[0].walk() if part.role == "label" and part.name][0]
        return "" if is_ready else None

    return wait_for(lambda: (outcome(),) if outcome() is not None else None, "a box or the change")[0]
