"""Renders a parsed page as RTF. Lengths of the page are twips, of pictures pixels of 15 twips."""

from __future__ import annotations

from dataclasses import dataclass
from pathlib import Path

from .errors import SourceError
from .images import read_image
from .links import LinkTargets
from .markup import (Block, Bookmark, Box, Columns, Heading, Inline, LineBreak, Link, ListItem,
                     Movie, Page, Paragraph, Picture, Style, Table, Text, Title)
from .palette import COLOURS, colour_number

TWIPS_PER_PIXEL = 15
CELL_GAP = 120
BOX_PADDING = 100
LIST_INDENT = 380
BOX_LOOK = {"tip": ("pale", "blue"), "note": ("pale", "grey"), "warning": ("cream", "warm")}
ALIGN_WORD = {"left": "\\ql", "center": "\\qc", "right": "\\qr"}


@dataclass(frozen=True)
class Layout:
    """The sheet that a page is laid out for; font sizes are half points."""

    width: int
    height: int
    margin_left: int
    margin_right: int
    margin_top: int
    body_size: int
    title_size: int
    title_band: bool
    measure: int  # widest line of running text

    @property
    def text_width(self) -> int:
        return self.width - self.margin_left - self.margin_right


# The page view is 998 by 663 pixels; the right margin leaves room for its scroll bar.
SCREEN = Layout(14970, 9945, 540, 840, 300, 26, 40, True, 12300)
# Help and trademark windows are narrower: nothing on these sheets has a width of its own.
SMALL = Layout(8400, 9945, 240, 240, 240, 22, 32, False, 8400)
# Documents of the repository are opened by a word processor: an A4 sheet.
PAPER = Layout(11906, 16838, 1134, 1134, 1134, 22, 36, False, 9638)


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
            if isinstance(block, Title):
                self._title(block)
            elif isinstance(block, Table):
                self._table(block)
            elif isinstance(block, Box):
                self._box(block)
            elif isinstance(block, Columns):
                self._columns(block)
            else:
                self._out.append(self._paragraph(block, follower, in_table=False) + "\\par")
            if isinstance(block, (Table, Box, Columns)):
                self._out.append("\\pard\\plain\\f0\\fs8\\par")

    def _title(self, block: Title) -> None:
        layout = self._layout
        text = self._inlines(block.inlines, Style(bold=True, colour="blue"), layout.title_size)
        if layout.title_band:
            self._row([layout.text_width], ["pale"], [self._open(0, 60, 60, True) + text], None)
            self._out.append("\\pard\\plain\\f0\\fs12\\par")
        else:
            self._out.append(self._open(0, 0, 160, False) + text + "\\par")

    def _table(self, block: Table) -> None:
        widths = [self._layout.text_width * width // 100 for width in block.widths]
        size = self._layout.body_size - 2
        if block.header is not None:
            cells = [self._open(0, 40, 40, True) + self._inlines(cell, Style(bold=True), size)
                     for cell in block.header]
            self._row(widths, ["light"] * len(cells), cells, "rule")
        for row in block.rows:
            cells = [self._open(0, 40, 40, True) + self._inlines(cell, Style(), size)
                     for cell in row]
            self._row(widths, [None] * len(cells), cells, "rule")

    def _box(self, block: Box) -> None:
        fill, rule = BOX_LOOK[block.kind]
        width = min(self._layout.text_width, self._layout.measure)
        self._row([width], [fill], [self._cell(block.blocks)], rule, BOX_PADDING)

    def _columns(self, block: Columns) -> None:
        widths = [self._layout.text_width * width // 100 for width in block.widths]
        cells = [self._cell(cell) for cell in block.cells]
        self._row(widths, [None] * len(cells), cells, None)

    def _cell(self, blocks: list[Block]) -> str:
        followers = [*blocks[1:], None]
        return "\\par\r\n".join(self._paragraph(block, follower, in_table=True)
                                for block, follower in zip(blocks, followers))

    def _row(self, widths: list[int], fills: list[str | None], cells: list[str],
             rule: str | None, padding: int = 0) -> None:
        """Write one table row; without a rule the row has no borders."""
        border = ""
        if rule is not None:
            border = "".join(f"\\clbrdr{side}\\brdrs\\brdrw10\\brdrcf{colour_number(rule)}"
                             for side in "tlbr")
        line = f"\\trowd\\trgaph{CELL_GAP}\\trleft0"
        if padding:
            line += f"\\trpaddt{padding}\\trpaddft3\\trpaddb{padding}\\trpaddfb3"
        edge = 0
        for width, fill in zip(widths, fills):
            edge += width
            shading = f"\\clcbpat{colour_number(fill)}" if fill else ""
            line += f"\\clvertalt{border}{shading}\\cellx{edge}"
        self._out.append(line)
        self._out.extend(cell + "\\cell" for cell in cells)
        self._out.append("\\row")

    def _paragraph(self, block: Block, follower: Block | None, in_table: bool) -> str:
        """Render a block that is one paragraph, without the word that ends it."""
        size = self._layout.body_size
        if isinstance(block, Heading):
            head_size = size + 4 if block.level == 2 else size
            style = Style(bold=True, colour="blue" if block.level == 2 else "ink")
            before = 120 if block.level == 2 else 60
            return self._open(0, before, 60, in_table) + self._inlines(block.inlines, style,
                                                                       head_size)
        if isinstance(block, ListItem):
            after = 40 if isinstance(follower, ListItem) else 120
            return self._list_item(block, after, in_table)
        if isinstance(block, Paragraph):
            after = 60 if isinstance(follower, ListItem) else 120
            return (self._open(0, 0, after, in_table, block.align)
                    + self._inlines(block.inlines, Style(), size))
        if isinstance(block, Picture):
            return self._open(0, 60, 120, in_table, block.align) + self._picture(block)
        if isinstance(block, Movie):
            return self._open(0, 60, 120, in_table) + self._movie(block)
        raise SourceError(self._page.where, f"a {type(block).__name__} can't stand here")

    def _open(self, indent: int, before: int, after: int, in_table: bool,
              align: str = "left") -> str:
        right = "" if in_table or not self._indent_right else f"\\ri{self._indent_right}"
        hanging = f"\\fi-{LIST_INDENT}\\li{indent}\\tx{indent}" if indent else ""
        table = "\\intbl" if in_table else ""
        return (f"\\pard\\plain{table}{ALIGN_WORD[align]}{hanging}{right}\\sb{before}\\sa{after}"
                "\\sl264\\slmult1 ")

    def _list_item(self, item: ListItem, after: int, in_table: bool) -> str:
        size = self._layout.body_size
        if item.number is None:
            mark = (f"{{\\pntext\\f1\\fs{size}\\'b7\\tab}}"
                    "{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'b7}}")
        else:
            mark = (f"{{\\pntext\\f0\\fs{size} {item.number}.\\tab}}"
                    "{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxta.}}")
        # The mark stands behind the paragraph's words; a reader takes it before the text.
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
        image = read_image(path)
        shown = picture.width or image.width
        width = shown * TWIPS_PER_PIXEL
        height = round(shown * image.height / image.width) * TWIPS_PER_PIXEL
        hexed = image.data.hex()
        lines = "\r\n".join(hexed[i : i + 128] for i in range(0, len(hexed), 128))
        return (f"{{\\pict\\{image.blip}\\picw{image.width}\\pich{image.height}"
                f"\\picwgoal{width}\\pichgoal{height}\r\n{lines}}}")

    def _movie(self, movie: Movie) -> str:
        return (f"{{\\object\\objemb\\objw{movie.width * TWIPS_PER_PIXEL}"
                f"\\objh{movie.height * TWIPS_PER_PIXEL}"
                f"{{\\*\\objname {escape(movie.name)},{movie.width}}}}}")


def _words(style: Style, size: int) -> str:
    bold = "\\b" if style.bold else ""
    italic = "\\i" if style.italic else ""
    return f"\\f0\\fs{size}{bold}{italic}\\cf{colour_number(style.colour or 'ink')}"
