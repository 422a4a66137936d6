#!/usr/bin/env python3
"""Checks that includes between the folders of src/ point downwards, what the players beside it include, and that
everywhere the own header comes first, then Qt and the standard library, then the project's.

Part of the test run. Prints every include at fault and exits with 1 when there is one.
"""

import re
import sys
from collections.abc import Iterator
from pathlib import Path

# Top to bottom: a folder may include those below it. Loose files of pages and platform lie under their screens.
ORDER = ["main", "coursekit", "startup", "signin", "progress", "assessment", "coursescreen", "reference", "desktop",
         "learners", "content", "frame", "pages/view", "pages", "pages/rtf", "pages/html", "pages/metafile",
         "pages/common", "platform/shell", "platform/grid", "platform/movies", "platform/forms",
         "platform/registry", "platform/files", "platform", "texts"]
# What a folder below does not know all the same: the readers of pages know neither each other nor windows, and
# the course kit, beside the screens, uses what they are made of and none of them.
WINDOWS = {"platform/shell", "platform/grid", "platform/movies", "platform/forms"}
SCREENS = {"startup", "signin", "coursescreen", "desktop", "pages/view"}
UNKNOWN = {
    "pages": WINDOWS,
    "pages/rtf": WINDOWS | {"pages/html"},
    "pages/html": WINDOWS | {"pages/metafile"},
    "pages/metafile": WINDOWS,
    "pages/common": WINDOWS,
    "coursekit": WINDOWS | SCREENS,
}
# All that a plugin knows of the program.
PLAYER_INTERFACE = "platform/movies/MoviePlayer.h"
INCLUDE = re.compile(r'^\s*#include\s+"([^"]+)"', re.MULTILINE)
ANY_INCLUDE = re.compile(r'^\s*#include\s+([<"])([^">]+)', re.MULTILINE)
ORDERED = ["src", "players", "tests", "fuzz", "bench"]


def folder_of(path: str) -> str:
    """The layer of a file: its folder, and for pages and platform the folder below that."""
    parts = path.split("/")
    if len(parts) == 1:
        return "main"
    return "/".join(parts[:2]) if parts[0] in {"pages", "platform"} and len(parts) > 2 else parts[0]


def includes(folder: Path) -> Iterator[tuple[Path, str]]:
    """All includes with quotes of the sources below a folder, each with the file that has it."""
    for file in sorted(folder.rglob("*")):
        if file.suffix in {".h", ".cpp"}:
            for include in INCLUDE.findall(file.read_text(encoding="utf-8")):
                yield file, include


def rank(folder: str) -> int:
    if folder not in ORDER:
        raise SystemExit(f"check_includes: {folder} has no place in the order of folders")
    return ORDER.index(folder)


def misdirected(source: Path) -> Iterator[str]:
    """The includes that point upwards and those of a folder that is not to be known."""
    for file, include in includes(source):
        name = file.relative_to(source).as_posix()
        here, there = folder_of(name), folder_of(include)
        if rank(there) < rank(here):
            yield f"points upwards: {name} -> {include}"
        elif there in UNKNOWN.get(here, set()):
            yield f"not for this folder: {name} -> {include}"


def past_the_interface(players: Path) -> list[str]:
    """What a player includes beyond the interface, the files of its own folder and what moc makes of them."""
    def is_its_own(file: Path, include: str) -> bool:
        return include == f"{file.stem}.moc" or ("/" not in include and (file.parent / include).is_file())

    return [f"not for a player: {file.relative_to(players.parent).as_posix()} -> {include}"
            for file, include in includes(players)
            if include != PLAYER_INTERFACE and not is_its_own(file, include)]


def place(file: Path, kind: str, include: str, is_first: bool) -> int:
    """Where an include belongs; a test begins with the header that it tests."""
    is_own = file.suffix == ".cpp" and Path(include).name == f"{file.stem}.h"
    if is_own or (is_first and kind == '"' and file.stem.endswith("Test")):
        return 0
    return 1 if kind == "<" else 2


def disordered(top: Path) -> Iterator[str]:
    for file in sorted(path for folder in ORDERED for path in (top / folder).rglob("*")):
        if file.suffix in {".h", ".cpp"}:
            found = ANY_INCLUDE.findall(file.read_text(encoding="utf-8"))
            places = [place(file, kind, include, i == 0) for i, (kind, include) in enumerate(found)]
            if places != sorted(places):
                yield f"out of order: {file.relative_to(top).as_posix()}"


def main() -> int:
    source = Path(sys.argv[1])
    faults = list(misdirected(source)) + past_the_interface(source.parent / "players")
    faults += disordered(source.parent)
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
