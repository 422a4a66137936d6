#!/usr/bin/env python3
"""Shows that the program opens no network connection: the scripted visit under strace.

Usage: network_test.py STORE. Every socket that the program or a child of it opens must be a local one, and
every address the X server, the message buses, the sound server, CUPS, the C library's own services, or
the program's bell for a second start. Exits with 1 and the lines of the trace at fault when there is another, and
with 77 where nothing may be traced.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
from collections.abc import Iterable
from pathlib import Path

from visit import play

SKIPPED = 77
LONGEST_LINE = 200  # characters of a line of the trace that are shown
STRACE = ["strace", "-f", "-qq", "-s", "300", "--seccomp-bpf", "-e", "trace=network"]

# The path of a local socket that the program may use; "@" stands before one that is in no file system.
ALLOWED = [
    (re.compile(r"@?/tmp/\.X11-unix/X\d+"), "the X server"),
    (re.compile(r"/(var/)?run/nscd/socket"), "the C library's name cache"),
    (re.compile(r"/run/systemd/userdb/[\w.-]+"), "the C library's user names"),
    (re.compile(r"/.*/at-spi/bus[\w.-]*|@?/tmp/dbus-\w+"), "the accessibility bus"),
    (re.compile(r"/.*/pulse(-\w+)?/native"), "the sound server"),
    (re.compile(r"/.*/cups-\w+/socket"), "CUPS"),
    (re.compile(r"/.*/cups-\w+/system-bus"), "the system bus, by CUPS, for the printers nearby"),
    (re.compile(r"@tallowmere-[0-9a-f]{16}"), "the program's bell for a second start"),
]
# Of other families only what asks the kernel of this machine: for its network cards and devices, and by a
# socket without any address for the name of one. The web engine behind Flash movies does, at its start.
KERNEL = re.compile(r"\bA[FP]_NETLINK\b|\{nlmsg_len=\d+, nlmsg_type=")
NAMELESS = re.compile(r"(<\.\.\. )?socket( resumed>)?\(A[FP]_INET6?, SOCK_DGRAM\S*, IPPROTO_IP(\)| <unfinished)")
CALL = re.compile(r"^\d+\s+(?:<\.\.\. )?(\w+)")
TEXT = re.compile(r'"(?:[^"\\]|\\.)*"')
SOCKET_PATH = re.compile(r'sun_path=(@?)"((?:[^"\\]|\\.)*)"')
FAMILY = re.compile(r"\b[AP]F_\w+")


def session_bus() -> set[str]:
    """Where the session bus listens."""
    places = {f"{os.environ['XDG_RUNTIME_DIR']}/bus"} if "XDG_RUNTIME_DIR" in os.environ else set()
    for key, path in re.findall(r"(path|abstract)=([^,;]+)", os.environ.get("DBUS_SESSION_BUS_ADDRESS", "")):
        places.add(("@" if key == "abstract" else "") + path)
    return places


def name_of(path: str, buses: set[str]) -> str | None:
    if path in buses or re.fullmatch(r".*/visit-\w+/bus", path):
        return "the session bus"
    return next((name for pattern, name in ALLOWED if pattern.fullmatch(path)), None)


def judge(lines: Iterable[str]) -> tuple[dict[str, int], list[str]]:
    """What was used and how often, and the lines that are not allowed."""
    buses = session_bus()
    used: dict[str, int] = {}
    wrong: list[str] = []

    def count(name: str | None, line: str) -> None:
        if name is None:
            wrong.append(line)
        else:
            used[name] = used.get(name, 0) + 1

    for line in lines:
        call = CALL.match(line)
        families = FAMILY.findall(TEXT.sub('""', line))
        if KERNEL.search(TEXT.sub('""', line)):
            count("the kernel's list of network cards and devices", line)
            continue
        if NAMELESS.search(line):
            count("a socket without an address", line)
            continue
        if any(family not in ("AF_UNIX", "AF_LOCAL") for family in families):
            wrong.append(line)
            continue
        if call and call[1] in ("socket", "socketpair", "connect", "bind") and not families and "resumed" not in line:
            wrong.append(line)  # a family without a name
            continue
        for mark, path in SOCKET_PATH.findall(line):
            count(name_of(mark + path, buses), line)
    return used, wrong


def main() -> int:
    traced = shutil.which(STRACE[0]) is not None and subprocess.run(
        [*STRACE, "-o", os.devnull, "true"], check=False, capture_output=True).returncode == 0
    if not traced:
        print("no program may be traced here")
        return SKIPPED
    with tempfile.TemporaryDirectory(prefix="network-") as folder:
        trace = Path(folder) / "trace"
        failures = play(Path(sys.argv[1]), Path(folder) / "visit", wrapper=[*STRACE, "-A", "-o", str(trace)])
        used, wrong = judge(trace.read_text(encoding="utf-8", errors="replace").splitlines())
    for name, count in used.items():
        print(f"      {count} times {name}")
    if "the X server" not in used:
        wrong.append("the trace does not even show the X server")
    for line in wrong:
        print(f"FAILED {line[:LONGEST_LINE]}")
    if not wrong:
        print("ok    no other socket was opened")
    return 1 if wrong or failures else 0


if __name__ == "__main__":
    sys.exit(main())
