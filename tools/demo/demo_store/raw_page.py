"""Pages whose source is rich text: for what the markup of a .page has no words for."""

from __future__ import annotations

import re
from dataclasses import dataclass
from pathlib import Path

from .errors import SourceError
from .images import picture_group
from .links import PAGE_LINK_TAIL, WEB, LinkTargets
from .markup import Link, Page

# A picture stands in the source as {\*\storepicture receipt.png 200}, with its width in pixels.
PICTURE = re.compile(r"\{\\\*\\storepicture (\S+) (\d+)\}")
HYPERLINK = re.compile(r'HYPERLINK ((?:\\\\l )?"[^"]*"(?: \\\\l "[^"]*")?)')
BOOKMARK = re.compile(r"\{\\\*\\bkmkstart ([^}]+)\}")
PAGE_TARGET = re.compile(r"([a-z0-9]{6})\\\\\\\\(\d{4})\.txm" + PAGE_LINK_TAIL + "$")
WORD = re.compile(r"[A-Za-z]{2,}")
CONTROL = re.compile(r"\\[a-z]+-?\d* ?|\\'[0-9a-f]{2}|\{\\\*[^{}]*\}")


@dataclass
class RawPage(Page):
    source: str = ""

    def render(self, targets: LinkTargets, pictures: Path) -> bytes:
        """Return the document with its pictures in place, or raise an error for a link that leads nowhere."""
        for match in HYPERLINK.finditer(self.source):
            link = self._link(match[1], self._line(match.start()))
            targets.instruction(self, link)

        def picture(match: re.Match[str]) -> str:
            path = pictures / match[1]
            if not path.is_file():
                raise SourceError(self.where, f"no picture {match[1]}", self._line(match.start()))
            return picture_group(path, int(match[2]))

        return PICTURE.sub(picture, self.source).replace("\n", "\r\n").encode("ascii")

    def _link(self, instruction: str, line: int) -> Link:
        """The link as the author of a .page would have written it."""
        names = re.findall(r'"([^"]*)"', instruction)
        text = f"HYPERLINK {instruction}"
        page = PAGE_TARGET.match(names[0])
        if instruction.startswith("\\"):
            return Link("place", names[0], text, line)
        if len(names) == 2:
            return Link("file", "#".join(names), text, line)
        if page is not None:
            return Link("page", f"{page[1]}/{page[2]}", text, line)
        return Link("web" if WEB.match(names[0]) else "doc", names[0], text, line)

    def _line(self, at: int) -> int:
        return self.source.count("\n", 0, at) + 1


def read_raw_page(where: str, source: str) -> RawPage:
    if not source.startswith("{\\rtf1") or not source.isascii():
        raise SourceError(where, "a page of rich text begins with {\\rtf1 and is plain ASCII")
    page = RawPage(where, source=source)
    page.bookmarks = BOOKMARK.findall(source)
    page.words = len(WORD.findall(CONTROL.sub(" ", source)))
    return page
