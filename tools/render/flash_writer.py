"""Writes Flash movies: shapes that are placed anew frame by frame, and commands to the program around them.

Lengths are pixels, colours 0xRRGGBB.
"""

from __future__ import annotations

import math
import struct
from collections.abc import Iterable
from dataclasses import dataclass, field

TWIPS = 20  # of the format, in a pixel
VERSION = 6
END, SHOW_FRAME, DEFINE_SHAPE, SET_BACKGROUND, DO_ACTION, PLACE, REMOVE = 0, 1, 2, 9, 12, 26, 28
GET_URL = 0x83
LONG_TAG = 0x3F
COLOUR_TRANSFORM, MATRIX, CHARACTER, MOVE = 8, 4, 2, 1  # of a placing

Point = tuple[float, float]


class _Bits:
    def __init__(self) -> None:
        self._bits: list[str] = []

    def unsigned(self, value: int, width: int) -> None:
        self._bits.append(format(value, f"0{width}b") if width else "")

    def signed(self, value: int, width: int) -> None:
        self.unsigned(value & ((1 << width) - 1), width)

    def bytes(self) -> bytes:
        text = "".join(self._bits)
        text += "0" * (-len(text) % 8)
        return int("1" + text, 2).to_bytes(len(text) // 8 + 1, "big")[1:] if text else b""


def _width(*values: int) -> int:
    """How many bits hold all of these, signed."""
    return max((value if value >= 0 else ~value).bit_length() for value in values) + 1


def _twips(length: float) -> int:
    return round(length * TWIPS)


def _rectangle(left: int, right: int, top: int, bottom: int) -> bytes:
    bits = _Bits()
    width = _width(left, right, top, bottom)
    bits.unsigned(width, 5)
    for value in (left, right, top, bottom):
        bits.signed(value, width)
    return bits.bytes()


@dataclass
class Outline:
    """A closed outline with a fill, or a line. A pair of points is a curve: its control, its end."""

    start: Point
    steps: list[tuple[Point] | tuple[Point, Point]]
    fill: int | None = None
    line: int | None = None
    line_width: float = 0


def polygon(points: list[Point], fill: int) -> Outline:
    return Outline(points[0], [(point,) for point in [*points[1:], points[0]]], fill)


def box(left: float, top: float, width: float, height: float, fill: int, radius: float = 0) -> Outline:
    right, bottom = left + width, top + height
    if not radius:
        return polygon([(left, top), (right, top), (right, bottom), (left, bottom)], fill)
    steps: list[tuple[Point] | tuple[Point, Point]] = [
        ((right - radius, top),), ((right, top), (right, top + radius)),
        ((right, bottom - radius),), ((right, bottom), (right - radius, bottom)),
        ((left + radius, bottom),), ((left, bottom), (left, bottom - radius)),
        ((left, top + radius),), ((left, top), (left + radius, top))]
    return Outline((left + radius, top), steps, fill)


def disc(x: float, y: float, radius: float, fill: int) -> Outline:
    def at(eighth: int, distance: float) -> Point:
        angle = eighth * math.pi / 8
        return x + distance * math.cos(angle), y + distance * math.sin(angle)

    outer = radius / math.cos(math.pi / 8)
    return Outline(at(0, radius), [(at(2 * n + 1, outer), at(2 * n + 2, radius)) for n in range(8)], fill)


def line(points: list[Point], colour: int, width: float) -> Outline:
    return Outline(points[0], [(point,) for point in points[1:]], None, colour, width)


@dataclass(frozen=True)
class Placed:
    """A symbol on the stage: where, how wide and high against its own size, how opaque."""

    symbol: int
    x: float = 0
    y: float = 0
    wide: float = 1
    high: float = 1
    opaque: float = 1


@dataclass
class Movie:
    width: int
    height: int
    frames_a_second: int
    background: int
    _tags: list[bytes] = field(default_factory=list)
    _symbols: int = 0
    _frames: int = 0
    _stage: dict[int, Placed] = field(default_factory=dict)

    def symbol(self, outlines: Iterable[Outline]) -> int:
        """Defines a symbol from outlines, the first at the bottom."""
        self._symbols += 1
        self._tag(DEFINE_SHAPE, _shape(self._symbols, list(outlines)))
        return self._symbols

    def command(self, command: str, arguments: str) -> None:
        """Gives the program around the movie a command when the next frame shows."""
        texts = f"FSCommand:{command}\0{arguments}\0".encode("ascii")
        self._tag(DO_ACTION, struct.pack("<BH", GET_URL, len(texts)) + texts + b"\0")

    def show(self, stage: list[Placed]) -> None:
        """The next frame: all that stands on the stage, the first at the bottom."""
        for depth, placed in enumerate(stage, start=1):
            before = self._stage.get(depth)
            if before != placed:
                self._tag(PLACE, _placing(depth, placed, before))
            self._stage[depth] = placed
        for depth in [depth for depth in self._stage if depth > len(stage)]:
            self._tag(REMOVE, struct.pack("<H", depth))
            del self._stage[depth]
        self._tag(SHOW_FRAME, b"")
        self._frames += 1

    def bytes(self) -> bytes:
        head = _rectangle(0, _twips(self.width), 0, _twips(self.height))
        head += struct.pack("<HH", self.frames_a_second << 8, self._frames)
        head += _tag(SET_BACKGROUND, self.background.to_bytes(3, "big"))
        body = head + b"".join(self._tags) + _tag(END, b"")
        return b"FWS" + struct.pack("<BI", VERSION, len(body) + 8) + body

    def _tag(self, kind: int, content: bytes) -> None:
        self._tags.append(_tag(kind, content))


def _tag(kind: int, content: bytes) -> bytes:
    if len(content) < LONG_TAG:
        return struct.pack("<H", kind << 6 | len(content)) + content
    return struct.pack("<HI", kind << 6 | LONG_TAG, len(content)) + content


def _matrix(placed: Placed) -> bytes:
    bits = _Bits()
    scales = (round(placed.wide * 65536), round(placed.high * 65536))
    bits.unsigned(1, 1)
    bits.unsigned(_width(*scales), 5)
    for scale in scales:
        bits.signed(scale, _width(*scales))
    bits.unsigned(0, 1)
    places = (_twips(placed.x), _twips(placed.y))
    bits.unsigned(_width(*places), 5)
    for place in places:
        bits.signed(place, _width(*places))
    return bits.bytes()


def _opacity(placed: Placed) -> bytes:
    bits = _Bits()
    factors = (256, 256, 256, round(placed.opaque * 256))
    bits.unsigned(0b01, 2)
    bits.unsigned(_width(*factors), 4)
    for factor in factors:
        bits.signed(factor, _width(*factors))
    return bits.bytes()


def _placing(depth: int, placed: Placed, before: Placed | None) -> bytes:
    flags = MATRIX | COLOUR_TRANSFORM
    if before is not None:
        flags |= MOVE
    content = b""
    if before is None or before.symbol != placed.symbol:
        flags |= CHARACTER
        content = struct.pack("<H", placed.symbol)
    return struct.pack("<BH", flags, depth) + content + _matrix(placed) + _opacity(placed)


def _styles(outlines: list[Outline]) -> bytes:
    """A style for each outline: a player fills them in the order of the styles."""
    fills = [outline.fill for outline in outlines if outline.fill is not None]
    lines = [(_twips(outline.line_width), outline.line) for outline in outlines if outline.line is not None]
    content = bytes([len(fills)]) + b"".join(b"\0" + fill.to_bytes(3, "big") for fill in fills)
    return content + bytes([len(lines)]) + b"".join(struct.pack("<H", width) + colour.to_bytes(3, "big")
                                                    for width, colour in lines)


def _shape(symbol: int, outlines: list[Outline]) -> bytes:
    points = [point for outline in outlines for point in [outline.start, *(p for step in outline.steps for p in step)]]
    margin = _twips(max(outline.line_width for outline in outlines))
    xs, ys = [_twips(x) for x, _ in points], [_twips(y) for _, y in points]
    bounds = _rectangle(min(xs) - margin, max(xs) + margin, min(ys) - margin, max(ys) + margin)
    fills = sum(outline.fill is not None for outline in outlines)
    fill_bits, line_bits = fills.bit_length(), (len(outlines) - fills).bit_length()
    bits = _Bits()
    bits.unsigned(fill_bits, 4)
    bits.unsigned(line_bits, 4)
    fill = stroke = 0
    for outline in outlines:
        fill += outline.fill is not None
        stroke += outline.line is not None
        _begin(bits, outline.start, (fill if outline.fill is not None else 0, fill_bits),
               (stroke if outline.line is not None else 0, line_bits))
        _edges(bits, outline)
    bits.unsigned(0, 6)
    return struct.pack("<H", symbol) + bounds + _styles(outlines) + bits.bytes()


def _begin(bits: _Bits, start: Point, fill: tuple[int, int], stroke: tuple[int, int]) -> None:
    """A move with a line style and the fill on the right of the edges."""
    bits.unsigned(0b001101, 6)
    place = (_twips(start[0]), _twips(start[1]))
    bits.unsigned(_width(*place), 5)
    for value in place:
        bits.signed(value, _width(*place))
    bits.unsigned(*fill)
    bits.unsigned(*stroke)


def _edges(bits: _Bits, outline: Outline) -> None:
    x, y = _twips(outline.start[0]), _twips(outline.start[1])
    for step in outline.steps:
        deltas: list[int] = []
        for point in step:
            there = (_twips(point[0]), _twips(point[1]))
            deltas += [there[0] - x, there[1] - y]
            x, y = there
        width = max(_width(*deltas), 2)
        bits.unsigned(0b11 if len(step) == 1 else 0b10, 2)
        bits.unsigned(width - 2, 4)
        if len(step) == 1:
            bits.unsigned(1, 1)  # both ways at once
        for delta in deltas:
            bits.signed(delta, width)
