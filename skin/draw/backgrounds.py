"""Backgrounds of the screens, the splash and the icon. Each function returns {file name: SVG text}."""

from .palette import BLUE, GREY, GREY_TOP, HAIRLINE, INK, LIGHT, NIGHT, OFF, WHITE
from .shapes import accent, box, grey_bar, open_book, picture, price_tag, stroke

DIALOG_HEADER = 56
BUTTON_STRIP = 60
SPINE = 10  # width of the book's back along a dialog's left side


def dialog(width, height, header=DIALOG_HEADER):
    """Header, white body with a book's back at its left, and the strip for the buttons. A header of 0 is none."""
    strip = height - BUTTON_STRIP
    top = header + 3
    ribs = [box(0, at, SPINE, 3, "#B8B8F4") for at in (top + 14, top + 20, strip - 23, strip - 17)]
    return picture(
        width,
        height,
        box(0, 0, width, height, WHITE),
        box(0, top, SPINE, strip - top, LIGHT),
        box(SPINE, top, 1, strip - top, "#B8B8F4"),
        *ribs,
        grey_bar(width, header) if header else "",
        accent(width, header),
        box(0, strip, width, 1, HAIRLINE),
    )


def dialogs():
    sizes = {"Dialog": (520, 360), "DialogWide": (960, 540), "DialogTall": (640, 520), "Question": (1024, 768)}
    return {name: dialog(*size) for name, size in sizes.items()} | {"Printer": dialog(460, 220, header=0)}


def check_progress():
    """960 by 540: a book before the title, a pale column for the results, the lists on white."""
    header, column = 62, 183
    top = header + 3
    ribs = [box(0, at, SPINE, 3, "#B8B8F4") for at in (top + 14, top + 20, 540 - 23, 540 - 17)]
    return {
        "CheckProgress": picture(
            960,
            540,
            box(0, 0, 960, 540, WHITE),
            box(0, top, column, 540 - top, "#F7F7FD"),
            box(column, top, 1, 540 - top, HAIRLINE),
            box(0, top, SPINE, 540 - top, LIGHT),
            box(SPINE, top, 1, 540 - top, "#B8B8F4"),
            *ribs,
            grey_bar(960, header),
            accent(960, header),
            open_book(46, 9, 80),
        )
    }


def course_screen():
    """1024 by 768: the header's 41 rows, the page with its frame, the bottom bar's 33 rows."""
    return {
        "CourseScreen": picture(
            1024,
            768,
            box(0, 0, 1024, 768, WHITE),
            grey_bar(1024, 41),
            accent(1024, 41),
            # The page stands at 16, 64 and measures 998 by 663.
            box(12, 60, 1006, 671, HAIRLINE, 4),
            box(13, 61, 1004, 669, WHITE, 3),
            accent(1024, 732, upwards=True),
            grey_bar(1024, 33, 735),
        )
    }


def standing_book(x, foot, width, height, fill, edge, lines):
    """A closed book standing on a shelf, its back to the front."""
    top = foot - height
    return "\n".join(
        (
            box(x, top, width, height, edge, 2),
            box(x + 1, top + 1, width - 2, height - 1, fill, 1),
            box(x + 1, top + 10, width - 2, 2, lines),
            box(x + 1, top + 14, width - 2, 2, lines),
            box(x + 1, foot - 14, width - 2, 2, lines),
        )
    )


def glossary():
    """960 by 520: the header's 53 rows, a panel with three volumes at the left, the list's place at 160, 56."""
    width, height, header, panel = 960, 520, 53, 144
    shelf, top = height - 60, header + 3
    volumes = (
        (26, 132, (BLUE, NIGHT, LIGHT), WHITE, "A"),
        (57, 148, (LIGHT, BLUE, BLUE), INK, "M"),
        (88, 138, (BLUE, NIGHT, LIGHT), WHITE, "Z"),
    )
    books = []
    for x, tall, colours, ink, letter in volumes:
        books.append(standing_book(x, shelf, 30, tall, *colours))
        books.append(
            f'<text x="{x + 15}" y="{shelf - 60}" text-anchor="middle" font-family="Liberation Sans" '
            f'font-weight="bold" font-size="20" fill="{ink}">{letter}</text>'
        )
    return {
        "Glossary": picture(
            width,
            height,
            box(0, 0, width, height, WHITE),
            box(0, top, panel, height - top, "#F2F2FA"),
            box(panel, top, 1, height - top, HAIRLINE),
            grey_bar(width, header),
            accent(width, header),
            *books,
            box(0, shelf, panel, 9, GREY),
            box(0, shelf, panel, 1, GREY_TOP),
            box(0, shelf + 8, panel, 1, "#7A7A7A"),
            box(0, shelf + 9, panel, 3, "#E2E2EE"),
        )
    }


def splash():
    """450 by 246: an open book and a row of books on a shop's shelf with price tags."""
    board, shade = 190, "#7A7A7A"
    blue, pale, grey = (BLUE, NIGHT, LIGHT), (LIGHT, BLUE, BLUE), (GREY, shade, WHITE)
    row = (
        (18, 78, blue),
        (14, 66, pale),
        (22, 84, blue),
        (13, 90, grey),
        (19, 72, pale),
        (16, 86, blue),
        (14, 80, blue),
        (20, 68, grey),
        (17, 76, pale),
    )
    books, x = [], 252
    for width, height, colours in row:
        books.append(standing_book(x, board, width, height, *colours))
        x += width + 1
    tags = (
        stroke(f"M{at} {board + 9}V{board + 16}", shade, 1)
        + price_tag(at, board + 20.5, 16, 26, WHITE, shade, BLUE)
        for at in (109.5, 281.5, 383.5)
    )
    return {
        "Splash": picture(
            450,
            246,
            box(0, 0, 450, 246, GREY),
            box(1, 1, 448, 244, WHITE),
            box(1, 1, 448, 3, BLUE),
            box(1, 4, 448, 1, LIGHT),
            f'<text x="33" y="54" font-family="Liberation Sans" font-weight="bold" font-size="32" fill="{BLUE}">'
            f'Tallowmere <tspan fill="{INK}">Manager</tspan></text>',
            '<text x="34" y="77" font-family="Liberation Sans" font-size="13" fill="#707070">'
            "Courses for the people in the store</text>",
            open_book(34, board - 79.5, 150, "#F7F7FF", BLUE, "#B8B8F4", edge=NIGHT),
            *books,
            box(1, board, 448, 9, GREY),
            box(1, board, 448, 1, GREY_TOP),
            box(1, board + 8, 448, 1, shade),
            box(1, board + 9, 448, 246 - board - 10, "#F2F2FA"),
            box(1, board + 9, 448, 2, "#E2E2EE"),
            *tags,
        )
    }


def icon():
    """The program's icon on a grid of 64: an open book with a price tag as its bookmark."""
    ground = (
        '<defs><linearGradient id="ground" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="#8C8CFF"/>'
        f'<stop offset="0.3" stop-color="{BLUE}"/><stop offset="1" stop-color="#5959EC"/></linearGradient></defs>'
    )
    return {
        "tallowmere": picture(
            64,
            64,
            ground,
            box(2, 2, 60, 60, OFF.edge, 12),
            box(3, 3, 58, 58, "url(#ground)", 11),
            open_book(7, 11, 50, WHITE, INK, "#B8B8F4"),
            stroke("M32 38V43", WHITE, 2),
            price_tag(32, 44.5, 11, 16, WHITE, INK, BLUE),
        )
    }
