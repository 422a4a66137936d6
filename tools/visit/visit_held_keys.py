"""The part of the scripted visit that holds keys down: what a key does, it does once, however long it is held."""

from __future__ import annotations

import subprocess
import sys
import time
from contextlib import ExitStack
from typing import TYPE_CHECKING

from screen_places import ASIDE, PAGE_EDGE
from visit_desktop import Window, differing_pixels, wait_for

if TYPE_CHECKING:
    from visit import Visit

MODULE, PAGE = "rt0102", "0004.txm"  # among pages without movies and tests
LONG, SHORT = 5.0, 2.0  # seconds that a key is held; the server repeats it from 0.66 s on
SETTLE = 0.7  # seconds in which one more turn or question would have come
# The buttons, as "WxH+X+Y"; a frame around one of them shows that it has the focus.
PREVIOUS_AREA, EXIT_AREA = "56x44+880+729", "40x40+983+0"
MOST_STEPS = 20  # of the Tab key around the screen


class HeldKeys:
    """Begins and ends on the page PAGE of MODULE."""

    def __init__(self, visit: Visit) -> None:
        self.visit, self.desktop = visit, visit.desktop

    def hold(self, key: str, seconds: float) -> None:
        self.desktop.run("xdotool", "keydown", key)
        time.sleep(seconds)
        self.desktop.run("xdotool", "keyup", key)

    def check_one_turn(self, key: str, seconds: float, page: str) -> None:
        self.hold(key, seconds)
        wanted = f'"{MODULE}","{page}"'
        wait_for(lambda: self.visit.resume_line() == wanted, f"page {page} by {key}")
        time.sleep(SETTLE)
        self.visit.check(f"{key} held {seconds:.0f} s turns one page", self.visit.resume_line() == wanted)

    def walk_to(self, button: str) -> None:
        """By Shift+Tab from the page, whose links are steps too."""
        Window(self.desktop, 0, 0).click(*PAGE_EDGE)
        without = self.desktop.picture("button-without-focus")
        for _ in range(MOST_STEPS):
            self.desktop.key("shift+Tab")
            time.sleep(0.2)
            if differing_pixels(without, self.desktop.picture("button-with-focus"), button) > 0:
                return
        raise SystemExit("visit: the focus does not come to a button")

    def turn(self, page: str) -> None:
        self.desktop.key("Right")
        wait_for(lambda: self.visit.resume_line() == f'"{MODULE}","{page}"', f"page {page}")

    def ask_for_the_exit(self) -> None:
        """By Enter on the exit button, then Enter on No."""
        count = len(self.desktop.visible())
        self.walk_to(EXIT_AREA)
        self.hold("Return", SHORT)
        wait_for(lambda: len(self.desktop.visible()) == count + 1, "the exit question by Return")
        self.desktop.key("Tab")
        self.desktop.picture("exit-question-by-return")
        self.hold("Return", SHORT)
        time.sleep(SETTLE)
        self.visit.check("Return held on No asks no second time", len(self.desktop.visible()) == count)

    def run(self) -> None:
        self.check_one_turn("Left", LONG, "0003.txm")
        self.check_one_turn("Right", LONG, PAGE)
        self.walk_to(PREVIOUS_AREA)
        self.check_one_turn("space", SHORT, "0003.txm")
        self.check_one_turn("Return", SHORT, "0002.txm")
        self.ask_for_the_exit()
        self.turn("0003.txm")
        self.turn(PAGE)
        Window(self.desktop, 0, 0).point(*ASIDE)


def hold_the_keys(visit: Visit, busy: int) -> None:
    """Beside so many processes that do nothing but run."""
    with ExitStack() as stack:
        for _ in range(busy):
            process = subprocess.Popen([sys.executable, "-c", "while True: pass"])
            stack.callback(process.wait)
            stack.callback(process.kill)
        HeldKeys(visit).run()
