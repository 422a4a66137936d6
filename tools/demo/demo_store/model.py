"""The demo store as its sources tell it: courses, modules, pages and tests."""

from __future__ import annotations

from dataclasses import dataclass, field
from pathlib import Path

from .markup import Page

PAGE_TYPES = ("Topic", "Page", "Test")
FIRST_PAGE = "0001.txm"


@dataclass(frozen=True)
class MapLine:
    page: str  # file name, such as 0001.txm
    kind: str  # one of PAGE_TYPES
    topic: str  # empty unless the page starts a topic

    @property
    def stem(self) -> str:
        return self.page.removesuffix(".txm")


@dataclass(frozen=True)
class Question:
    line: int
    text: str
    answers: list[tuple[bool, str]]  # whether it is correct, and its text
    explanation: str
    review_label: str
    review_link: str  # as it stands in the test file; empty for none


@dataclass(frozen=True)
class Quiz:
    where: str
    practice: bool
    questions: list[Question]


@dataclass
class Module:
    id: str
    folder: Path
    name: str
    head: tuple[str, str]  # lines 1 and 3 of the map
    lines: list[MapLine]
    pages: dict[str, Page] = field(default_factory=dict)  # by page name
    quizzes: dict[str, Quiz] = field(default_factory=dict)  # by page name

    def has_page(self, name: str) -> bool:
        return any(line.page == name for line in self.lines)


@dataclass
class Course:
    name: str
    repository: str  # its folder under Repository
    modules: list[Module]
