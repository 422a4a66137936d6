#!/usr/bin/env python3
"""Draws the Flash movie of the demo course: a cash desk is made ready, in the seven steps of its page.

Usage: render_till.py OUT.swf
"""

import math
import sys
from collections.abc import Iterator
from dataclasses import replace
from pathlib import Path

from flash_writer import Movie, Outline, Placed, Point, box, disc, line, polygon

WIDTH, HEIGHT, FRAMES_A_SECOND = 560, 300, 15
BLUE, LIGHT, PALE, WHITE, GREY = 0x6666FF, 0xCCCCFF, 0xF0F0FF, 0xFFFFFF, 0x999999
INK, DEEP, GOLD, LAMP, PAPER_EDGE = 0x262633, 0x4A4ACC, 0xE0B040, 0xFFE27A, 0xC25A00

STEP_FRAMES = 34
STEPS = ("WIPE THE BELT", "SIGN ON", "PUT THE FLOAT IN", "CHECK THE PAPER", "PRINT A TEST RECEIPT",
         "READ THE OFFERS", "REMOVE THE SIGN")
END_FRAMES = 26

# A letter is strokes over a grid four wide and six high; x and y are digits.
LETTERS = {
    "A": ("06 20 46", "14 34"), "B": ("00 06 36 45 44 33 03", "00 30 41 42 33"), "C": ("41 30 10 01 05 16 36 45",),
    "D": ("00 06 26 44 42 20 00",), "E": ("40 00 06 46", "03 33"), "F": ("40 00 06", "03 33"),
    "G": ("41 30 10 01 05 16 36 45 43 23",), "H": ("00 06", "40 46", "03 43"), "I": ("20 26",),
    "K": ("00 06", "40 03 46"), "L": ("00 06 46",), "M": ("06 00 23 40 46",), "N": ("06 00 46 40",),
    "O": ("10 01 05 16 36 45 41 30 10",), "P": ("06 00 30 41 42 33 03",), "R": ("06 00 30 41 42 33 03", "23 46"),
    "S": ("41 30 10 01 02 13 33 44 45 36 16 05",), "T": ("00 40", "20 26"), "U": ("00 05 16 36 45 40",),
    "V": ("00 26 40",), "W": ("00 16 22 36 40",), "Y": ("00 23 40", "23 26"),
    "1": ("11 20 26",), "2": ("01 10 30 41 42 06 46",), "3": ("01 10 30 41 42 33 44 45 36 16 05", "33 13"),
    "4": ("36 30 04 44",), "5": ("40 00 02 32 43 45 36 06",), "6": ("41 30 10 01 05 16 36 45 44 33 03",),
    "7": ("00 40 16",),
}
LETTER_ADVANCE, BLANK_ADVANCE, NARROW = 6, 3.5, {"I": 3, "1": 4}


def letters(text: str, x: float, y: float, unit: float, colour: int, width: float) -> list[Outline]:
    """A line of text from its top left corner; `unit` is a step of the grid."""
    strokes: list[Outline] = []
    for letter in text:
        if letter == " ":
            x += BLANK_ADVANCE * unit
            continue
        shift = (LETTER_ADVANCE - NARROW.get(letter, LETTER_ADVANCE)) / 2
        for stroke in LETTERS[letter]:
            points: list[Point] = [(x + (int(at[0]) - shift) * unit, y + int(at[1]) * unit) for at in stroke.split()]
            strokes.append(line(points, colour, width))
        x += NARROW.get(letter, LETTER_ADVANCE) * unit
    return strokes


def eased(share: float) -> float:
    """From 0 to 1, slowly at both ends."""
    share = min(max(share, 0), 1)
    return (1 - math.cos(share * math.pi)) / 2


class Desk:
    """The symbols of the movie, and the stage at a moment of a step."""

    def __init__(self, movie: Movie) -> None:
        self.room = movie.symbol([
            box(0, 0, WIDTH, HEIGHT, PALE), box(0, 0, WIDTH, 44, BLUE),
            box(0, 214, WIDTH, 14, LIGHT), box(0, 228, WIDTH, 72, WHITE),
            box(0, 227, WIDTH, 1.5, BLUE)])
        self.belt = movie.symbol([box(0, 0, 250, 14, GREY, 7), box(4, 3, 242, 8, INK, 4)])
        self.dust = movie.symbol([disc(x, y, r, LIGHT) for x, y, r in
                                  ((14, 0, 3), (52, 2, 2.2), (88, -1, 3.4), (127, 1, 2.4), (168, 0, 3), (205, 2, 2.6))])
        self.cloth = movie.symbol([
            Outline((0, 16), [((4, -4), (20, 0)), ((38, 2), (48, 12)), ((46, 22), (30, 20)), ((12, 24), (0, 16))], BLUE),
            line([(14, 8), (22, 14)], LIGHT, 2), line([(28, 8), (34, 15)], LIGHT, 2)])
        self.till = movie.symbol([
            box(26, 84, 18, 30, GREY), box(0, 0, 118, 86, INK, 6), box(6, 6, 106, 68, DEEP, 3)])
        self.base = movie.symbol([box(0, 0, 180, 20, LIGHT, 4), box(0, 16, 180, 46, BLUE, 4)])
        self.hollow = movie.symbol([box(0, 0, 164, 34, INK, 2)])
        self.front = movie.symbol([box(0, 0, 170, 30, LIGHT, 3), box(70, 12, 30, 5, BLUE, 2)])
        self.tray = movie.symbol([box(0, 0, 160, 26, PALE, 2)] + [
            box(3 + 26.2 * n, 3, 23, 20, WHITE, 2) for n in range(6)])
        self.coin = movie.symbol([disc(0, 0, 7, GOLD), disc(0, 0, 4.6, LAMP)])
        self.note = movie.symbol([box(0, 0, 19, 12, 0x9BC8A6, 1.5), disc(9.5, 6, 3, WHITE)])
        self.printer = movie.symbol([box(0, 0, 62, 40, GREY, 5), box(6, 6, 50, 5, INK, 2), disc(52, 28, 4, LIGHT)])
        self.roll = movie.symbol([disc(0, 0, 15, GREY), disc(0, 0, 13.5, WHITE), disc(0, 0, 5, GREY)])
        self.edge = movie.symbol([line([(-9, -11), (9, 11)], PAPER_EDGE, 3)])
        self.receipt = movie.symbol([
            box(0, 0, 44, 70, WHITE), *(box(6, 10 + 9 * n, (32, 24, 30, 20, 28, 16)[n], 3, GREY) for n in range(6))])
        self.leaflet = movie.symbol([
            box(0, 0, 96, 120, WHITE, 4), box(0, 0, 96, 26, BLUE, 4), box(10, 36, 34, 34, LIGHT, 3),
            box(52, 36, 34, 34, LIGHT, 3), *(box(10, 80 + 11 * n, (76, 60, 70)[n], 5, GREY, 2) for n in range(3))])
        self.mark = movie.symbol([line([(0, 6), (5, 12), (15, 0)], PAPER_EDGE, 4)])
        self.sign = movie.symbol([
            polygon([(10, 44), (24, 0), (38, 44)], GREY), box(-18, -36, 84, 40, WHITE, 4),
            box(-14, -32, 76, 32, BLUE, 3), *letters("WAIT", -2, -24, 2.6, WHITE, 2.4)])
        self.pole = movie.symbol([box(-2, 0, 4, 110, GREY)])
        self.dark_lamp = movie.symbol([box(-17, -34, 34, 36, LIGHT, 8), *letters("3", -4.5, -26, 3, WHITE, 3)])
        self.bright_lamp = movie.symbol([
            disc(0, -16, 30, 0xFFF6D0), box(-17, -34, 34, 36, LAMP, 8), *letters("3", -4.5, -26, 3, INK, 3)])
        self.digits = [movie.symbol([box(0, 0, 10, 14, WHITE, 2)]), movie.symbol([box(0, 0, 10, 14, LIGHT, 2)])]
        self.welcome = movie.symbol([disc(0, 0, 22, LIGHT), disc(-7, -5, 3, INK), disc(7, -5, 3, INK), Outline(
            (-10, 6), [((0, 16), (10, 6)), ((0, 11), (-10, 6))], INK)])
        self.captions = [movie.symbol(letters(f"{number} {text}", 18, 14, 2.7, WHITE, 2.4))
                         for number, text in enumerate(STEPS, start=1)]
        self.dots = (movie.symbol([disc(0, 0, 5, LIGHT)]), movie.symbol([disc(0, 0, 6.5, BLUE)]))

    def at(self, step: int, share: float) -> list[Placed]:
        """The stage in a step, counted from 0, when that share of it is over. Behind the last all is done."""
        def progress(of: int, start: float = 0, end: float = 1) -> float:
            if step != of:
                return 1.0 if step > of else 0.0
            return eased((share - start) / (end - start))

        return [Placed(self.room), *self._lamp(progress), *self._belt(progress), *self._till(progress),
                *self._printer(progress), *self._drawer(progress), *self._leaflet(progress),
                *self._footer(step, share)]

    def _lamp(self, progress) -> Iterator[Placed]:
        yield Placed(self.pole, 528, 104)
        yield Placed(self.dark_lamp, 528, 106)
        yield Placed(self.bright_lamp, 528, 106, opaque=progress(6, 0.55, 0.75))

    def _belt(self, progress) -> Iterator[Placed]:
        wiped = progress(0, 0.1, 0.85)
        yield Placed(self.belt, 14, 200)
        yield Placed(self.dust, 20, 198, opaque=1 - wiped)
        swing = math.sin(wiped * math.pi * 4)
        shown = 1 - progress(0, 0.88, 1)
        yield Placed(self.cloth, 16 + 200 * wiped, 180 + 5 * swing, opaque=shown)
        gone = progress(6, 0.1, 0.5)
        yield Placed(self.sign, 100 - 190 * gone, 156 - 16 * math.sin(gone * math.pi))

    def _till(self, progress) -> Iterator[Placed]:
        yield Placed(self.base, 290, 152)
        yield Placed(self.till, 306, 50)
        signed = progress(1, 0.75, 0.95)
        for number in range(4):
            typed = progress(1, 0.15 + 0.15 * number, 0.2 + 0.15 * number)
            yield Placed(self.digits[1], 330 + 20 * number, 76, opaque=1 - signed)
            yield Placed(self.digits[0], 330 + 20 * number, 76, opaque=typed * (1 - signed))
        yield Placed(self.welcome, 365, 94, wide=0.2 + 0.8 * signed, high=0.2 + 0.8 * signed, opaque=signed)

    def _drawer(self, progress) -> Iterator[Placed]:
        out = progress(2, 0, 0.2) - progress(2, 0.85, 1)
        down = 34 * out
        yield Placed(self.hollow, 298, 178, high=0.05 + 0.95 * out, opaque=min(1, out * 4))
        yield Placed(self.tray, 300, 180, high=0.05 + 0.95 * out, opaque=min(1, out * 4))
        for number in range(6):
            fallen = progress(2, 0.22 + 0.09 * number, 0.34 + 0.09 * number)
            place = replace(Placed(self.coin if number > 1 else self.note), y=40 + 153 * fallen,
                            opaque=min(1, 5 * fallen) * min(1, out * 4))
            yield replace(place, x=(305 if number < 2 else 314.5) + 26.2 * number, y=place.y - (6 if number < 2 else 0))
        yield Placed(self.front, 295, 180 + down)

    def _printer(self, progress) -> Iterator[Placed]:
        printed = progress(4, 0.1, 0.7) - progress(4, 0.9, 1)
        if printed > 0:
            yield Placed(self.receipt, 447, 150 - 66 * printed, high=max(printed, 0.02))
        lifted = progress(3, 0, 0.25) - progress(3, 0.75, 1)
        if lifted > 0:
            worn = progress(3, 0.4, 0.5)
            yield Placed(self.roll, 469, 150 - 44 * lifted, wide=0.7 + 0.3 * worn, high=0.7 + 0.3 * worn)
            yield Placed(self.edge, 469, 150 - 44 * lifted, opaque=1 - worn)
        yield Placed(self.printer, 438, 146)

    def _leaflet(self, progress) -> Iterator[Placed]:
        shown = progress(5, 0, 0.25) - progress(5, 0.85, 1)
        if shown > 0:
            yield Placed(self.leaflet, 60, 300 - 232 * shown)
            for number in range(3):
                yield Placed(self.mark, 126, 146 + 11 * number - 232 * (shown - 1),
                             opaque=progress(5, 0.35 + 0.15 * number, 0.45 + 0.15 * number))

    def _footer(self, step: int, share: float) -> Iterator[Placed]:
        last = len(STEPS) - 1
        fresh = eased(share * 6) if step <= last else 1
        yield Placed(self.captions[min(step, last)], 12 * (1 - fresh), opaque=fresh)
        for number in range(len(STEPS)):
            yield Placed(self.dots[number <= step], 220 + 20 * number, 284)


def movie() -> Movie:
    result = Movie(WIDTH, HEIGHT, FRAMES_A_SECOND, PALE)
    desk = Desk(result)
    result.command("size", f"{WIDTH}x{HEIGHT}")
    for step in range(len(STEPS)):
        for frame in range(STEP_FRAMES):
            result.show(desk.at(step, frame / (STEP_FRAMES - 1)))
    for _ in range(END_FRAMES):
        result.show(desk.at(len(STEPS), 0))
    return result


if __name__ == "__main__":
    Path(sys.argv[1]).write_bytes(movie().bytes())
