"""The part of the visit that watches movies: each one shows and moves."""

import time
from typing import TYPE_CHECKING

from store_files import read_courses
from visit_desktop import differing_pixels, wait_for
from visit_progress import SECOND_MODULE, leave, open_progress

if TYPE_CHECKING:
    from visit import Visit

VIDEO_COURSE, VIDEO_PAGE = "Goods and shelves", "0002.txm"
PAGE_AREA = "990x690+4+36"  # pixels; the page without the bars around it
MOST_QUIET = 200  # pixels that differ where nothing but the pointer or a scroll bar changed


def watch(visit: "Visit", picture: str, seconds: float) -> int:
    """Two pictures some seconds apart; how many pixels of the page differ."""
    one = visit.desktop.picture(picture)
    time.sleep(seconds)
    return differing_pixels(one, visit.desktop.picture(f"{picture}-later"), PAGE_AREA)


def play(visit: "Visit") -> None:
    """In the second course, whose second module has a video on its second page."""
    second = list(read_courses(visit.store)[VIDEO_COURSE].modules)[1]
    record = visit.record.with_name(VIDEO_COURSE)

    def reached(start: str) -> bool:
        return record.exists() and f"\r\n{start}".encode() in b"\r\n" + record.read_bytes()

    run, progress = open_progress(visit, VIDEO_COURSE)
    progress.click(*SECOND_MODULE)
    wait_for(lambda: reached(f'"{second}",'), "the module with the video")
    time.sleep(0.3)
    visit.desktop.key("Right")
    wait_for(lambda: reached(f'"{second}","{VIDEO_PAGE}"'), "the page with the video")
    time.sleep(0.5)  # a frame of it
    visit.check("a video plays on its page", watch(visit, "40-video", 2) > MOST_QUIET)
    leave(visit, run)
