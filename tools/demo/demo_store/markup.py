"""The blocks and inlines of a page, and what they may hold. Made by page_parser, read by rtf."""

from __future__ import annotations

from dataclasses import dataclass, field
from typing import Union


@dataclass(frozen=True)
class Style:
    bold: bool = False
    italic: bool = False
    colour: str | None = None  # a name of palette.COLOURS


@dataclass(frozen=True)
class Text:
    text: str
    style: Style = Style()


@dataclass(frozen=True)
class LineBreak:
    pass


@dataclass(frozen=True)
class Bookmark:
    name: str


@dataclass(frozen=True)
class Link:
    scheme: str  # place, web, survey, doc, page, file or skip
    target: str  # as the author wrote it
    text: str
    line: int
    style: Style = Style()


Inline = Union[Text, LineBreak, Bookmark, Link]


@dataclass(frozen=True)
class Title:
    inlines: list[Inline]


@dataclass(frozen=True)
class Heading:
    level: int  # 2 or 3
    inlines: list[Inline]


@dataclass(frozen=True)
class Paragraph:
    inlines: list[Inline]
    align: str = "left"


@dataclass(frozen=True)
class ListItem:
    number: int | None  # None for a bullet
    inlines: list[Inline]


@dataclass(frozen=True)
class Picture:
    name: str
    width: int  # pixels on the page; 0 for the picture's own
    align: str
    line: int


@dataclass(frozen=True)
class Movie:
    name: str
    width: int  # pixels on the page
    height: int
    line: int


@dataclass(frozen=True)
class Table:
    widths: list[int]  # shares of the text width
    aligns: list[str]  # left or right, of each column
    header: list[list[Inline]] | None
    rows: list[list[list[Inline]]]


@dataclass(frozen=True)
class Box:
    kind: str  # tip, warning or note
    blocks: list[Block]


@dataclass(frozen=True)
class Columns:
    widths: list[int]  # shares of the text width
    cells: list[list[Block]]


Block = Union[Title, Heading, Paragraph, ListItem, Picture, Movie, Table, Box, Columns]


@dataclass
class Page:
    """One parsed page, with what the checks ask for gathered while parsing."""

    where: str
    blocks: list[Block] = field(default_factory=list)
    bookmarks: list[str] = field(default_factory=list)
    links: list[Link] = field(default_factory=list)
    movies: list[Movie] = field(default_factory=list)
    words: int = 0
