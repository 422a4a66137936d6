#!/usr/bin/env python3
"""The full-screen forms among a desktop's panels, under every window manager that is installed.

Usage: docks.py STORE OUT. Runs the real program on a display of 1366 by 768 with tint2 along its lower edge, and with
xfce4-panel, where they are installed: the course screen, the test and the trademark pages have to cover the panel, an
opened document and a form have to stand over the course screen, and it has to come back from being minimised.
Pictures go to OUT. Needs tools/setup.sh managers.
"""

import argparse
import re
import shutil
import subprocess
import sys
import time
from collections.abc import Callable
from pathlib import Path

from program_run import Run, Stuck
from screen_places import COURSE_SCREEN
from store_files import prepare_learner, read_courses
from visit_desktop import DOCKS, WINDOW_MANAGERS, Desktop

DISPLAY = (1366, 768)
EDGE = (0x47, 0x47, 0xB2)     # of the full-screen forms beside the design's area
# tint2 asks to stand above all others unless its panel_layer is "normal", and this window manager keeps it there.
STAYS_ABOVE = "xfwm4 with tint2"
# A window of another program, as an opened document has it.
DOCUMENT = ["xmessage", "-geometry", "300x200+500+300", "A document"]
SETTLE = 1.0                  # seconds until the window manager and the panel have done their part
PATIENCE = 10.0               # seconds
LONGEST_WAY = 20              # pages to the first test


class Try:
    """One run of the program beside one dock."""

    def __init__(self, desktop: Desktop, store: Path, name: str) -> None:
        self.desktop, self.store, self.name, self.failures = desktop, store, name, 0
        self.stays_above = name == STAYS_ABOVE

    def check(self, what: str, holds: bool) -> None:
        print(f"  {'ok  ' if holds else 'FAIL'} {self.name}: {what}", flush=True)
        self.failures += not holds

    def covers(self, what: str) -> None:
        """The strips beside the design's area show the form's own colour from top to bottom."""
        time.sleep(SETTLE)
        picture = self.desktop.picture(what.replace(" ", "-"))
        covered = self.strip_colours(picture) == {EDGE}
        if self.stays_above and not covered:
            print(f"  --   {self.name}: the dock stays over {what}")
        else:
            self.check(f"{what} covers the dock", covered)

    def strip_colours(self, picture: Path) -> set[tuple[int, ...]]:
        told = subprocess.run(["convert", picture, "-crop", f"20x{DISPLAY[1]}+20+0", "+repage", "-unique-colors",
                               "-depth", "8", "rgb:-"], capture_output=True, check=True).stdout
        return {tuple(told[at:at + 3]) for at in range(0, len(told), 3)}

    def stacking(self) -> list[str]:
        told = self.desktop.ask("xprop", "-root", "_NET_CLIENT_LIST_STACKING")
        return [str(int(number, 16)) for number in re.findall(r"0x[0-9a-f]+", told)]

    def screen(self) -> str:
        return next(number for number, size in self.desktop.visible() if size == COURSE_SCREEN)

    def await_dock(self) -> None:
        shown = self.until(lambda: len(self.strip_colours(self.desktop.picture("the-dock"))) > 1)
        self.check("the dock shows", shown)

    def until(self, condition: Callable[[], bool]) -> bool:
        end = time.monotonic() + PATIENCE
        while not condition():
            if time.monotonic() > end:
                return False
            time.sleep(0.1)
        return True

    def open_document(self) -> None:
        document = subprocess.Popen(DOCUMENT, env=self.desktop.environment, stderr=subprocess.DEVNULL)

        def on_top() -> bool:
            stacked = self.stacking()
            return stacked.index(self.screen()) < len(stacked) - 1 if self.screen() in stacked else False

        self.check("an opened document comes to the front", self.until(on_top))
        self.desktop.picture("document")
        document.terminate()
        document.wait()
        self.until(lambda: self.stacking()[-1:] == [self.screen()])

    def minimise(self) -> None:
        number = self.screen()
        self.desktop.run("xdotool", "windowactivate", number)
        time.sleep(SETTLE)
        self.desktop.key("alt+m")
        # Some window managers leave the window mapped.
        self.check("the course screen is minimised",
                   self.until(lambda: "HIDDEN" in self.desktop.ask("xprop", "-id", number, "_NET_WM_STATE")))
        self.desktop.picture("minimised")
        self.desktop.run("xdotool", "windowmap", number)
        self.desktop.run("xdotool", "windowactivate", number)
        self.covers("the course screen that comes back")

    def play(self) -> None:
        self.run = Run(self.desktop, self.desktop.start(self.store / "tallowmere"))
        self.run.close_warning()
        self.run.await_dialog("the course choice")
        time.sleep(SETTLE)  # it takes keys
        self.run.choose_course(0)
        self.run.check_progress()
        stacked = self.desktop.stacked()
        self.check("check progress stands over the course screen", stacked[-1] != COURSE_SCREEN)
        self.run.leave_progress()
        self.covers("the course screen")
        self.open_document()
        self.minimise()
        for _ in range(LONGEST_WAY):
            if len(self.desktop.visible()) > 1:
                break
            self.desktop.key("Right")
            time.sleep(0.4)
        self.covers("the test")
        self.desktop.key("Escape", "alt+y")
        time.sleep(SETTLE)
        self.desktop.key("Escape")
        time.sleep(SETTLE)
        self.desktop.key("alt+y")
        self.covers("the trademark page")


def play(store: Path, out: Path, manager: str, dock: str) -> int:
    name = f"{manager} with {dock}"
    pictures = out / f"{manager}-{dock}"
    pictures.mkdir(parents=True)
    playground = out / "store"
    shutil.copytree(store, playground, ignore=shutil.ignore_patterns("data"))
    prepare_learner(playground / "data", read_courses(playground))
    failures = 1
    with Desktop(pictures, 96, window_manager=manager, display=DISPLAY) as desktop:
        desktop.start_dock(dock)
        attempt = Try(desktop, playground, name)
        attempt.await_dock()
        try:
            attempt.play()
            failures = attempt.failures
        except Stuck as problem:
            print(f"  FAIL {name}: {problem}")
    shutil.rmtree(playground)
    return failures


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("store", type=Path)
    parser.add_argument("out", type=Path)
    parser.add_argument("--window-manager", choices=WINDOW_MANAGERS, help="that one alone")
    parser.add_argument("--dock", choices=DOCKS, help="that one alone")
    arguments = parser.parse_args()
    shutil.rmtree(arguments.out, ignore_errors=True)
    failures = 0
    for manager, command in WINDOW_MANAGERS.items():
        program = next(word for word in command if word not in ("dbus-run-session", "--"))
        for dock in DOCKS:
            chosen = arguments.window_manager in (None, manager) and arguments.dock in (None, dock)
            if chosen and shutil.which(program) and shutil.which(dock):
                failures += play(arguments.store, arguments.out, manager, dock)
    print(f"{failures} failures, pictures in {arguments.out}")
    return failures > 0


if __name__ == "__main__":
    sys.exit(main())
