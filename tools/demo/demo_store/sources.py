"""Reads the sources of the demo store and checks that they agree with each other."""

from __future__ import annotations

import re
import tomllib
from pathlib import Path

from .errors import SourceError
from .markup import Page
from .model import FIRST_PAGE, PAGE_TYPES, Course, MapLine, Module
from .page_parser import parse_page
from .quiz import parse_quiz
from .raw_page import read_raw_page
from .text import read_source

MODULE_ID = re.compile(r"[a-z0-9]{6}$")
MAP_LINE = re.compile(r"(\d{4}\.txm)\*([A-Za-z]+)\*([^*]*)$")


def read_courses(demo: Path) -> list[Course]:
    """Read demo/courses.toml and every module that it lists."""
    path = demo / "courses.toml"
    courses = []
    for entry in tomllib.loads(read_source(path))["course"]:
        modules = [_read_module(demo / "courses" / module_id) for module_id in entry["modules"]]
        courses.append(Course(entry["name"], entry["repository"], modules))
    listed = [module.id for course in courses for module in course.modules]
    present = sorted(folder.name for folder in (demo / "courses").iterdir() if folder.is_dir())
    if sorted(listed) != present:
        raise SourceError(path, f"lists {sorted(listed)}, the folders are {present}")
    for course in courses:
        _check_reviews(course)
    return courses


def _read_module(folder: Path) -> Module:
    if not MODULE_ID.match(folder.name):
        raise SourceError(folder, "a module's id is six lower-case letters and digits")
    if not folder.is_dir():
        raise SourceError(folder, "no such module")
    module = _read_map(folder)
    for line in module.lines:
        module.pages[line.page] = _read_page(folder, line)
        quiz = folder / f"{line.stem}.test"
        if quiz.is_file() != (line.kind == "Test"):
            raise SourceError(quiz, "a page of the type Test, and no other, has a test source")
        if line.kind == "Test":
            module.quizzes[line.page] = parse_quiz(str(quiz), read_source(quiz))
    stems = {line.stem for line in module.lines}
    for path in folder.iterdir():
        if path.suffix in (".page", ".rtf", ".test") and path.stem not in stems:
            raise SourceError(path, "is not in the module's map")
    return module


def _read_page(folder: Path, line: MapLine) -> Page:
    source = folder / f"{line.stem}.page"
    raw = source.with_suffix(".rtf")
    if source.is_file() == raw.is_file():
        raise SourceError(folder / "Map.txt", f"{line.page} has one source, {source.name} or {raw.name}")
    if raw.is_file():
        return read_raw_page(str(raw), read_source(raw))
    return parse_page(str(source), read_source(source))


def _read_map(folder: Path) -> Module:
    path = folder / "Map.txt"
    text = read_source(path).rstrip("\n").split("\n")
    if len(text) < 4 or not text[1].strip():
        raise SourceError(path, "three head lines, the second with the module's name, then pages")
    lines: list[MapLine] = []
    topics: list[str] = []
    for number, raw in enumerate(text[3:], start=4):
        match = MAP_LINE.match(raw)
        if match is None or match[2] not in PAGE_TYPES:
            raise SourceError(path, f"not a page line: {raw}", number)
        line = MapLine(*match.groups())
        if line.page != f"{len(lines) + 1:04}.txm":
            raise SourceError(path, f"{line.page} is out of order", number)
        if (line.kind == "Topic") != bool(line.topic.strip()):
            raise SourceError(path, "a topic page, and no other, names its topic", number)
        if line.topic:
            _check_topic(path, number, line.topic, topics)
            topics.append(line.topic)
        lines.append(line)
    if lines[0].page != FIRST_PAGE or lines[0].kind != "Topic":
        raise SourceError(path, "the first page has to be a named topic", 4)
    return Module(folder.name, folder, text[1], (text[0], text[2]), lines)


def _check_topic(path: Path, number: int, topic: str, earlier: list[str]) -> None:
    """The player keeps the viewed topics in one text and looks a topic up by its bare name."""
    if "_" in topic:
        raise SourceError(path, f"an underscore in the topic {topic}", number)
    for other in earlier:
        if topic in other or other in topic:
            raise SourceError(path, f"{topic} and {other} can't be told apart", number)


def _check_reviews(course: Course) -> None:
    pages = {f"{module.id}_{line.page}": line.kind
             for module in course.modules for line in module.lines}
    for module in course.modules:
        for quiz in module.quizzes.values():
            for question in quiz.questions:
                link = question.review_link
                if link and pages.get(link, "Test") == "Test":
                    raise SourceError(quiz.where, f"the review page {link} is no page to read "
                                      f"in the course {course.name}", question.line)
