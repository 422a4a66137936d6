"""The menus of the scripted visit: to a topic and back, and to another course and back."""

from __future__ import annotations

import time
from pathlib import Path
from typing import TYPE_CHECKING

from screen_places import ASIDE, CHANGE_COURSE_ROW, DIALOG, MODULES, RETURN, SPLASH, TOOLBAR
from store_files import read_courses
from visit_desktop import Window, differing_pixels, wait_for
from visit_windows import check_over_the_course

if TYPE_CHECKING:
    from visit import Visit

# Of the menu of modules, pixels.
MENU_BOTTOM, ROW_STEP, ROW_MIDDLE, TOPICS_LEFT = 709, 37, 16, 346
SLIDE, TOPIC_DELAY = 0.6, 0.5  # seconds, at the most


class MenuVisit:
    """Begins and ends on the page that the picture `last` shows."""

    def __init__(self, visit: Visit, last: Path) -> None:
        self.visit, self.desktop, self.last = visit, visit.desktop, last
        self.screen = Window(visit.desktop, 0, 0)

    def jump_to_a_topic(self) -> None:
        """To the last topic of the first module, and back."""
        visit, screen = self.visit, self.screen
        before = visit.resume_line()
        modules = list(read_courses(visit.store)[visit.record.name].modules)
        row = MENU_BOTTOM - ROW_STEP * len(modules) + ROW_MIDDLE
        screen.click(*MODULES)
        time.sleep(SLIDE)
        screen.point(TOPICS_LEFT // 2, row)
        time.sleep(0.2)
        self.desktop.picture("module-menu")
        time.sleep(TOPIC_DELAY + SLIDE)
        topic = (TOPICS_LEFT + TOPICS_LEFT // 2, row)
        screen.point(*topic)
        time.sleep(0.2)
        self.desktop.picture("topic-menu")
        screen.click(*topic)
        wait_for(lambda: visit.resume_line() != before, "the topic")
        visit.check("the menus lead into the first module", visit.resume_line().startswith(f'"{modules[0]}",'))
        screen.click(*RETURN)
        wait_for(lambda: visit.resume_line() == before, "the way back from the topic")

    def change_course(self, index: int, picture: str) -> None:
        """By the toolbar to the course of that place in the list."""
        self.screen.click(*TOOLBAR)
        time.sleep(SLIDE)
        self.screen.point(*CHANGE_COURSE_ROW)
        time.sleep(0.2)
        self.desktop.picture(f"{picture}-toolbar-menu")
        self.screen.click(*CHANGE_COURSE_ROW)
        self.desktop.await_window(*DIALOG, what="the course choice")
        check_over_the_course(self.visit, DIALOG, "the course choice")
        self.visit.choose_course(f"{picture}-course-choice", index)
        self.desktop.await_window(*SPLASH, what="the splash")
        wait_for(lambda: self.desktop.window(*SPLASH) is None, "the course")
        self.screen.point(*ASIDE)
        time.sleep(0.5)

    def go_to_another_course(self) -> None:
        visit = self.visit
        before = visit.resume_line()
        names = sorted(read_courses(visit.store))
        other = (names.index(visit.record.name) + 1) % len(names)
        self.change_course(other, "away")
        visit.check("another course has a record of its own", visit.record.with_name(names[other]).exists())
        self.change_course(names.index(visit.record.name), "back")
        visit.check("the first course still stands on the page left", visit.resume_line() == before)
        again = self.desktop.picture("the-page-left")
        visit.check("the screen shows that page", differing_pixels(self.last, again, "1024x731+0+0") == 0)

    def run(self) -> None:
        self.jump_to_a_topic()
        self.go_to_another_course()
