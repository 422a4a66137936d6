#!/usr/bin/env python3
"""Draws the demo course's film of a shelf that is filled: demo/courses/rt0202/movies/shelf.wmv.

Needs rsvg-convert, ffmpeg and the Liberation Sans font.
"""

import math
import struct
import subprocess
import sys
import tempfile
import wave
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "skin"))
sys.dont_write_bytecode = True

from draw.palette import BLUE, GREY, GREY_TOP, HAIRLINE, INK, LIGHT, NIGHT, WHITE  # noqa: E402
from draw.shapes import box, picture, stroke  # noqa: E402

FILM = ROOT / "demo/courses/rt0202/movies/shelf.wmv"
WIDTH, HEIGHT, PER_SECOND, SECONDS = 400, 240, 15, 11
WALL, CARD, CARD_DARK = "#F0F0FF", "#F0B070", "#D08840"

# Seconds at which each caption begins.
CAPTIONS = (
    (0.0, "An empty metre of shelf, a case of twelve"),
    (1.8, "Open the case on the trolley, not on the floor"),
    (3.6, "Take two packs in each hand"),
    (7.6, "Edge to edge, labels to the front"),
    (9.2, "Carton into the trolley: the aisle is free"),
)
ROLLS_IN, OPENS, FIRST_HANDFUL, FACES, FOLDS, ROLLS_OUT = 0.2, 2.0, 3.8, 7.7, 9.2, 9.7
HANDFULS, BETWEEN, FLIGHT = 3, 1.2, 0.9  # handfuls of four packs; seconds

SHELF_LEFT, SHELF_RIGHT, BOARDS = 22, 250, (62, 126, 190)
PACK = (32, 22)
TROLLEY_AT, TROLLEY_AWAY, DECK = 276, 420, 172


def way(time, start, seconds):
    """How far something is that begins at `start`: 0 to 1, slow at both ends."""
    part = min(max((time - start) / seconds, 0), 1)
    return part * part * (3 - 2 * part)


def between(one, other, part):
    return round(one + (other - one) * part, 1)


def pack(x, y, fill, labelled):
    width, height = PACK
    face = box(x + 6, y + 5, width - 12, height - 10, WHITE, 2) if labelled else ""
    return box(x, y, width, height, NIGHT, 3) + box(x + 1, y + 1, width - 2, height - 3, fill, 2) + face


def place(number):
    """Where pack `number` of the case stands: six columns, two high, a handful fills two columns."""
    handful, at = divmod(number, 4)
    column, row = handful * 2 + at // 2, at % 2
    return SHELF_LEFT + 12 + column * (PACK[0] + 2.4), BOARDS[1] - PACK[1] * (row + 1)


def shelf():
    parts = [box(SHELF_LEFT - 8, 14, 8, 186, INK, 2), box(SHELF_RIGHT, 14, 8, 186, INK, 2)]
    for board in BOARDS:
        parts += [
            box(SHELF_LEFT - 4, board, SHELF_RIGHT - SHELF_LEFT + 8, 9, GREY, 1),
            box(SHELF_LEFT - 4, board, SHELF_RIGHT - SHELF_LEFT + 8, 1, GREY_TOP),
        ]
        parts += [box(SHELF_LEFT + 16 + column * 69, board + 2, 24, 6, WHITE) for column in range(3)]
    for column in range(7):  # the neighbours, which stand in order
        parts.append(box(SHELF_LEFT + 8 + column * 31, 24, 26, 38, BLUE if column < 4 else LIGHT, 3))
        parts.append(box(SHELF_LEFT + 13 + column * 31, 36, 16, 14, WHITE, 2))
    for column in range(4):
        parts.append(box(SHELF_LEFT + 8 + column * 54, 152, 48, 38, LIGHT if column < 2 else BLUE, 3))
        parts.append(box(SHELF_LEFT + 22 + column * 54, 164, 20, 12, WHITE, 2))
    return "".join(parts)


def gap(time):
    """The empty place, until the first packs stand in it."""
    left, top = SHELF_LEFT + 10, BOARDS[1] - 46
    return (
        f'<rect x="{left}" y="{top}" width="210" height="44" rx="4" fill="none" stroke="{CARD_DARK}" '
        f'stroke-width="2" stroke-dasharray="6 5" opacity="{1 - way(time, FIRST_HANDFUL, FLIGHT):.2f}"/>'
    )


def packs(time):
    parts = []
    for number in range(4 * HANDFULS):
        start = FIRST_HANDFUL + number // 4 * BETWEEN
        flown = way(time, start, FLIGHT)
        if flown == 0:
            continue  # still in the case
        x, y = place(number)
        from_x, from_y = TROLLEY_AT + 14 + number % 4 // 2 * 38, DECK - 62 - number % 2 * PACK[1]
        askew = (number * 7 % 5 - 2) * 1.4 * (1 - way(time, FACES, 0.9))
        rise = math.sin(math.pi * flown) * 26
        parts.append(pack(between(from_x, x + askew, flown), between(from_y, y, flown) - rise, BLUE,
                          way(time, FACES + 0.1 * (number // 2), 0.3) > 0.5))
    return "".join(parts)


def trolley(time):
    x = between(TROLLEY_AWAY, TROLLEY_AT, way(time, ROLLS_IN, 1.3))
    if time > ROLLS_OUT:
        x = between(TROLLEY_AT, TROLLEY_AWAY, way(time, ROLLS_OUT, 1.1))
    opened, folded = way(time, OPENS, 0.8), way(time, FOLDS, 0.5)
    tall = between(48, 6, folded)
    top = DECK - tall
    flap = between(0, 24, opened * (1 - folded))
    flaps = (f"M{x + 10} {top}l-{flap * 0.7} -{flap * 0.6} M{x + 92} {top}l{flap * 0.7} -{flap * 0.6}" if flap > 1 else "")
    arrow = (f'<path d="M{x + 51} {top + 12}l10 11h-6v11h-8v-11h-6z" fill="{WHITE}"/>' if folded == 0 else "")
    return "".join((
        stroke(f"M{x + 106} {DECK - 66}V{DECK + 2}", INK, 4),
        box(x + 10, top, 82, tall, CARD_DARK, 2),
        box(x + 11, top + 1, 80, tall - 3, CARD, 2) if tall > 8 else "",
        box(x + 12, top, 78, 5, NIGHT) if opened > 0.5 and folded == 0 else "",
        arrow,
        stroke(flaps, CARD_DARK, 4) if flaps else "",
        box(x, DECK, 110, 7, INK, 2),
        "".join(f'<circle cx="{x + at}" cy="{DECK + 15}" r="8" fill="{INK}"/><circle cx="{x + at}" cy="{DECK + 15}" '
                f'r="3" fill="{LIGHT}"/>' for at in (18, 92)),
    ))


def clock(time):
    """A minute of work: the hand goes round once, behind it the time that it took."""
    x, y, radius = 344, 42, 24
    part = min(max((time - ROLLS_IN) / (SECONDS - 1 - ROLLS_IN), 0), 1)
    angle = part * 2 * math.pi
    tip_x, tip_y = x + radius * 0.8 * math.sin(angle), y - radius * 0.8 * math.cos(angle)
    slice_ = ""
    if 0 < part < 1:
        slice_ = (f'<path d="M{x} {y}V{y - 20}A20 20 0 {int(part > 0.5)} 1 {x + 20 * math.sin(angle):.2f} '
                  f'{y - 20 * math.cos(angle):.2f}Z" fill="{LIGHT}"/>')
    if part == 1:
        done = f'<circle cx="{x}" cy="{y}" r="20" fill="{BLUE}"/>' + stroke(f"M{x - 9} {y}l6 7l12 -14", WHITE, 5)
        return f'<circle cx="{x}" cy="{y}" r="{radius}" fill="{WHITE}"/>' + done
    return (f'<circle cx="{x}" cy="{y}" r="{radius}" fill="{WHITE}" stroke="{INK}" stroke-width="3"/>' + slice_ +
            stroke(f"M{x} {y}L{tip_x:.2f} {tip_y:.2f}", BLUE, 3))


def caption(time):
    start, text = [each for each in CAPTIONS if each[0] <= time][-1]
    shown = 1 if start == 0 else way(time, start, 0.25)
    return box(0, 208, WIDTH, 32, BLUE) + (
        f'<text x="{WIDTH // 2}" y="229" font-family="Liberation Sans" font-size="15" font-weight="bold" '
        f'text-anchor="middle" fill="{WHITE}" opacity="{shown:.2f}">{text}</text>')


def frame(time):
    return picture(WIDTH, HEIGHT, box(0, 0, WIDTH, HEIGHT, WALL), box(0, 194, WIDTH, 14, HAIRLINE), shelf(),
                   gap(time), clock(time), trolley(time), packs(time), caption(time))


def sound(path):
    """A soft tap for each handful that arrives, a rising pair of notes at the end."""
    rate = 22050
    notes = [(FIRST_HANDFUL + at * BETWEEN + FLIGHT, 392 + at * 49) for at in range(HANDFULS)]
    notes += [(ROLLS_IN + 1.1, 262), (OPENS, 330), (FACES + 0.9, 523), (SECONDS - 1, 523), (SECONDS - 0.75, 659)]
    samples = [0.0] * (rate * SECONDS)
    for start, pitch in notes:
        first = int(start * rate)
        for at in range(min(int(rate * 0.7), len(samples) - first)):
            time = at / rate
            fade = math.exp(-7 * time) * min(1, time * 200)
            samples[first + at] += 0.18 * fade * (math.sin(2 * math.pi * pitch * time) +
                                                  0.3 * math.sin(4 * math.pi * pitch * time))
    with wave.open(str(path), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(rate)
        file.writeframes(b"".join(struct.pack("<h", round(32767 * max(-1, min(1, each)))) for each in samples))


def main():
    FILM.parent.mkdir(exist_ok=True)
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        for number in range(SECONDS * PER_SECOND):
            text = frame(number / PER_SECOND)
            subprocess.run(["rsvg-convert", "-o", folder / f"{number:03}.png"], input=text.encode(), check=True)
        sound(folder / "sound.wav")
        subprocess.run(
            ["ffmpeg", "-v", "error", "-y", "-framerate", str(PER_SECOND), "-i", folder / "%03d.png",
             "-i", folder / "sound.wav", "-map_metadata", "-1", "-fflags", "+bitexact", "-flags", "+bitexact",
             "-pix_fmt", "yuv420p", "-c:v", "wmv2", "-qscale:v", "5", "-g", "75", "-c:a", "wmav2", "-b:a", "24k", FILM],
            check=True)
    print(f"{FILM.relative_to(ROOT)}: {FILM.stat().st_size} bytes")


if __name__ == "__main__":
    main()
