#!/usr/bin/env python3
"""Fetches Ruffle, which plays the Flash movies of courses, into build/ruffle.

Usage: get_flash_player.py. It comes as a package from npm, from the registry that npm is set up for, and is
taken only when it is, byte for byte, the release that is named here. When it can't be had, this says so and
ends well: everything else is built, and a page with a Flash movie tells the learner that the player is missing.
"""

import base64
import hashlib
import shutil
import subprocess
import sys
import tarfile
import tempfile
from pathlib import Path, PurePosixPath

PACKAGE = "@ruffle-rs/ruffle@0.6.0"
SHA512 = "P2X1zDENBoiLt2ZjPcsUzaDxoR7fVF2e1U/bi7hbIAQEjkykxljSoG8AgbywHvlVVzL9Y5tIZMRqDwIm31jgPA=="
NEEDED = (".js", ".wasm")     # the player; beside it the package holds maps for its debugging
LICENCES = ("LICENSE_APACHE", "LICENSE_MIT")
TARGET = Path(__file__).resolve().parent.parent / "build/ruffle"
MARK = "sha512"               # names the release that lies in the folder
LONGEST_FETCH = 300           # seconds


def fetch(folder: Path) -> Path | None:
    """The package as npm hands it out, or nothing and a word about it."""
    npm = shutil.which("npm")
    if npm is None:
        print("No Flash player: npm is not installed.")
        return None
    try:
        done = subprocess.run([npm, "pack", "--loglevel=error", "--fetch-retries=1", "--pack-destination", folder, PACKAGE],
                              cwd=folder, check=False, capture_output=True, text=True, timeout=LONGEST_FETCH)
    except subprocess.TimeoutExpired:
        print(f"No Flash player: npm has not fetched {PACKAGE} within {LONGEST_FETCH} seconds.")
        return None
    found = list(folder.glob("*.tgz"))
    if done.returncode != 0 or len(found) != 1:
        print(f"No Flash player: npm can't fetch {PACKAGE}. {done.stderr.strip()}")
        return None
    return found[0]


def unpack(package: Path, folder: Path) -> None:
    with tarfile.open(package) as archive:
        for member in archive:
            name = PurePosixPath(member.name).name
            content = archive.extractfile(member)
            if content is not None and (name.endswith(NEEDED) or name in LICENCES):
                (folder / name).write_bytes(content.read())
    (folder / MARK).write_text(SHA512, encoding="ascii")


def main() -> int:
    mark = TARGET / MARK
    if mark.is_file() and mark.read_text(encoding="ascii") == SHA512:
        return 0
    TARGET.parent.mkdir(exist_ok=True)
    with tempfile.TemporaryDirectory(prefix="ruffle-", dir=TARGET.parent) as name:
        package = fetch(Path(name))
        if package is None:
            print("Everything else is built; pages with a Flash movie go without it.")
            return 0
        if base64.b64encode(hashlib.sha512(package.read_bytes()).digest()).decode() != SHA512:
            print(f"{PACKAGE} is not what it was when it was chosen: it is not used.", file=sys.stderr)
            return 1
        fresh = Path(name) / "ruffle"
        fresh.mkdir()
        unpack(package, fresh)
        shutil.rmtree(TARGET, ignore_errors=True)
        fresh.rename(TARGET)
    return 0


if __name__ == "__main__":
    sys.exit(main())
