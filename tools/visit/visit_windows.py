"""The part of the scripted visit that looks at how windows stand: a form stays over the course screen it belongs to."""

from __future__ import annotations

import time
from typing import TYPE_CHECKING

from screen_places import COURSE_SCREEN, PAGE_EDGE
from visit_desktop import Window

if TYPE_CHECKING:
    from visit import Visit

SETTLE = 0.4  # seconds until the window manager has answered a click


def check_over_the_course(visit: Visit, size: tuple[int, int], what: str) -> None:
    """Clicks on the course screen beside the form of that size, and back on the form's edge."""
    Window(visit.desktop, 0, 0).click(*PAGE_EDGE)
    time.sleep(SETTLE)
    sizes = visit.desktop.stacked()
    stands = size in sizes and COURSE_SCREEN in sizes and sizes.index(size) > sizes.index(COURSE_SCREEN)
    visit.check(f"{what} stays over the course screen", stands)
    if not stands:
        print(f"      from the lowest up: {sizes}")
    if form := visit.desktop.window(*size):
        form.click(3, size[1] - 3)
        time.sleep(SETTLE)
