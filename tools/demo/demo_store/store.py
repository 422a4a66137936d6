"""Writes the store folder: what course installers would leave beside the player's program."""

from __future__ import annotations

import shutil
from dataclasses import dataclass, field
from pathlib import Path

from .errors import SourceError
from .glossary import glossary_text
from .layout import PAPER, SCREEN, SMALL, Layout
from .lead_in import LEAD_IN
from .links import LinkTargets
from .markup import Page
from .model import Course, Module
from .page_parser import parse_page
from .pdf import render_sheet
from .quiz import quiz_text
from .raw_page import RawPage
from .rtf import render
from .sources import read_courses
from .text import ansi, crlf, read_source

CATALOGUE = "HKEY_LOCAL_MACHINE\\SOFTWARE\\TLMS\\Tallowmere Manager 1.0"
# Folders that only this writer fills; learner data and skin lie beside them and stay.
OWN_FOLDERS = ("Repository", "Glossary", "About")


@dataclass
class Report:
    """What was written, for the one line that the build shows."""

    pages: int = 0
    words: int = 0
    questions: int = 0
    missing_movies: list[str] = field(default_factory=list)


class StoreWriter:
    def __init__(self, demo: Path, out: Path) -> None:
        self._demo = demo
        self._out = out
        self._report = Report()
        self._shared: dict[str, Page] = {}

    def write(self) -> Report:
        """Read and check all sources first: a faulty source leaves the store as it was."""
        courses = read_courses(self._demo)
        self._shared = {path.stem + ".txm": _parse(path)
                        for path in sorted((self._demo / "handbook").glob("*.page"))}
        files = self._files(courses)
        self._clear([module.id for course in courses for module in course.modules])
        for name, data in files.items():
            target = self._out / name
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(data)
        return self._report

    def _files(self, courses: list[Course]) -> dict[str, bytes]:
        """Return everything to write, by its path in the store."""
        files: dict[str, bytes] = {}
        for course in courses:
            for module in course.modules:
                files |= self._module_files(course, module)
            files |= self._repository_files(course)
            files |= self._about_files(course)
        for name, page in self._shared.items():
            files[name] = self._render(page, SCREEN, LinkTargets())
        for name in ("StatusHelp", "RepositoryHelp"):
            page = _parse(self._demo / "help" / f"{name}.page")
            files[f"{name}.rtf"] = self._render(page, SMALL, LinkTargets())
        files |= self._glossary_files(courses)
        files["registry/courses.reg"] = _registry(courses).encode("ascii")
        return files

    def _module_files(self, course: Course, module: Module) -> dict[str, bytes]:
        files: dict[str, bytes] = {}
        map_lines = [module.head[0], module.name, module.head[1]]
        map_lines += [f"{line.page}*{line.kind}*{line.topic}" for line in module.lines]
        files[f"{module.id}/Map.txt"] = ansi(module.folder / "Map.txt",
                                             crlf("\n".join(map_lines) + "\n"))
        movies = module.folder / "movies"
        for path in sorted(movies.iterdir()) if movies.is_dir() else []:
            files[f"{module.id}/Movies/{path.name}"] = path.read_bytes()
        targets = LinkTargets(course, module, self._demo / "repository" / course.repository,
                              self._shared)
        for name, page in module.pages.items():
            files[f"{module.id}/{name}"] = LEAD_IN + self._render(page, SCREEN, targets)
            self._report.pages += 1
            self._report.words += page.words
            self._report.missing_movies += [
                f"{module.id}/Movies/{movie.name}" for movie in page.movies
                if f"{module.id}/Movies/{movie.name}" not in files]
        for name, quiz in module.quizzes.items():
            stem = name.removesuffix(".txm")
            files[f"{module.id}/{module.id}_{stem}TST"] = ansi(quiz.where, quiz_text(quiz))
            self._report.questions += len(quiz.questions)
        return files

    def _repository_files(self, course: Course) -> dict[str, bytes]:
        source = self._demo / "repository" / course.repository
        target = f"Repository/{course.repository}"
        files = self._documents(source, target)
        if (source / "hidden").is_dir():
            files |= self._documents(source / "hidden", f"{target}/Hidden")
        return files

    def _documents(self, folder: Path, target: str) -> dict[str, bytes]:
        files: dict[str, bytes] = {}
        for path in sorted(path for path in folder.iterdir() if path.is_file()):
            if path.suffix == ".page":
                page = self._render(_parse(path), PAPER, LinkTargets())
                files[f"{target}/{path.stem}.rtf"] = page
            elif path.suffix == ".sheet":
                sheet = render_sheet(str(path), read_source(path))
                files[f"{target}/{path.stem}.pdf"] = sheet
            elif path.suffix == ".txt":
                files[f"{target}/{path.name}"] = ansi(path, crlf(read_source(path)))
            else:
                raise SourceError(path, "an attachment's source is a .page, .sheet or .txt file")
        return files

    def _about_files(self, course: Course) -> dict[str, bytes]:
        folder = self._demo / "about"
        about = folder / f"About {course.name}.txt"
        files = {f"About/{about.name}": ansi(about, crlf(read_source(about)))}
        for path in sorted(folder.glob(f"Trademark {course.name}_*.page")):
            page = self._render(_parse(path), SCREEN, LinkTargets())
            files[f"About/{path.stem}.txm"] = LEAD_IN + page
        return files

    def _glossary_files(self, courses: list[Course]) -> dict[str, bytes]:
        names = {f"Glossary {course.name}.txt" for course in courses}
        files: dict[str, bytes] = {}
        for path in sorted((self._demo / "glossary").glob("*.txt")):
            if path.name != "Glossary.txt" and path.name not in names:
                raise SourceError(path, "belongs to no course")
            place = path.name if path.name == "Glossary.txt" else f"Glossary/{path.name}"
            files[place] = ansi(path, glossary_text(path))
        return files

    def _render(self, page: Page, layout: Layout, targets: LinkTargets) -> bytes:
        if isinstance(page, RawPage):
            return page.render(targets, self._demo / "pictures")
        return render(page, layout, targets, self._demo / "pictures")

    def _clear(self, module_ids: list[str]) -> None:
        for name in (*OWN_FOLDERS, *module_ids):
            shutil.rmtree(self._out / name, ignore_errors=True)
        for module_id in module_ids:
            (self._out / module_id / "Movies").mkdir(parents=True)


def _parse(path: Path) -> Page:
    return parse_page(str(path), read_source(path))


def _registry(courses: list[Course]) -> str:
    lines = ["Windows Registry Editor Version 5.00", "", f"[{CATALOGUE}]", ""]
    for course in courses:
        modules = "".join(module.id for module in course.modules)
        lines += [f"[{CATALOGUE}\\{course.name}]", "",
                  f"[{CATALOGUE}\\{course.name}\\Modules]",
                  f'"ModuleString"="{modules}"', f'"RepNum"="{course.repository}"', ""]
    return "\r\n".join(lines) + "\r\n"
