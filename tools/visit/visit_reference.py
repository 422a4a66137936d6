"""The attachments, the help and the about text of the scripted visit, and the pages behind the way out."""

from __future__ import annotations

import time
from typing import TYPE_CHECKING

from program_run import CLOSE_WINDOW
from screen_places import (ABOUT_ROW, CLOSE, CLOSE_HELP, COURSE_SCREEN, DETACH, DIALOG, FIRST_LINE, HELP, OPEN,
                           PROFILE_ROW, REPOSITORY_ROW, TALL_DIALOG, TOOLBAR)
from visit_desktop import Window, differing_pixels, wait_for
from visit_windows import check_over_the_course

if TYPE_CHECKING:
    from visit import Visit
    from visit_links import NotedOpener

ATTACHMENT = "Cash desk checklist.txt"  # the first of the course
SETTLE = 0.4  # seconds until a step is painted
PAGE_STANDS = 3.0  # seconds of a trademark page


class Reference:
    def __init__(self, visit: Visit, opener: NotedOpener) -> None:
        self.visit, self.desktop, self.opener = visit, visit.desktop, opener

    def choose(self, row: tuple[int, int]) -> None:
        screen = Window(self.desktop, 0, 0)
        screen.click(*TOOLBAR)
        time.sleep(SETTLE)
        screen.click(*row)

    def await_end_of(self, size: tuple[int, int], what: str) -> None:
        wait_for(lambda: self.desktop.window(*size) is None, f"the end of {what}")
        time.sleep(SETTLE)

    def await_other_window(self, known: set[str], what: str) -> None:
        wait_for(lambda: any(number not in known for number, _ in self.desktop.visible()), what)
        time.sleep(SETTLE)

    def windows(self) -> set[str]:
        return {number for number, _ in self.desktop.visible()}

    def save_over_an_older_copy(self, repository: Window) -> None:
        target = self.desktop.pictures / "saved" / ATTACHMENT
        target.parent.mkdir()
        target.write_text("an older copy")
        known = self.windows()
        repository.click(*DETACH)
        self.await_other_window(known, "the save dialog")
        self.desktop.picture("save-dialog")
        known = self.windows()
        self.desktop.key("ctrl+a")
        self.desktop.type(str(target.resolve()))
        self.desktop.key("Return")
        self.await_other_window(known, "the question about the older copy")
        self.desktop.picture("overwrite-question")
        self.visit.check("the older copy stands until the answer", target.read_text() == "an older copy")
        self.desktop.key("alt+y")
        source = self.visit.store / "Repository" / "1" / ATTACHMENT
        wait_for(lambda: target.read_bytes() == source.read_bytes(), "the copy of the attachment")
        self.visit.check("nothing else is left beside the copy", list(target.parent.iterdir()) == [target])

    def open_help_twice(self, repository: Window) -> None:
        pictures = []
        for number in (1, 2):
            repository.click(*HELP)
            help_screen = self.desktop.await_window(*TALL_DIALOG, what="the help")
            check_over_the_course(self.visit, TALL_DIALOG, "the help")
            help_screen.point(320, 30)
            time.sleep(SETTLE)
            pictures.append(self.desktop.picture(f"help-{number}"))
            area = f"640x520+{help_screen.x}+{help_screen.y}"
            help_screen.click(*CLOSE_HELP)
            self.await_end_of(TALL_DIALOG, "the help")
        self.visit.check("the help opens as well a second time", differing_pixels(*pictures, area) == 0)

    def use_the_attachments(self) -> None:
        self.choose(REPOSITORY_ROW)
        repository = self.desktop.await_window(*DIALOG, what="the repository")
        self.desktop.picture("repository")
        check_over_the_course(self.visit, DIALOG, "the repository")
        repository.click(*FIRST_LINE)
        time.sleep(SETTLE)
        repository.point(*OPEN)
        time.sleep(SETTLE)
        self.desktop.picture("repository-selected")
        repository.click(*OPEN)
        self.opener.await_call(f"Repository/1/{ATTACHMENT}")
        self.save_over_an_older_copy(repository)
        self.open_help_twice(repository)
        repository.click(*CLOSE)
        self.await_end_of(DIALOG, "the repository")

    def look_at_the_profile(self) -> None:
        self.choose(PROFILE_ROW)
        self.desktop.await_window(*DIALOG, what="the profile")
        self.desktop.picture("profile")
        check_over_the_course(self.visit, DIALOG, "the profile")
        self.desktop.key(*CLOSE_WINDOW)
        self.await_end_of(DIALOG, "the profile")

    def read_about_the_course(self) -> None:
        self.choose(ABOUT_ROW)
        self.desktop.await_window(*TALL_DIALOG, what="the about text")
        self.desktop.picture("about")
        check_over_the_course(self.visit, TALL_DIALOG, "the about text")
        self.desktop.key("Tab")
        self.desktop.key("Return")
        self.await_end_of(TALL_DIALOG, "the about text")


def use_the_references(visit: Visit, opener: NotedOpener) -> None:
    reference = Reference(visit, opener)
    reference.use_the_attachments()
    reference.look_at_the_profile()
    reference.read_about_the_course()


def watch_the_trademark_pages(visit: Visit) -> None:
    """From the answer that leaves the course; the program ends by itself behind the last page."""
    time.sleep(PAGE_STANDS / 2)
    visit.check("the course's pages come behind it", visit.desktop.window(*COURSE_SCREEN) is not None)
    first = visit.desktop.picture("trademark-1")
    time.sleep(PAGE_STANDS)
    second = visit.desktop.picture("trademark-2")
    visit.check("they turn by themselves", differing_pixels(first, second, "1024x768+0+0") > 0)
