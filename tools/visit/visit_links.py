"""The links of the scripted visit: each kind is followed by the keyboard, and left again by the Return key."""

from __future__ import annotations

import time
from pathlib import Path
from typing import TYPE_CHECKING

from screen_places import COURSE_SCREEN, PAGE_EDGE
from visit_desktop import Desktop, Window, differing_pixels, wait_for

if TYPE_CHECKING:
    from visit import Visit

PAGE = "998x663+16+64"  # of the course screen, pixels
NOTE = '#!/bin/sh\nprintf "%s\\n" "$1" >> "{0}"\n'


class NotedOpener:
    """Stands in the place of the desktop's opener and notes what it was to open."""

    def __init__(self, desktop: Desktop, folder: Path) -> None:
        self.noted = folder / "opened"
        opener = folder / "bin" / "xdg-open"
        opener.parent.mkdir()
        opener.write_text(NOTE.format(self.noted), encoding="utf-8")
        opener.chmod(0o755)
        desktop.environment["PATH"] = f"{opener.parent}:{desktop.environment['PATH']}"

    def await_call(self, end: str) -> None:
        wait_for(lambda: self.noted.exists() and self.noted.read_text(encoding="utf-8").endswith(end + "\n"),
                 f"the opening of {end}")


class Links:
    def __init__(self, visit: Visit, opener: NotedOpener) -> None:
        self.visit, self.desktop, self.opener = visit, visit.desktop, opener

    def await_page(self, module: str, page: str) -> None:
        wait_for(lambda: self.visit.resume_line() == f'"{module}","{page}"', f"page {page} of {module}")
        time.sleep(0.2)

    def follow(self, number: int) -> None:
        """The link of that number on the page, from 1."""
        Window(self.desktop, 0, 0).click(*PAGE_EDGE)
        self.desktop.key(*["Tab"] * number)
        time.sleep(0.2)
        self.desktop.key("Return")
        time.sleep(0.2)

    def turn(self, module: str, *pages: str) -> None:
        for page in pages:
            self.desktop.key("Right")
            self.await_page(module, page)

    def go_back(self) -> None:
        # Alt is held until the arrow has gone up, which is when it counts.
        self.desktop.run("xdotool", "keydown", "alt", "key", "Left", "keyup", "alt")
        time.sleep(0.2)

    def return_to(self, module: str, *pages: str) -> None:
        for page in pages:
            self.go_back()
            self.await_page(module, page)

    def await_minimised(self, address: str) -> None:
        self.opener.await_call(address)
        wait_for(lambda: self.desktop.window(*COURSE_SCREEN) is None, "the minimised course screen")
        self.desktop.run("xdotool", "search", "--class", "tallowmere", "windowactivate", "%@")
        self.desktop.await_window(*COURSE_SCREEN, what="the course screen again")

    def skip_and_look_into_the_handbook(self) -> None:
        self.follow(1)
        wait_for(lambda: self.visit.recorded("rt0102", "0001.txm"), "the module behind the first")
        self.turn("rt0102", "0002.txm", "0003.txm", "0004.txm", "0005.txm")
        before = self.desktop.picture("before-the-handbook")
        self.follow(1)
        handbook = self.desktop.picture("handbook")
        self.visit.check("a link shows a place in a file", differing_pixels(before, handbook, PAGE) > 0)
        self.return_to("rt0102", "0004.txm", "0003.txm", "0002.txm", "0001.txm")
        self.return_to("rt0101", "0001.txm")

    def follow_the_kinds(self) -> None:
        self.turn("rt0101", "0002.txm", "0003.txm")
        top = self.desktop.picture("links")
        Window(self.desktop, 0, 0).click(*PAGE_EDGE)
        self.desktop.key("Tab", "Tab")
        time.sleep(0.3)
        focused = self.desktop.picture("focused-link")
        self.visit.check("the focused link is seen", differing_pixels(top, focused, PAGE) > 0)
        self.desktop.key("Return")
        wait_for(lambda: self.visit.recorded("rt0103", "0001.txm"), "the page of another module")
        time.sleep(0.3)
        self.follow(1)
        self.opener.await_call("/Repository/1/Hidden/Counting a float.txt")
        self.return_to("rt0101", "0003.txm")
        self.follow(1)
        self.follow(3)
        self.opener.await_call("/Repository/1/Cash desk checklist.txt")
        self.follow(4)
        self.await_minimised("http://www.example.com/")
        self.return_to("rt0101", "0002.txm", "0001.txm")

    def run(self) -> None:
        start = self.desktop.picture("before-the-links")
        self.skip_and_look_into_the_handbook()
        self.follow_the_kinds()
        end = self.desktop.picture("behind-the-links")
        self.visit.check("every link led where it should, and back", differing_pixels(start, end, PAGE) == 0)

    def answer_the_survey(self) -> None:
        self.follow(1)
        self.await_minimised("http://www.example.com/survey")
        self.visit.check("the survey is handed to the browser", True)
