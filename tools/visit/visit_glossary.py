"""The glossary of the scripted visit: a word is looked up by its letter, with the mouse and by a key."""

from __future__ import annotations

import time
from typing import TYPE_CHECKING

from screen_places import CLOSE_GLOSSARY, GLOSSARY, GLOSSARY_ROW, LIST_CORNER, LIST_SIZE, STRIP, TOOLBAR
from store_files import CODE_PAGE
from visit_desktop import Window, differing_pixels, wait_for
from visit_windows import check_over_the_course

if TYPE_CHECKING:
    from visit import Visit

LETTER_WIDTH = 20  # pixels, on every display
SETTLE = 0.4  # seconds until a step is painted


def letters_of(text: str) -> list[str]:
    return [piece[0] for piece in text.split("^")[1:] if piece]


class LookUp:
    def __init__(self, visit: Visit) -> None:
        self.visit, self.desktop = visit, visit.desktop
        self.letters = letters_of((visit.store / "Glossary.txt").read_text(encoding=CODE_PAGE))

    def open(self) -> Window:
        screen = Window(self.desktop, 0, 0)
        screen.click(*TOOLBAR)
        time.sleep(SETTLE)
        screen.click(*GLOSSARY_ROW)
        return self.desktop.await_window(*GLOSSARY, what="the glossary")

    def point_at(self, window: Window, letter: str) -> tuple[int, int]:
        place = int(STRIP[0] + (self.letters.index(letter) + 0.5) * LETTER_WIDTH), STRIP[1]
        window.point(*place)
        time.sleep(SETTLE)
        return place

    def run(self, by_mouse: str, by_key: str) -> None:
        window = self.open()
        check_over_the_course(self.visit, GLOSSARY, "the glossary")
        area = f"{LIST_SIZE}+{window.x + LIST_CORNER[0]}+{window.y + LIST_CORNER[1]}"
        first = self.desktop.picture("glossary")
        window.click(*self.point_at(window, by_mouse))
        time.sleep(SETTLE)
        by_click = self.desktop.picture("glossary-letter")
        self.visit.check(f"a click on {by_mouse} moves the glossary", differing_pixels(first, by_click, area) > 0)
        self.desktop.key(by_key.lower())
        time.sleep(SETTLE)
        elsewhere = self.desktop.picture("glossary-other-key")
        self.visit.check(f"the key {by_key} moves the glossary", differing_pixels(by_click, elsewhere, area) > 0)
        self.desktop.key(by_mouse.lower())
        time.sleep(SETTLE)
        again = self.desktop.picture("glossary-key")
        self.visit.check(f"the key {by_mouse} finds the same place", differing_pixels(by_click, again, area) == 0)
        window.click(*CLOSE_GLOSSARY)
        wait_for(lambda: self.desktop.window(*GLOSSARY) is None, "the end of the glossary")
        time.sleep(SETTLE)


def look_up_a_word(visit: Visit) -> None:
    LookUp(visit).run(by_mouse="G", by_key="S")
