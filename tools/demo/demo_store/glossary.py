"""Checks a glossary source and gives its bytes."""

from __future__ import annotations

import re
from pathlib import Path

from .errors import SourceError
from .text import crlf, read_source

ENTRY = re.compile(r"(\^[A-Z]|%[^%~^]+|~[^%~^]+)$")


def glossary_text(path: Path) -> str:
    """Return the glossary with CR LF line ends.

    The player drops line ends, so every entry stands on one line. It writes a definition out only
    when a later marker follows, hence the closing letter.
    """
    lines = read_source(path).rstrip("\n").split("\n")
    last = ""
    followers = {"": "^", "^": "%", "%": "~", "~": "%^"}
    for number, line in enumerate(lines, start=1):
        if not ENTRY.match(line):
            raise SourceError(path, f"not an entry: {line}", number)
        if line[0] not in followers[last]:
            raise SourceError(path, f"{line[0]} can't follow here", number)
        last = line[0]
    if last != "^":
        raise SourceError(path, "has to end with a closing letter")
    return crlf("\n".join(lines) + "\n")
