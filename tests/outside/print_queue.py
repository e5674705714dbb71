"""A print server of a test's own, with one printer that writes what it prints into PDF files."""

import os
import pathlib
import pwd
import subprocess

from accessible import wait_for
from desktop import Desktop, end

PRINTER = "Nappali"
_DESCRIPTION = "/usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd"
# Where that printer puts the print-outs of the person who prints.
_PRINTED = pathlib.Path(pwd.getpwuid(os.getuid()).pw_dir) / "PDF"

_FILES = """\
ServerRoot {root}
ServerBin /usr/lib/cups
DataDir /usr/share/cups
RequestRoot {root}/spool
TempDir {root}/spool/tmp
CacheDir {root}/cache
StateDir {root}/state
AccessLog {root}/access_log
ErrorLog {root}/error_log
PageLog {root}/page_log
"""
_SERVER = """\
Listen {socket}
Browsing Off
WebInterface No
DefaultAuthType None
PreserveJobFiles Yes
DirtyCleanInterval 0
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
"""


class PrintQueue:
    """Runs while a `with` lasts; the programs started meanwhile print on it."""

    def __enter__(self):
        desktop = Desktop.get()
        root = desktop.scratch / "printing"
        for folder in ("ppd", "ssl", "spool/tmp", "cache", "state"):
            (root / folder).mkdir(parents=True)
        desktop.scratch.chmod(0o755)  # the server's helpers run as somebody else
        socket = root / "state/server.sock"
        (root / "files.conf").write_text(_FILES.format(root=root))
        (root / "server.conf").write_text(_SERVER.format(socket=socket))
        command = ["/usr/sbin/cupsd", "-f", "-c", str(root / "server.conf"), "-s", str(root / "files.conf")]
        self._server = desktop.spawn(command, "print-server")
        os.environ["CUPS_SERVER"] = str(socket)
        wait_for(socket.exists, "the print server")
        self._administer("lpadmin", "-p", PRINTER, "-E", "-v", "cups-pdf:/", "-P", _DESCRIPTION)
        self._administer("lpadmin", "-d", PRINTER)
        self._before = set(self._files())
        return self

    def __exit__(self, *_):
        del os.environ["CUPS_SERVER"]
        end(self._server)
        for file in self.printed():
            file.unlink()

    def _administer(self, *command):
        subprocess.run(["/usr/sbin/" + command[0], *command[1:]], check=True, stderr=subprocess.DEVNULL)

    @staticmethod
    def _files():
        return sorted(_PRINTED.glob("*.pdf"))

    def refuse(self):
        """From now on the printer takes no job."""
        self._administer("cupsreject", PRINTER)

    def printed(self):
        """The files that were printed since this queue began."""
        return [file for file in self._files() if file not in self._before]

    def wait_printed(self):
        """Waits until a job is through and gives its file."""
        wait_for(lambda: f"{PRINTER}-" in self._output("lpstat", "-W", "completed"), "the print-out", 60)
        return wait_for(self.printed, "the printed file")[-1]

    def sent(self):
        """The document of the first job as the program sent it, and the job's attributes, as bytes."""
        spool = Desktop.get().scratch / "printing/spool"
        attributes = wait_for(lambda: (spool / "c00001").read_bytes(), "the job to be noted")
        return spool / "d00001-001", attributes

    @staticmethod
    def _output(*command):
        return subprocess.run(command, check=True, capture_output=True, text=True).stdout
