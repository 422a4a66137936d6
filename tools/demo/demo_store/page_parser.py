"""Reads a .page source into blocks. The markup is told in demo/README.md."""

from __future__ import annotations

import re

from .errors import SourceError
from .inline_parser import InlineParser
from .markup import (Block, Box, Columns, Heading, Inline, ListItem, Movie, Page, Paragraph,
                     Picture, Table, Title)

NUMBERED = re.compile(r"(\d+)\. +(.*)")
MOVIE = re.compile(r"@movie +(\S+) +(\d+)x(\d+)$")
PICTURE = re.compile(r"@picture +(\S+)(?: +(\d+))?(?: +(left|center|right))?$")
BOX_KINDS = ("tip", "warning", "note")
STARTERS = ("#", "- ", "@", "|")


def parse_page(where: str, source: str) -> Page:
    """Parse a page; `where` names its file in error messages."""
    page = Page(where)
    page.blocks = _PageParser(page, source).parse()
    titles = sum(isinstance(block, Title) for block in page.blocks)
    if titles != 1 or not isinstance(page.blocks[0], Title):
        raise SourceError(where, "a page begins with its title (# ...) and has no second one")
    return page


class _PageParser:
    def __init__(self, page: Page, source: str) -> None:
        self._page = page
        self._lines = source.split("\n")
        self._at = 0

    def parse(self) -> list[Block]:
        blocks, end = self._blocks_until(())
        assert end == ""
        return blocks

    def _blocks_until(self, ends: tuple[str, ...]) -> tuple[list[Block], str]:
        """Parse blocks up to a line that is one of `ends`, or to the end of the page."""
        blocks: list[Block] = []
        number = 0
        while self._at < len(self._lines):
            line = self._lines[self._at].rstrip()
            if line in ends:
                self._at += 1
                return blocks, line
            if not line:
                self._at += 1
                continue
            block = self._block(line, number)
            number = block.number or 0 if isinstance(block, ListItem) else 0
            blocks.append(block)
        if ends:
            raise self._error(f"{ends[-1]} is missing")
        return blocks, ""

    def _block(self, line: str, last_number: int) -> Block:
        if line.startswith("@"):
            return self._directive(line)
        if line.startswith("|"):
            raise self._error("a table row stands outside @table")
        if line.startswith("# "):
            return Title(self._one_line(line[2:]))
        if line.startswith("## "):
            return Heading(2, self._one_line(line[3:]))
        if line.startswith("### "):
            return Heading(3, self._one_line(line[4:]))
        if line.startswith("- "):
            return ListItem(None, self._running_text(line[2:], "  "))
        if match := NUMBERED.match(line):
            if int(match.group(1)) != last_number + 1:
                raise self._error(f"item {match.group(1)} does not follow item {last_number}")
            return ListItem(last_number + 1, self._running_text(match.group(2), "   "))
        return Paragraph(self._running_text(line, ""))

    def _directive(self, line: str) -> Block:
        start = self._at
        word, _, rest = line[1:].partition(" ")
        if word == "table":
            return self._table(rest)
        self._at += 1
        if word in BOX_KINDS and not rest:
            blocks, _ = self._blocks_until(("@end",))
            return Box(word, self._simple(blocks, start))
        if word == "columns":
            return self._columns(self._widths(rest, start), start)
        if word == "center":
            self._at -= 1
            return Paragraph(self._one_line(rest), "center")
        if match := PICTURE.match(line):
            return Picture(match[1], int(match[2] or 0), match[3] or "left", start + 1)
        if match := MOVIE.match(line):
            movie = Movie(match[1], int(match[2]), int(match[3]), start + 1)
            self._page.movies.append(movie)
            return movie
        raise self._error(f"can't read {line}", start)

    def _columns(self, widths: list[int], start: int) -> Columns:
        cells: list[list[Block]] = []
        end = "@next"
        while end == "@next":
            blocks, end = self._blocks_until(("@next", "@end"))
            cells.append(self._simple(blocks, start))
        if len(cells) != len(widths):
            raise self._error(f"{len(widths)} widths for {len(cells)} columns", start)
        return Columns(widths, cells)

    def _simple(self, blocks: list[Block], line: int) -> list[Block]:
        """Tables do not nest, so boxes and columns hold plain blocks only."""
        if not blocks:
            raise self._error("an empty box or column", line)
        for block in blocks:
            if isinstance(block, (Title, Table, Box, Columns, Movie)):
                raise self._error(f"a {type(block).__name__} stands in a box or column", line)
        return blocks

    def _table(self, directive: str) -> Table:
        """A column's share may carry an r: its cells then stand at the right."""
        aligns = ["right" if share.endswith("r") else "left" for share in directive.split()]
        widths = self._widths(directive.replace("r", ""))
        start = self._at
        self._at += 1
        header: list[list[Inline]] | None = None
        rows: list[list[list[Inline]]] = []
        while self._at < len(self._lines) and self._lines[self._at].startswith("|"):
            line = self._lines[self._at].rstrip()
            is_header = line.startswith("|=")
            cells = [cell.strip() for cell in line[2 if is_header else 1 :].split("|")]
            if len(cells) != len(widths):
                raise self._error(f"{len(widths)} widths for {len(cells)} cells")
            parsed = [self._inlines(cell, self._at + 1) for cell in cells]
            if is_header and (header is not None or rows):
                raise self._error("a header row stands first and once")
            if is_header:
                header = parsed
            else:
                rows.append(parsed)
            self._at += 1
        if not rows:
            raise self._error("a table without rows", start)
        return Table(widths, aligns, header, rows)

    def _widths(self, text: str, line: int | None = None) -> list[int]:
        parts = text.split()
        if not parts or not all(part.isdigit() for part in parts):
            raise self._error("widths are shares in whole numbers", line)
        return [int(part) for part in parts]

    def _one_line(self, text: str) -> list[Inline]:
        inlines = self._inlines(text, self._at + 1)
        self._at += 1
        return inlines

    def _running_text(self, first: str, indent: str) -> list[Inline]:
        """Join the lines of a paragraph; a list item goes on in lines with its indent."""
        start = self._at + 1
        parts = [first]
        self._at += 1
        while self._at < len(self._lines):
            line = self._lines[self._at].rstrip()
            if not line or (indent and not line.startswith(indent)):
                break
            if not indent and (line.startswith(STARTERS) or NUMBERED.match(line)):
                break
            parts.append(line.strip())
            self._at += 1
        return self._inlines(" ".join(parts), start)

    def _inlines(self, text: str, line: int) -> list[Inline]:
        return InlineParser(self._page, line).parse(text)

    def _error(self, what: str, line: int | None = None) -> SourceError:
        return SourceError(self._page.where, what, (self._at if line is None else line) + 1)
