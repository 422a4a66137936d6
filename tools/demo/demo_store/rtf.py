"""Renders a parsed page as RTF. Lengths of the page are twips, of pictures pixels of 15 twips."""

from __future__ import annotations

from dataclasses import dataclass
from pathlib import Path

from .errors import SourceError
from .images import TWIPS_PER_PIXEL, picture_group
from .layout import Layout
from .links import LinkTargets
from .markup import (Block, Bookmark, Box, Columns, Heading, Inline, LineBreak, Link, ListItem,
                     Movie, Page, Paragraph, Picture, Style, Table, Text, Title)
from .palette import COLOURS, colour_number

CELL_GAP = 120
COLUMN_GAP = 240
LIST_INDENT = 380
BOX_LOOK = {"tip": ("pale", "blue"), "note": ("pale", "grey"), "warning": ("cream", "warm")}
TITLE_STYLE = Style(bold=True, colour="blue")
ALIGN_WORD = {"left": "\\ql", "center": "\\qc", "right": "\\qr"}


@dataclass(frozen=True)
class _Row:
    """How a table row looks; lengths are twips."""

    widths: list[int]
    fill: str | None
    sides: str  # of each cell that have a border: letters of "tlbr"
    border_width: int
    border: str
    padding: int  # above and below the text


def render(page: Page, layout: Layout, targets: LinkTargets, pictures: Path) -> bytes:
    """Return the page as an RTF document in plain ASCII."""
    return _Renderer(page, layout, targets, pictures).document().encode("ascii")


def escape(text: str) -> str:
    """Return text as RTF: \\'xx for windows-1252, \\uN? for everything beyond it."""
    return "".join(_escape_character(character) for character in text)


def _escape_character(character: str) -> str:
    if character in "\\{}":
        return "\\" + character
    if character == "\u00a0":
        return "\\~"
    if " " <= character <= "~":
        return character
    try:
        return f"\\'{character.encode('cp1252')[0]:02x}"
    except UnicodeEncodeError:
        units = character.encode("utf-16-le")
        signed = [int.from_bytes(units[i : i + 2], "little", signed=True)
                  for i in range(0, len(units), 2)]
        return "".join(f"\\u{unit}?" for unit in signed)


class _Renderer:
    def __init__(self, page: Page, layout: Layout, targets: LinkTargets, pictures: Path) -> None:
        self._page = page
        self._layout = layout
        self._targets = targets
        self._pictures = pictures
        self._out: list[str] = []
        self._indent_right = max(0, layout.text_width - layout.measure)

    def document(self) -> str:
        layout = self._layout
        colours = "".join(f"\\red{r}\\green{g}\\blue{b};" for r, g, b in COLOURS.values())
        self._out = [
            "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0\\deflang1033",
            "{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}{\\f1\\fnil\\fcharset2 Symbol;}}",
            "{\\colortbl;" + colours + "}",
            f"\\paperw{layout.width}\\paperh{layout.height}\\margl{layout.margin_left}"
            f"\\margr{layout.margin_right}\\margt{layout.margin_top}\\margb{layout.margin_top}",
            "\\viewkind4\\viewscale100",
        ]
        self._blocks(self._page.blocks)
        self._out.append("}")
        return "\r\n".join(self._out) + "\r\n"

    def _blocks(self, blocks: list[Block]) -> None:
        for index, block in enumerate(blocks):
            follower = blocks[index + 1] if index + 1 < len(blocks) else None
            if isinstance(block, Title) and self._layout.title_band:
                self._title_band(block)
            elif isinstance(block, Table):
                self._table(block)
            elif isinstance(block, Box):
                self._box(block)
            elif isinstance(block, Columns):
                self._columns(block)
            else:
                self._out.append(self._paragraph(block, follower, in_table=False) + "\\par")
                if isinstance(follower, (Table, Box, Columns)):
                    self._spacer(80)
                continue
            self._spacer(160)

    def _title_band(self, block: Title) -> None:
        text = self._inlines(block.inlines, TITLE_STYLE, self._layout.title_size)
        look = _Row([self._layout.text_width], "pale", "b", 45, "blue", 60)
        self._row(look, ["\\pard\\plain\\intbl\\ql " + text])

    def _table(self, block: Table) -> None:
        widths = self._widths(block.widths)
        if block.header is not None:
            cells = self._table_cells(block, block.header, Style(bold=True))
            self._row(_Row(widths, "light", "tlbr", 10, "rule", 60), cells)
        for row in block.rows:
            cells = self._table_cells(block, row, Style())
            self._row(_Row(widths, None, "tlbr", 10, "rule", 50), cells)

    def _table_cells(self, table: Table, row: list[list[Inline]], style: Style) -> list[str]:
        return [self._open(0, 0, 0, True, align) + self._inlines(cell, style,
                                                                 self._layout.body_size - 2)
                for cell, align in zip(row, table.aligns)]

    def _box(self, block: Box) -> None:
        fill, rule = BOX_LOOK[block.kind]
        look = _Row([self._layout.text_width], fill, "l", 75, rule, 100)
        self._row(look, [self._cell(block.blocks)])

    def _columns(self, block: Columns) -> None:
        cells = [self._cell(cell) for cell in block.cells]
        self._row(_Row(self._widths(block.widths), None, "", 0, "", 0), cells)

    def _widths(self, shares: list[int]) -> list[int]:
        return [self._layout.text_width * share // sum(shares) for share in shares]

    def _cell(self, blocks: list[Block]) -> str:
        followers = [*blocks[1:], None]
        return "\\par\r\n".join(self._paragraph(block, follower, in_table=True)
                                for block, follower in zip(blocks, followers))

    def _row(self, look: _Row, cells: list[str]) -> None:
        border = "".join(f"\\clbrdr{side}\\brdrs\\brdrw{look.border_width}"
                         f"\\brdrcf{colour_number(look.border)}" for side in look.sides)
        shading = f"\\clcbpat{colour_number(look.fill)}" if look.fill else ""
        line = (f"\\trowd\\trleft0\\trgaph{CELL_GAP if border else 0}"
                f"\\trpaddt{look.padding}\\trpaddft3\\trpaddb{look.padding}\\trpaddfb3")
        edge = 0
        for number, width in enumerate(look.widths, start=1):
            edge += width
            # Cells without border stand flush with the text around them, and apart from each other.
            gap = "" if border or number == len(look.widths) else f"\\clpadr{COLUMN_GAP}\\clpadfr3"
            line += f"\\clvertalt{border}{shading}{gap}\\cellx{edge}"
        self._out.append(line)
        self._out.extend(cell + "\\cell" for cell in cells)
        self._out.append("\\row")

    def _spacer(self, height: int) -> None:
        """A line of that height: paragraphs keep no distance from tables of their own."""
        # Not quite empty: viewers give an empty line beside a table no height at all.
        self._out.append(f"\\pard\\plain\\f0\\fs4\\sl-{height}\\slmult0 \\~\\par")

    def _paragraph(self, block: Block, follower: Block | None, in_table: bool) -> str:
        """Render a block that is one paragraph, without the word that ends it."""
        size = self._layout.body_size
        below = _space_below(block, follower, in_table)
        if isinstance(block, Title):
            return (self._open(0, 0, below, in_table)
                    + self._inlines(block.inlines, TITLE_STYLE, self._layout.title_size))
        if isinstance(block, Heading) and block.level == 2:
            return (self._open(0, 120, below, in_table)
                    + self._inlines(block.inlines, TITLE_STYLE, size + 4))
        if isinstance(block, Heading):
            return (self._open(0, 60, below, in_table)
                    + self._inlines(block.inlines, Style(bold=True), size))
        if isinstance(block, ListItem):
            return self._list_item(block, below, in_table)
        if isinstance(block, Paragraph):
            return (self._open(0, 0, below, in_table, block.align)
                    + self._inlines(block.inlines, Style(), size))
        if isinstance(block, Picture):
            return self._open(0, 60, below, in_table, block.align) + self._picture(block)
        if isinstance(block, Movie):
            return self._open(0, 60, below, in_table) + self._movie(block)
        raise SourceError(self._page.where, f"a {type(block).__name__} can't stand here")

    def _open(self, indent: int, before: int, after: int, in_table: bool,
              align: str = "left") -> str:
        right = "" if in_table or not self._indent_right else f"\\ri{self._indent_right}"
        hanging = f"\\fi-{LIST_INDENT}\\li{indent}\\tx{indent}" if indent else ""
        table = "\\intbl" if in_table else ""
        return (f"\\pard\\plain{table}{ALIGN_WORD[align]}{hanging}{right}\\sb{before}\\sa{after}"
                "\\sl264\\slmult1 ")

    def _list_item(self, item: ListItem, after: int, in_table: bool) -> str:
        """The mark comes twice: as text, and as the rule by which an editor renumbers."""
        size = self._layout.body_size
        if item.number is None:
            mark = (f"{{\\pntext\\f1\\fs{size}\\cf1\\'b7\\tab}}"
                    "{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'b7}}")
        else:
            mark = (f"{{\\pntext\\f0\\fs{size}\\cf1 {item.number}.\\tab}}"
                    f"{{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart{item.number}\\pndec"
                    "{\\pntxta.}}")
        return (self._open(LIST_INDENT, 0, after, in_table).rstrip() + mark
                + self._inlines(item.inlines, Style(), size))

    def _inlines(self, inlines: list[Inline], base: Style, size: int) -> str:
        parts = []
        for inline in inlines:
            if isinstance(inline, Text):
                style = Style(base.bold or inline.style.bold, base.italic or inline.style.italic,
                              inline.style.colour or base.colour or "ink")
                parts.append(f"{{{_words(style, size)} {escape(inline.text)}}}")
            elif isinstance(inline, LineBreak):
                parts.append("\\line ")
            elif isinstance(inline, Bookmark):
                parts.append(f"{{\\*\\bkmkstart {inline.name}}}{{\\*\\bkmkend {inline.name}}}")
            else:
                parts.append(self._link(inline, size))
        return "".join(parts)

    def _link(self, link: Link, size: int) -> str:
        instruction = escape(self._targets.instruction(self._page, link))
        style = Style(link.style.bold, link.style.italic, "link")
        return (f"{{\\field{{\\*\\fldinst{{{instruction} }}}}"
                f"{{\\fldrslt{{{_words(style, size)}\\ul {escape(link.text)}}}}}}}")

    def _picture(self, picture: Picture) -> str:
        path = self._pictures / picture.name
        if not path.is_file():
            raise SourceError(self._page.where, f"no picture {picture.name}", picture.line)
        return picture_group(path, picture.width)

    def _movie(self, movie: Movie) -> str:
        return (f"{{\\object\\objemb\\objw{movie.width * TWIPS_PER_PIXEL}"
                f"\\objh{movie.height * TWIPS_PER_PIXEL}"
                f"{{\\*\\objname {escape(movie.name)},{movie.width}}}}}")


def _space_below(block: Block, follower: Block | None, in_table: bool) -> int:
    """The distance to the next paragraph; below the last one of a cell is the cell's padding."""
    if in_table and follower is None:
        return 0
    if isinstance(block, Title):
        return 160
    if isinstance(block, Heading) or isinstance(follower, ListItem):
        return 40 if isinstance(block, ListItem) else 60
    return 120


def _words(style: Style, size: int) -> str:
    bold = "\\b" if style.bold else ""
    italic = "\\i" if style.italic else ""
    return f"\\f0\\fs{size}{bold}{italic}\\cf{colour_number(style.colour or 'ink')}"
