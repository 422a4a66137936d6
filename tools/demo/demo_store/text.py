"""Reading sources and writing the player's text files."""

from __future__ import annotations

from pathlib import Path

from .errors import SourceError


def read_source(path: Path) -> str:
    """Return a source's text; sources are UTF-8 with LF line ends."""
    try:
        return path.read_text(encoding="utf-8")
    except FileNotFoundError as error:
        raise SourceError(path, "is missing") from error
    except UnicodeDecodeError as error:
        raise SourceError(path, f"is not UTF-8 ({error.reason})") from error


def ansi(where: object, text: str) -> bytes:
    """Return text as the player reads it: windows-1252, with the line ends as they stand."""
    try:
        return text.encode("cp1252")
    except UnicodeEncodeError as error:
        raise SourceError(where, f"{text[error.start]!r} is not in windows-1252") from error


def crlf(text: str) -> str:
    return text.replace("\n", "\r\n")
