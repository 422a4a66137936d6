#!/usr/bin/env python3
"""A learner's visit, scripted: the real program under Xvfb, driven by keys and clicks.

OUT gets the pictures, the learner's files and what was printed. Says what it checked and exits with 1 when something was
not as it must be.
"""

import argparse
import shutil
import sys
import time
from collections.abc import Sequence
from contextlib import ExitStack
from pathlib import Path

import visit_movies
import visit_progress
from private_cups import PrivateCups, missing_packages
from program_run import CLOSE_WINDOW
from screen_places import (ASIDE, COURSE_SCREEN, DIALOG, FIRST_BOX, LEFT_BUTTON, PREVIOUS, PROGRESS, REGISTER,
                           RETURN, SPLASH)
from store_files import USER_DATA, read_courses
from visit_buttons import point_at_the_buttons
from visit_desktop import WINDOW_MANAGERS, Desktop, Window, differing_pixels, wait_for
from visit_glossary import look_up_a_word
from visit_held_keys import MODULE, PAGE, hold_the_keys
from visit_links import Links, NotedOpener
from visit_menus import MenuVisit
from visit_printing import print_page_and_attachment
from visit_reference import use_the_references, watch_the_trademark_pages
from visit_tests import TestVisit
from visit_windows import check_over_the_course

COURSE = "Cash desk and customers"
LEARNER = ("Ida", "Lindqvist", "ida@example.com")


class Visit:
    def __init__(self, desktop: Desktop, store: Path, busy: int) -> None:
        self.desktop = desktop
        self.store = store
        self.busy = busy
        self.record = store / "data" / USER_DATA / f"{LEARNER[0]} {LEARNER[1]}" / COURSE
        self.failures = 0

    def check(self, what: str, holds: bool) -> None:
        print(("ok    " if holds else "FAILED ") + what)
        self.failures += not holds

    def resume_line(self) -> str:
        if not self.record.exists():
            return ""
        lines = self.record.read_bytes().decode("cp1252").split("\r\n")
        return lines[0]

    def recorded(self, module: str, page: str) -> bool:
        """The first touch of a module adds its line; every other page moves the resume line."""
        if page == "0001.txm":
            return f'\r\n"{module}",'.encode() in self.record.read_bytes()
        return self.resume_line() == f'"{module}","{page}"'

    def choose_course(self, picture: str, index: int = 0) -> None:
        dialog = self.desktop.await_window(*DIALOG, what="the course choice")
        self.desktop.key(*["Down"] * (index + 1))
        time.sleep(0.3)
        dialog.point(*LEFT_BUTTON)
        time.sleep(0.2)
        self.desktop.picture(picture)
        dialog.click(*LEFT_BUTTON)

    def register(self) -> None:
        self.desktop.await_window(*SPLASH, what="the splash")
        self.desktop.picture("splash")
        self.desktop.await_window(*COURSE_SCREEN, what="the course screen")
        login = self.desktop.await_window(*DIALOG, what="the sign-in screen")
        self.desktop.picture("user-login")
        check_over_the_course(self, DIALOG, "the sign-in screen")
        login.click(*REGISTER)
        time.sleep(0.5)
        form = self.desktop.await_window(*DIALOG, what="the registration")
        check_over_the_course(self, DIALOG, "the registration")
        form.click(*FIRST_BOX)
        for text in LEARNER:
            self.desktop.type(text)
            self.desktop.key("Tab")
        time.sleep(0.3)
        self.desktop.picture("registration")
        form.click(*LEFT_BUTTON)
        wait_for(lambda: self.resume_line() != "", "the learner's record")
        self.check("the registration makes the learner's folder", self.record.exists())

    def await_first_page(self) -> None:
        Window(self.desktop, 0, 0).point(*ASIDE)
        wait_for(lambda: self.desktop.window(*DIALOG) is None, "the end of the sign-in")
        time.sleep(0.3)
        self.desktop.picture("first-page")

    def read_to_the_end(self) -> Path:
        pages = read_courses(self.store)[COURSE].pages()
        behind_test = False  # a test that is left has turned the page already
        for number, (module, page) in enumerate(pages[1:], start=2):
            if not behind_test:
                self.desktop.key("Right")
            visit_movies.pass_by(self, module, page)
            wait_for(lambda: self.recorded(module, page), f"page {page} of {module}")
            behind_test = page in read_courses(self.store)[COURSE].modules[module].tests
            if (module, page) == (MODULE, PAGE):
                hold_the_keys(self, self.busy)
            if behind_test:
                TestVisit(self).meet(module, page)
            elif number % 8 == 0:
                time.sleep(0.2)
                self.desktop.picture(f"page-{module}-{page[:4]}")
        time.sleep(0.3)
        self.check(f"all {len(pages)} pages were read", self.resume_line() == f'"{pages[-1][0]}","{pages[-1][1]}"')
        self.check("every module has its line",
                   self.record.read_bytes().count(b"\r\n") == 1 + len({module for module, _ in pages}))
        return self.desktop.picture("last-page")

    def go_back_and_return(self) -> None:
        last = self.resume_line()
        screen = Window(self.desktop, 0, 0)
        screen.click(*PREVIOUS)
        wait_for(lambda: self.resume_line() != last, "the page before")
        time.sleep(0.2)
        self.desktop.picture("page-before")
        # A test page stepped over on the way back has left a return point of its own.
        for _ in range(3):
            if self.resume_line() != last:
                screen.click(*RETURN)
                time.sleep(0.4)
        self.check("the Return button leads back", self.resume_line() == last)
        screen.point(*ASIDE)

    def leave(self, picture: str | None) -> None:
        self.desktop.key("Escape")
        time.sleep(0.7)
        if picture is not None:
            self.desktop.picture(picture)
        self.desktop.key("alt+y")
        if picture is not None:
            watch_the_trademark_pages(self)

    def come_back(self, last: Path) -> None:
        program = self.desktop.start(self.store / "tallowmere")
        self.choose_course("course-choice-again")
        self.desktop.await_window(*COURSE_SCREEN, what="the course screen")
        welcome = self.desktop.await_window(*DIALOG, what="the welcome")
        self.desktop.picture("welcome")
        check_over_the_course(self, DIALOG, "the welcome")
        before = self.resume_line()
        welcome.click(*LEFT_BUTTON)
        self.desktop.await_window(*PROGRESS, what="check progress")
        self.desktop.picture("check-progress")
        check_over_the_course(self, PROGRESS, "check progress")
        self.desktop.key(*CLOSE_WINDOW)
        wait_for(lambda: self.desktop.window(*PROGRESS) is None, "the end of check progress")
        Window(self.desktop, 0, 0).point(*ASIDE)
        wait_for(lambda: self.desktop.window(*DIALOG) is None, "the end of the sign-in")
        time.sleep(0.5)
        again = self.desktop.picture("the-same-page")
        self.check("the record still stands on the page left", self.resume_line() == before)
        # Only the Return button differs: its places are those of the run before.
        self.check("the screen shows the page left", differing_pixels(last, again, "1024x731+0+0") == 0)
        self.leave(None)
        wait_for(lambda: program.poll() is not None, "the end of the program")
        self.check("the program ends well", program.returncode == 0)

    def run(self, opener: NotedOpener, cups: PrivateCups | None) -> None:
        program = self.desktop.start(self.store / "tallowmere")
        self.choose_course("course-choice")
        self.register()
        self.await_first_page()
        links = Links(self, opener)
        links.run()
        last = self.read_to_the_end()
        self.go_back_and_return()
        point_at_the_buttons(self)
        MenuVisit(self, last).run()
        look_up_a_word(self)
        use_the_references(self, opener)
        if cups is not None:
            print_page_and_attachment(self, cups)
        links.answer_the_survey()
        self.leave("exit-question")
        wait_for(lambda: program.poll() is not None, "the end of the program")
        self.check("the program ends well", program.returncode == 0)
        self.come_back(last)
        visit_progress.play(self)
        visit_movies.play(self)


def follow_the_dpi(store: Path) -> None:
    """Without this the screens are fitted to the display, whatever its dpi."""
    (store / "registry/scale.reg").write_text("Windows Registry Editor Version 5.00\n\n"
                                              "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TLMS\\Tallowmere Manager 1.0]\n"
                                              "\"Scale\"=\"1\"\n", encoding="utf-8")


def play(store: Path, out: Path, dpi: int = 96, wrapper: Sequence[str] = (), window_manager: str = "openbox",
         busy: int = 0) -> int:
    """Plays the visit, the program behind the command `wrapper`; gives how many checks failed."""
    shutil.rmtree(out, ignore_errors=True)
    out.mkdir(parents=True)
    # The visit plays on a copy, so that the store's own learners are left alone.
    playground = out / "store"
    shutil.copytree(store, playground, ignore=shutil.ignore_patterns("data"))
    if dpi != 96:
        follow_the_dpi(playground)
    with ExitStack() as stack:
        desktop = stack.enter_context(Desktop(out, dpi, wrapper, window_manager))
        cups = None
        if missing := missing_packages():
            print(f"nothing is printed without {', '.join(missing)}")
        else:
            cups = stack.enter_context(PrivateCups(out / "printed"))
            desktop.environment.update(cups.variables)
        visit = Visit(desktop, playground, busy)
        visit.run(NotedOpener(desktop, out), cups)
    shutil.move(playground / "data", out / "learner")
    shutil.rmtree(playground)
    shutil.rmtree(out / "bin")
    return visit.failures


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("store", type=Path)
    parser.add_argument("out", type=Path)
    parser.add_argument("dpi", type=int, nargs="?", default=96)
    parser.add_argument("--window-manager", choices=WINDOW_MANAGERS, default="openbox")
    parser.add_argument("--busy", type=int, default=0, help="processes that run beside the program while keys are held")
    arguments = parser.parse_args()
    failures = play(arguments.store, arguments.out, arguments.dpi, window_manager=arguments.window_manager,
                    busy=arguments.busy)
    print(f"Pictures and the learner's files are in {arguments.out}/")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
