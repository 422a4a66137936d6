#!/usr/bin/env python3
"""Checks that includes between the folders of src/ point downwards and form no ring.

Part of the test run. Prints every include at fault and exits with 1 when there is one.
"""

import re
import sys
from pathlib import Path

# Top to bottom: a folder may include those below it.
ORDER = ["main", "startup", "signin", "progress", "assessment", "coursescreen", "reference", "desktop",
         "learners", "content", "frame", "platform"]
INCLUDE = re.compile(r'^\s*#include\s+"([^"]+)"', re.MULTILINE)


def folder_of(path: str) -> str:
    """The layer of a file: its folder, and for the platform the folder below that."""
    parts = path.split("/")
    if len(parts) == 1:
        return "main"
    return "/".join(parts[:2]) if parts[0] == "platform" and len(parts) > 2 else parts[0]


def read_graph(source: Path) -> dict[str, dict[str, str]]:
    """For each folder the folders it includes, with one file that does so."""
    graph: dict[str, dict[str, str]] = {}
    for file in sorted(source.rglob("*")):
        if file.suffix not in {".h", ".cpp"}:
            continue
        name = file.relative_to(source).as_posix()
        here = folder_of(name)
        for include in INCLUDE.findall(file.read_text(encoding="utf-8")):
            there = folder_of(include)
            if there != here:
                graph.setdefault(here, {}).setdefault(there, f"{name} -> {include}")
    return graph


def upward(graph: dict[str, dict[str, str]]) -> list[str]:
    def rank(folder: str) -> int:
        top = folder.split("/")[0]
        if top not in ORDER:
            raise SystemExit(f"check_includes: {folder} has no place in the order of folders")
        return ORDER.index(top)

    return [f"points upwards: {example}" for here, others in graph.items() for there, example in others.items()
            if rank(there) < rank(here)]


def rings(graph: dict[str, dict[str, str]]) -> list[str]:
    found: list[str] = []
    done: set[str] = set()

    def walk(folder: str, trail: list[str]) -> None:
        if folder in trail:
            ring = trail[trail.index(folder):] + [folder]
            found.append("ring: " + " -> ".join(ring))
            return
        if folder in done:
            return
        for there in graph.get(folder, {}):
            walk(there, trail + [folder])
        done.add(folder)

    for start in sorted(graph):
        walk(start, [])
    return found


def main() -> int:
    source = Path(sys.argv[1])
    graph = read_graph(source)
    faults = upward(graph) + rings(graph)
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
