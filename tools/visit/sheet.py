#!/usr/bin/env python3
"""Pictures of the program on displays of many sizes, on one sheet.

Usage: sheet.py STORE OUT. Runs the real program under Xvfb on each display, takes a picture of the warning of the
display's size, the course choice, check progress, a page with a table, the menus, the glossary, a test and the question
before the exit, and puts them together in OUT/sheet.png, a row a display. Where tint2 is installed a dock stands on
three of the displays.
"""

import argparse
import shutil
import subprocess
import sys
import time
from pathlib import Path

from program_run import Run
from screen_places import COURSE_SCREEN, GLOSSARY, GLOSSARY_ROW, MODULES, TOOLBAR
from store_files import prepare_learner, read_courses
from visit_desktop import DESIGN, Desktop, Window
from visit_menus import MENU_BOTTOM, ROW_MIDDLE, ROW_STEP, TOPIC_DELAY, TOPICS_LEFT

# Size, dpi, and whether a dock stands on it.
DISPLAYS = [((800, 480), 96, False), ((1024, 768), 96, True), ((1280, 1024), 96, False), ((1366, 768), 96, True),
            ((1920, 1080), 96, True), ((2560, 1440), 96, False), ((3840, 2160), 96, False), ((1920, 1080), 144, False)]
THUMBNAIL = 480      # pixels, of a picture on the sheet
PICTURES = 9         # of a display; that of the design's size has no warning
SETTLE = 0.8         # seconds until a screen is painted
TO_THE_TABLE = 2     # pages from the one on which the learner goes on
LONGEST_WAY = 20     # pages to the first test


class Sitting:
    """One run of the program on one display; its pictures go to a folder of their own."""

    def __init__(self, desktop: Desktop, store: Path) -> None:
        self.desktop = desktop
        self.run = Run(desktop, desktop.start(store / "tallowmere"))

    def picture(self, name: str) -> None:
        time.sleep(SETTLE)
        self.desktop.picture(name)

    def screen(self) -> Window:
        self.run.until(lambda: self.desktop.window(*COURSE_SCREEN) is not None, "the course screen")
        window = self.desktop.window(*COURSE_SCREEN)
        assert window is not None
        return window

    def turn(self) -> None:
        self.desktop.key("Right")
        time.sleep(0.3)

    def play(self) -> None:
        if self.desktop.display != DESIGN:
            self.run.until(self.run.message, "the warning of the display's size")
            self.picture("warning")
        self.run.close_warning()
        self.run.await_dialog("the course choice")
        self.picture("choice")
        self.run.choose_course(0)
        self.run.check_progress()
        self.picture("progress")
        self.run.leave_progress()
        self.screen()
        for _ in range(TO_THE_TABLE):
            self.turn()
        self.picture("page")
        self.open_menus()
        for _ in range(LONGEST_WAY):  # to the first test
            self.turn()
            if len(self.desktop.visible()) > 1:
                break
        self.picture("test")
        self.desktop.key("Escape")
        self.picture("exit")

    def open_menus(self) -> None:
        screen = self.screen()
        screen.click(*MODULES)
        time.sleep(SETTLE)
        screen.point(TOPICS_LEFT // 2, MENU_BOTTOM - ROW_STEP + ROW_MIDDLE)  # the last module: its topics come
        time.sleep(TOPIC_DELAY)
        self.picture("menus")
        self.desktop.key("Escape")
        screen.click(*TOOLBAR)
        self.picture("toolbar")
        screen.click(*GLOSSARY_ROW)
        self.run.await_dialog("the glossary", GLOSSARY)
        self.picture("glossary")
        self.desktop.key("alt+F4")
        time.sleep(SETTLE)


def play(store: Path, out: Path, display: tuple[int, int], dpi: int, dock: bool) -> list[Path]:
    name = f"{display[0]}x{display[1]}-{dpi}dpi"
    pictures = out / name
    pictures.mkdir(parents=True)
    playground = out / "store"
    shutil.copytree(store, playground, ignore=shutil.ignore_patterns("data"))
    prepare_learner(playground / "data", read_courses(playground))
    with Desktop(pictures, dpi, display=display) as desktop:
        if dock:
            desktop.start_dock()
        Sitting(desktop, playground).play()
    shutil.rmtree(playground)
    taken = sorted(pictures.glob("*.png"))
    return [Path("null:")] * (PICTURES - len(taken)) + taken


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("store", type=Path)
    parser.add_argument("out", type=Path)
    parser.add_argument("--display", help="one display alone, as 1920x1080")
    arguments = parser.parse_args()
    shutil.rmtree(arguments.out, ignore_errors=True)
    rows = [row for row in DISPLAYS if arguments.display in (None, f"{row[0][0]}x{row[0][1]}")]
    pictures = [picture for row in rows for picture in play(arguments.store, arguments.out, *row)]
    # Made small as they are read: all at full size are more than the tool may hold.
    small = [picture if picture == Path("null:") else f"{picture}[{THUMBNAIL}x{THUMBNAIL}]" for picture in pictures]
    subprocess.run(["montage", *small, "-geometry", f"{THUMBNAIL}x{THUMBNAIL}+6+6", "-tile", f"{PICTURES}x",
                    "-background", "#333333", arguments.out / "sheet.png"], check=True)
    taken = sum(picture.is_file() for picture in pictures)
    print(f"{taken} pictures, together in {arguments.out}/sheet.png")
    return 0


if __name__ == "__main__":
    sys.exit(main())
