"""Checks the links of pages and gives the field instruction that the player reads for each."""

from __future__ import annotations

import re
from dataclasses import dataclass, field
from pathlib import Path

from .errors import SourceError
from .markup import Link, Page
from .model import FIRST_PAGE, Course, Module

SKIP_TEXT = "Skip the Course navigation module and begin the course."
SURVEY_TEXT = "Tallowmere Global Studies Web site then click Survey"
WEB = re.compile(r"(http:|www\.|ftp:)")
PAGE_TARGET = re.compile(r"([a-z0-9]{6})/(\d{4})$")
# A page link carries one character behind the page name; the player cuts it off unread.
PAGE_LINK_TAIL = "_"


@dataclass
class LinkTargets:
    """What the links of one page can lead to. A page outside a course has neither of the two."""

    course: Course | None = None
    module: Module | None = None
    documents: Path | None = None  # source folder of the course's attachments
    shared_pages: dict[str, Page] = field(default_factory=dict)  # beside the program, by name

    def instruction(self, page: Page, link: Link) -> str:
        """Return the HYPERLINK instruction of a link, or raise an error that names it."""
        if (link.text == SKIP_TEXT) != (link.scheme == "skip"):
            raise _error(page, link, "the words of the skip link belong to it and to no other")
        if (link.text == SURVEY_TEXT) != (link.scheme == "survey"):
            raise _error(page, link, "the words of the survey link belong to it and to no other")
        makers = {"place": self._place, "web": self._web, "survey": self._web, "doc": self._doc,
                  "page": self._page, "file": self._file, "skip": self._skip}
        return makers[link.scheme](page, link)

    def _place(self, page: Page, link: Link) -> str:
        if link.target not in page.bookmarks:
            raise _error(page, link, "no such place on this page")
        return f'HYPERLINK \\l "{link.target}"'

    def _web(self, page: Page, link: Link) -> str:
        if not WEB.match(link.target) or ".txm" in link.target:
            raise _error(page, link, "not a web address")
        return _hyperlink(link.target)

    def _doc(self, page: Page, link: Link) -> str:
        """The player lower-cases a target, so it is written that way from the start."""
        if self.documents is None:
            raise _error(page, link, "this page has no repository")
        names = {name.lower() for folder in (self.documents, self.documents / "hidden")
                 if folder.is_dir() for name in document_names(folder)}
        if link.target.lower() not in names or WEB.match(link.target):
            raise _error(page, link, "no such document in the course's repository")
        return _hyperlink(link.target.lower())

    def _page(self, page: Page, link: Link) -> str:
        match = PAGE_TARGET.match(link.target)
        if match is None or self.course is None:
            raise _error(page, link, "a page is named as rt0101/0001, from a page of its course")
        module_id, name = match[1], match[2] + ".txm"
        for module in self.course.modules:
            if module.id == module_id and module.has_page(name):
                return _hyperlink(f"{module_id}\\{name}{PAGE_LINK_TAIL}")
        raise _error(page, link, f"no such page in the course {self.course.name}")

    def _file(self, page: Page, link: Link) -> str:
        name, _, place = link.target.partition("#")
        shared = self.shared_pages.get(name)
        if shared is None or place not in shared.bookmarks:
            raise _error(page, link, "no such page beside the program, or no such place in it")
        return f'{_hyperlink(name)} \\l "{place}"'

    def _skip(self, page: Page, link: Link) -> str:
        if self.course is None or self.module is None or self.module is self.course.modules[-1]:
            raise _error(page, link, "there is no module behind this one")
        following = self.course.modules[self.course.modules.index(self.module) + 1]
        return _hyperlink(f"{following.id}\\{FIRST_PAGE}{PAGE_LINK_TAIL}")


def document_names(folder: Path) -> list[str]:
    """Return the names that the attachments of a source folder have in the store."""
    made = {".page": ".rtf", ".sheet": ".pdf"}
    return sorted(path.stem + made.get(path.suffix, path.suffix)
                  for path in folder.iterdir() if path.is_file())


def _hyperlink(target: str) -> str:
    # In a field instruction a backslash of the target is written twice.
    return 'HYPERLINK "' + target.replace("\\", "\\\\") + '"'


def _error(page: Page, link: Link, what: str) -> SourceError:
    return SourceError(page.where, f"link [{link.text}]({link.scheme}:{link.target}): {what}",
                       link.line)
