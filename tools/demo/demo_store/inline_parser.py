"""Reads the markup within a paragraph: *bold*, _italic_, {warm:colour}, [links], {#places}."""

from __future__ import annotations

import re
from dataclasses import replace

from .errors import SourceError
from .markup import Bookmark, Inline, LineBreak, Link, Page, Style, Text
from .palette import COLOURS

LINK = re.compile(r"\[([^\]]+)\]\((place|web|survey|doc|page|file|skip):([^)]*)\)")
PLACE = re.compile(r"\{#([a-z][a-z0-9-]*)\}")
COLOUR_START = re.compile(r"\{([a-z]+):")
ESCAPABLE = "\\*_{}[]|#@-"


class InlineParser:
    """Parses one paragraph's text and files its links and places with the page."""

    def __init__(self, page: Page, line: int) -> None:
        self._page = page
        self._line = line
        self._out: list[Inline] = []
        self._style = Style()
        self._colours: list[str | None] = []
        self._buffer = ""

    def parse(self, text: str) -> list[Inline]:
        position = 0
        while position < len(text):
            position = self._step(text, position)
        self._flush()
        if self._style != Style() or self._colours:
            raise self._error("a *, _ or { is not closed")
        return self._out

    def _step(self, text: str, at: int) -> int:
        character = text[at]
        if character == "\\":
            return self._escape(text, at)
        if character == "*":
            self._switch(replace(self._style, bold=not self._style.bold))
            return at + 1
        if character == "_" and self._is_italic_mark(text, at):
            self._switch(replace(self._style, italic=not self._style.italic))
            return at + 1
        if character == "[" and (match := LINK.match(text, at)):
            return self._link(match)
        if character == "{":
            return self._brace(text, at)
        if character == "}" and self._colours:
            self._switch(replace(self._style, colour=self._colours.pop()))
            return at + 1
        self._buffer += character
        return at + 1

    def _escape(self, text: str, at: int) -> int:
        follower = text[at + 1 : at + 2]
        if follower == "n":
            self._flush()
            self._out.append(LineBreak())
        elif follower and follower in ESCAPABLE:
            self._buffer += follower
        else:
            raise self._error(f"\\{follower} means nothing")
        return at + 2

    def _brace(self, text: str, at: int) -> int:
        if match := PLACE.match(text, at):
            self._flush()
            name = match.group(1)
            if name in self._page.bookmarks:
                raise self._error(f"the place {name} stands twice on the page")
            self._page.bookmarks.append(name)
            self._out.append(Bookmark(name))
            return match.end()
        match = COLOUR_START.match(text, at)
        if match is None or match.group(1) not in COLOURS:
            raise self._error("{ starts neither a place nor a known colour")
        self._colours.append(self._style.colour)
        self._switch(replace(self._style, colour=match.group(1)))
        return match.end()

    def _link(self, match: re.Match[str]) -> int:
        self._flush()
        text, scheme, target = match.groups()
        link = Link(scheme, target, text, self._line, self._style)
        self._page.links.append(link)
        self._page.words += len(text.split())
        self._out.append(link)
        return match.end()

    def _is_italic_mark(self, text: str, at: int) -> bool:
        """An underscore inside a word is a letter of a file name, not a mark."""
        before = text[at - 1 : at] if at else ""
        after = text[at + 1 : at + 2]
        return not (before.isalnum() and after.isalnum())

    def _switch(self, style: Style) -> None:
        self._flush()
        self._style = style

    def _flush(self) -> None:
        if self._buffer:
            self._page.words += len(self._buffer.split())
            self._out.append(Text(self._buffer, self._style))
            self._buffer = ""

    def _error(self, what: str) -> SourceError:
        return SourceError(self._page.where, what, self._line)
