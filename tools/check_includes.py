#!/usr/bin/env python3
"""Checks that includes between the folders of src/ point downwards, and what the players beside it include.

Part of the test run. Prints every include at fault and exits with 1 when there is one.
"""

import re
import sys
from collections.abc import Iterator
from pathlib import Path

# Top to bottom: a folder may include those below it. Loose files of the platform lie under its folders.
ORDER = ["main", "startup", "signin", "progress", "assessment", "coursescreen", "reference", "desktop",
         "learners", "content", "frame", "platform/shell", "platform/richtext", "platform/grid", "platform/movies",
         "platform/forms", "platform/registry", "platform/files", "platform"]
# All that a plugin knows of the program.
PLAYER_INTERFACE = "platform/movies/MoviePlayer.h"
INCLUDE = re.compile(r'^\s*#include\s+"([^"]+)"', re.MULTILINE)


def folder_of(path: str) -> str:
    """The layer of a file: its folder, and for the platform the folder below that."""
    parts = path.split("/")
    if len(parts) == 1:
        return "main"
    return "/".join(parts[:2]) if parts[0] == "platform" and len(parts) > 2 else parts[0]


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


def upward(source: Path) -> list[str]:
    named = [(file.relative_to(source).as_posix(), include) for file, include in includes(source)]
    return [f"points upwards: {name} -> {include}" for name, include in named
            if rank(folder_of(include)) < rank(folder_of(name))]


def past_the_interface(players: Path) -> list[str]:
    """What a player includes beyond the interface, the files of its own folder and what moc makes of them."""
    def is_its_own(file: Path, include: str) -> bool:
        return include == f"{file.stem}.moc" or ("/" not in include and (file.parent / include).is_file())

    return [f"not for a player: {file.relative_to(players.parent).as_posix()} -> {include}"
            for file, include in includes(players)
            if include != PLAYER_INTERFACE and not is_its_own(file, include)]


def main() -> int:
    source = Path(sys.argv[1])
    faults = upward(source) + past_the_interface(source.parent / "players")
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
