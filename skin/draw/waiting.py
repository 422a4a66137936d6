"""The wait window of a page print: its ground, and the movie of a sheet on its way to the printer."""

from .palette import BLUE, GREY, GREY_TOP, HAIRLINE, INK, LIGHT, NIGHT, WHITE
from .shapes import accent, box, picture, stroke

SCENE = (240, 72)  # size of the movie
FRAMES = 24
PER_SECOND = 12


def sheet(x, y):
    lines = " ".join(f"M{x + 5} {y + at}h{width}" for at, width in ((8, 16), (14, 12), (20, 16), (26, 9)))
    return "\n".join((box(x, y, 26, 34, BLUE, 2), box(x + 1, y + 1, 24, 32, WHITE, 1), stroke(lines, LIGHT, 2)))


def scene(way):
    """A screen at the left, a printer at the right, the sheet between them; way: 0 to 1."""
    return "\n".join(
        (
            box(8, 8, 64, 46, INK, 4),
            box(11, 11, 58, 40, LIGHT, 2),
            box(32, 54, 16, 6, GREY),
            box(24, 60, 32, 4, GREY, 2),
            sheet(round(34 + way * 148), 14),
            box(170, 24, 50, 12, GREY_TOP, 2),
            box(160, 34, 70, 28, NIGHT, 4),
            box(161, 35, 68, 26, BLUE, 3),
            box(168, 50, 54, 4, INK, 2),
            box(216, 40, 6, 4, LIGHT, 1),
        )
    )


def movie():
    """The frames of the movie, each an SVG text."""
    width, height = SCENE
    return [picture(width, height, box(0, 0, width, height, WHITE), scene(at / (FRAMES - 1))) for at in range(FRAMES)]


def wait_window():
    """340 by 150; the movie's place is at 50, 22."""
    return {
        "Wait": picture(
            340,
            150,
            box(0, 0, 340, 150, WHITE),
            accent(340, 0),
            f'<g transform="translate(50 22)">{scene(0.45)}</g>',
            box(24, 101, 292, 1, HAIRLINE),
        )
    }
