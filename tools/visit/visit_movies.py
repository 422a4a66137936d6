"""The part of the visit that watches movies: each one shows and moves."""

import os
import subprocess
import time
from pathlib import Path
from typing import TYPE_CHECKING

from screen_places import SECOND_MODULE, THIRD_MODULE
from store_files import read_courses
from visit_desktop import differing_pixels, wait_for
from visit_progress import leave, open_progress

if TYPE_CHECKING:
    from visit import Visit

VIDEO_COURSE = "Goods and shelves"
FLASH = ("rt0103", "0002.txm")  # the page with a Flash movie
PAGE_AREA = "990x690+4+36"  # pixels; the page without the bars around it
MOST_QUIET = 200  # pixels that differ where nothing but the pointer or a scroll bar changed


def differ(visit: "Visit", one: Path, picture: str) -> bool:
    return differing_pixels(one, visit.desktop.picture(picture), PAGE_AREA) > MOST_QUIET


def has_flash(visit: "Visit") -> bool:
    """Whether the player is there, and this user may have the sandbox that it wants."""
    may = os.geteuid() == 0 or subprocess.run(["unshare", "--user", "true"], check=False,
                                              stderr=subprocess.DEVNULL).returncode == 0
    return may and (visit.store / "players/flash.so").exists()


def pass_by(visit: "Visit", module: str, page: str) -> None:
    """A page without the player of its Flash movie says so, before it is recorded."""
    if (module, page) == FLASH and not has_flash(visit):
        wait_for(lambda: len(visit.desktop.visible()) > 1, "the message that the player is missing")
        time.sleep(0.3)  # its picture is painted
        visit.desktop.key("Return")
        wait_for(lambda: len(visit.desktop.visible()) == 1, "the end of the message")


def watch(visit: "Visit", course: str, row: tuple[int, int], page: tuple[str, str], picture: str) -> None:
    """Opens the module on the progress screen, turns to its second page, and watches."""
    record = visit.record.with_name(course)
    module, name = page

    def reached(start: str) -> bool:
        return record.exists() and f"\r\n{start}".encode() in b"\r\n" + record.read_bytes()

    run, progress = open_progress(visit, course)
    progress.click(*row)
    wait_for(lambda: reached(f'"{module}",'), f"the module {module}")
    time.sleep(0.3)
    visit.desktop.key("Right")
    wait_for(lambda: reached(f'"{module}","{name}"'), f"page {name} of {module}")
    before = visit.desktop.picture(f"{picture}-before")
    wait_for(lambda: differ(visit, before, picture), "the first picture of the movie")
    shown = visit.desktop.picture(picture)
    time.sleep(2)
    visit.check(f"the movie of {module} plays on its page", differ(visit, shown, f"{picture}-later"))
    leave(visit, run)


def play(visit: "Visit") -> None:
    """Flash in the third module of the first course, a video in the second module of the other."""
    courses = read_courses(visit.store)
    if has_flash(visit):
        watch(visit, visit.record.name, THIRD_MODULE, FLASH, "flash")
    else:
        print("skip  the Flash player is not installed")
    second = list(courses[VIDEO_COURSE].modules)[1]
    watch(visit, VIDEO_COURSE, SECOND_MODULE, (second, "0002.txm"), "video")
