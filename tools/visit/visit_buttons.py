"""The part of the scripted visit that points at the buttons of the course screen."""

from __future__ import annotations

import time
from pathlib import Path
from typing import TYPE_CHECKING

from screen_places import ASIDE, EXIT, PREVIOUS, TOOLBAR
from visit_desktop import Window, differing_pixels

if TYPE_CHECKING:
    from visit import Visit

# Where the tip of a button comes up, and the button itself, as "WxH+X+Y".
TIP_OF_PREVIOUS, TIP_OF_EXIT = "80x20+882+712", "100x20+915+40"
TOOLBAR_PLACE = "79x41+855+0"
REST = 1.2  # seconds: longer than the program waits


def point_at_the_buttons(visit: Visit) -> None:
    screen = Window(visit.desktop, 0, 0)

    def picture_at(place: tuple[int, int], name: str) -> Path:
        screen.point(*place)
        time.sleep(REST)
        return visit.desktop.picture(name)

    before = picture_at(ASIDE, "buttons")
    tip = picture_at(PREVIOUS, "tip-of-previous")
    visit.check("a tip stands above the previous button", differing_pixels(before, tip, TIP_OF_PREVIOUS) > 100)
    tip = picture_at(EXIT, "tip-of-exit")
    visit.check("a tip stands below the exit button", differing_pixels(before, tip, TIP_OF_EXIT) > 100)
    lit = picture_at(TOOLBAR, "toolbar-button-lit")
    visit.check("the toolbar button is lit", differing_pixels(before, lit, TOOLBAR_PLACE) > 1000)
    after = picture_at(ASIDE, "buttons-again")
    visit.check("the pointer's leave puts all out", differing_pixels(before, after, "1024x768+0+0") == 0)
