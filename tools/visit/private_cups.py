#!/usr/bin/env python3
"""A CUPS of its own for scripts that print: its printers leave what they print as PDF files in a folder.

Usage: private_cups.py COMMAND... runs a command with it; PRINTED names the folder then. Exits as the command
does, and with 77 where packages for it are missing. It shares nothing with the CUPS of the machine but its
programs, and runs as whoever starts it.
"""

import grp
import os
import shutil
import subprocess
import sys
import tempfile
import time
from collections.abc import Callable, Set
from pathlib import Path

SKIPPED = 77
PATIENCE = 20.0  # seconds
# The places where the two printers of a script stand; one tells what it is instead. The first is the default.
PRINTERS = {"Counter": "Beside the till", "Office": ""}
DEFAULT, OTHER = PRINTERS
SHEETS = {DEFAULT: "A4", OTHER: "A5"}
CUPSD, LPADMIN = "/usr/sbin/cupsd", "/usr/sbin/lpadmin"
PROGRAMS = Path("/usr/lib/cups")
PPD = Path(__file__).with_name("printer.ppd")
ROOT_GROUP = "lp"  # what filters run as when root runs cupsd

CUPSD_CONF = """\
Listen {folder}/socket
Browsing No
DefaultAuthType None
WebInterface No
LogLevel info
MaxLogSize 0
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
    Allow all
  </Limit>
</Policy>
"""

CUPS_FILES_CONF = """\
ServerRoot {folder}/etc
ServerBin {folder}/bin
RequestRoot {folder}/spool
TempDir {folder}/spool/tmp
CacheDir {folder}/cache
StateDir {folder}/run
AccessLog {folder}/access_log
ErrorLog {folder}/error_log
PageLog {folder}/page_log
Printcap
SystemGroup root
"""

# Called without arguments it tells what it is, else job, user, title, copies, options and maybe a file.
BACKEND = """\
#!/bin/sh
[ $# -gt 0 ] || {{ echo 'direct keep:/ "Unknown" "Folder"'; exit 0; }}
cat ${{6:+"$6"}} > "{printed}/.$PRINTER-$1" && mv "{printed}/.$PRINTER-$1" "{printed}/$PRINTER-$1.pdf"
"""


def missing_packages() -> list[str]:
    needs = {CUPSD: "cups-daemon", LPADMIN: "cups-client", str(PROGRAMS / "filter/pdftopdf"): "cups-filters",
             str(PROGRAMS / "filter/texttopdf"): "cups-filters",
             "/usr/bin/pdftotext": "poppler-utils"}
    return sorted({package for path, package in needs.items() if not os.access(path, os.X_OK)})


class PrivateCups:
    """Use as a context manager."""

    def __init__(self, printed: Path) -> None:
        self.printed = printed.resolve()
        self.folder = Path(tempfile.mkdtemp(prefix="cups-"))
        # Neither the printers nearby, which the system bus knows, nor the settings of whoever runs this
        # may be seen. There is no bus at that place.
        self.variables = {"CUPS_SERVER": str(self.folder / "socket"), "CUPS_SERVERROOT": str(self.folder / "etc"),
                          "HOME": str(self.folder / "home"),
                          "DBUS_SYSTEM_BUS_ADDRESS": f"unix:path={self.folder}/system-bus"}
        self.daemon: subprocess.Popen[bytes] | None = None

    def __enter__(self) -> "PrivateCups":
        try:
            self.start()
        except BaseException:
            self.__exit__()
            raise
        return self

    def start(self) -> None:
        self.lay_out()
        self.daemon = subprocess.Popen(
            [self.folder / "bin/cupsd", "-f", "-c", self.folder / "etc/cupsd.conf",
             "-s", self.folder / "etc/cups-files.conf"],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.until(lambda: self.call("lpstat", "-r").stdout.strip() == "scheduler is running", "cupsd")
        for name, place in PRINTERS.items():
            self.must("lpadmin", "-p", name, "-v", "keep:/", "-P", str(PPD), "-L", place, "-E",
                      "-o", f"PageSize={SHEETS[name]}")
        self.must("lpadmin", "-d", DEFAULT)

    def __exit__(self, *_: object) -> None:
        self.stop()
        shutil.rmtree(self.folder, ignore_errors=True)

    def stop(self) -> None:
        if self.daemon is not None:
            self.daemon.terminate()
            self.daemon.wait()
            self.daemon = None

    def lay_out(self) -> None:
        for name in ("etc", "etc/ppd", "bin/backend", "spool/tmp", "cache", "run", "home"):
            (self.folder / name).mkdir(parents=True)
        if os.geteuid() == 0:
            os.chown(self.folder, 0, grp.getgrnam(ROOT_GROUP).gr_gid)
            self.folder.chmod(0o710)
        for name in ("filter", "daemon"):
            (self.folder / "bin" / name).symlink_to(PROGRAMS / name)
        # A profile of AppArmor for the machine's cupsd goes by its path, and would keep it from this folder.
        shutil.copy(CUPSD, self.folder / "bin/cupsd")
        (self.folder / "etc/cupsd.conf").write_text(CUPSD_CONF.format(folder=self.folder), encoding="utf-8")
        (self.folder / "etc/cups-files.conf").write_text(CUPS_FILES_CONF.format(folder=self.folder),
                                                         encoding="utf-8")
        self.printed.mkdir(parents=True, exist_ok=True)
        backend = self.folder / "bin/backend/keep"
        backend.write_text(BACKEND.format(printed=self.printed), encoding="utf-8")
        backend.chmod(0o700)  # nobody else's to run: cupsd runs it as itself, also when that is root

    def call(self, *command: str) -> "subprocess.CompletedProcess[str]":
        return subprocess.run(command, env={**os.environ, **self.variables, "PATH": f"{os.environ['PATH']}:/usr/sbin"},
                              check=False, capture_output=True, text=True)

    def must(self, *command: str) -> None:
        result = self.call(*command)
        if result.returncode != 0:
            raise SystemExit(f"cups: {' '.join(command)}: {result.stderr.strip()}")

    def until(self, condition: Callable[[], bool], what: str) -> None:
        end = time.monotonic() + PATIENCE
        while not condition():
            if time.monotonic() > end:
                log = self.folder / "error_log"
                tail = log.read_text(encoding="utf-8", errors="replace")[-3000:] if log.exists() else "no log"
                raise SystemExit(f"cups: {what} did not come\n{tail}")
            time.sleep(0.05)

    def printed_on(self, printer: str) -> set[Path]:
        return set(self.printed.glob(f"{printer}-*.pdf"))

    def await_printed(self, printer: str, known: Set[Path] = frozenset()) -> Path:
        """The next PDF of that printer that is not among the `known` ones."""
        self.until(lambda: self.printed_on(printer) > known, f"a print on {printer}")
        return min(self.printed_on(printer) - known)


def main() -> int:
    if missing := missing_packages():
        print(f"nothing can be printed without {', '.join(missing)}")
        return SKIPPED
    with tempfile.TemporaryDirectory(prefix="printed-") as folder, PrivateCups(Path(folder)) as cups:
        return subprocess.run(sys.argv[1:], env={**os.environ, **cups.variables, "PRINTED": folder},
                              check=False).returncode


if __name__ == "__main__":
    sys.exit(main())
