"""Building blocks of the pictures. All take whole pixels, so edges stay sharp at 100 %."""

from .palette import BLUE, GREY, GREY_TOP, LIGHT, NIGHT, RADIUS, STROKE, WHITE


def picture(width, height, *parts):
    """A whole SVG document of width by height pixels."""
    body = "\n".join(part for part in parts if part)
    return (
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
        f'viewBox="0 0 {width} {height}">\n{body}\n</svg>\n'
    )


def box(x, y, width, height, fill, radius=0):
    corner = f' rx="{radius}"' if radius else ""
    return f'<rect x="{x}" y="{y}" width="{width}" height="{height}"{corner} fill="{fill}"/>'


def lit(y, height, look):
    """The paint of a ground: light in its first 5 pixels, shade in its last 3, flat base between.

    Captions stand on the flat part, which has exactly the base colour. Returns (definition, paint).
    A picture has one such ground at most, so the definition's name is fixed.
    """
    stops = (
        (0, look.top),
        (5 / height, look.base),
        (1 - 3 / height, look.base),
        (1, look.foot),
    )
    lines = "".join(f'<stop offset="{offset:.4f}" stop-color="{colour}"/>' for offset, colour in stops)
    definition = (
        f'<defs><linearGradient id="lit" gradientUnits="userSpaceOnUse" '
        f'x1="0" y1="{y}" x2="0" y2="{y + height}">{lines}</linearGradient></defs>'
    )
    return definition, "url(#lit)"


def button(x, y, width, height, look):
    """A rounded button: one pixel of edge around a lit ground."""
    definition, paint = lit(y + 1, height - 2, look)
    return "\n".join(
        (
            definition,
            box(x, y, width, height, look.edge, RADIUS),
            box(x + 1, y + 1, width - 2, height - 2, paint, RADIUS - 1),
        )
    )


def band(width, height, look, seen=None):
    """A menu row with square corners, so that it goes with any ground.

    seen: the columns that the row's window leaves to be seen, when it cuts off the rest; the right
    edge is drawn at their end.
    """
    definition, paint = lit(1, height - 2, look)
    inner = (seen or width) - 2
    return "\n".join(
        (
            definition,
            box(0, 0, width, height, look.edge),
            box(1, 1, inner, height - 2, paint),
            box(seen, 1, width - seen - 1, height - 2, paint) if seen else "",
        )
    )


def grey_bar(width, height, y=0):
    """A piece of a grey bar. Pictures that fill a bar's whole height carry the same light line."""
    return box(0, y, width, height, GREY) + "\n" + box(0, y, width, 1, GREY_TOP)


def accent(width, y, upwards=False):
    """The three-pixel blue line that parts a grey bar from the white, its pale row to the white."""
    if upwards:
        return box(0, y, width, 1, LIGHT) + "\n" + box(0, y + 1, width, 2, BLUE)
    return box(0, y, width, 2, BLUE) + "\n" + box(0, y + 2, width, 1, LIGHT)


def stroke(path, colour, width=STROKE):
    return (
        f'<path d="{path}" fill="none" stroke="{colour}" stroke-width="{width}" '
        'stroke-linecap="round" stroke-linejoin="round"/>'
    )


def triangle(x, y, half, colour, up):
    """A solid triangle in a box of 2 half by half pixels whose upper left corner is x, y."""
    if up:
        path = f"M{x} {y + half}h{2 * half}l{-half} {-half}z"
    else:
        path = f"M{x} {y}h{2 * half}l{-half} {half}z"
    return f'<path d="{path}" fill="{colour}"/>'


def open_book(x, y, width, pages=WHITE, cover=NIGHT, lines=LIGHT, edge=None):
    """An open book seen from the front; its height is 0.56 of its width. x, y: upper left corner.

    edge: colour of a line around the pages, for a book on white.
    """
    s = width / 100

    def p(dx, dy):
        return f"{x + dx * s:.2f} {y + dy * s:.2f}"

    def leaf(side):
        """One page, from the spine (50) outwards; side is -1 for left and 1 for right."""
        far, mid = 50 + 46 * side, 50 + 20 * side
        return (
            f"M{p(50, 8)}C{p(50 + 8 * side, 1)} {p(mid, 0)} {p(far, 3)}V{y + 47 * s:.2f}"
            f"C{p(mid, 44)} {p(50 + 8 * side, 45)} {p(50, 52)}Z"
        )

    def text_line(side, dy):
        return f"M{p(50 + 9 * side, dy + 2.5)}C{p(50 + 16 * side, dy)} {p(50 + 26 * side, dy - 1)} {p(50 + 38 * side, dy)}"

    back = (
        f"M{p(2, 9)}H{x + 98 * s:.2f}Q{p(100, 9)} {p(100, 11)}V{y + 51 * s:.2f}Q{p(100, 53)} {p(98, 53)}"
        f"H{x + 55 * s:.2f}Q{p(50, 58)} {p(45, 53)}H{x + 2 * s:.2f}Q{p(0, 53)} {p(0, 51)}"
        f"V{y + 11 * s:.2f}Q{p(0, 9)} {p(2, 9)}Z"
    )
    # The line lies outside the page: at whole pixels it then stays one sharp pixel.
    outline = f' stroke="{edge}" stroke-width="2" stroke-linejoin="round" paint-order="stroke"' if edge else ""
    parts = [
        f'<path d="{back}" fill="{cover}"/>',
        f'<path d="{leaf(-1)}" fill="{pages}"{outline}/>',
        f'<path d="{leaf(1)}" fill="{pages}"{outline}/>',
        f'<path d="M{p(50, 8)}V{y + 52 * s:.2f}" stroke="{lines}" stroke-width="{1.6 * s:.2f}"/>',
    ]
    rows = " ".join(text_line(side, dy) for side in (-1, 1) for dy in (14, 23, 32))
    parts.append(stroke(rows, lines, f"{2.6 * s:.2f}"))
    return "\n".join(parts)


def price_tag(x, y, width, height, fill, edge, mark):
    """A hanging price tag with an edge of one pixel; x, y is the middle of its hole.

    With x, y on half pixels and an even width the edge falls on whole pixels.
    """
    left, top, cut = x - width / 2, y - 0.2 * height // 1, 0.28 * height
    path = (
        f"M{left + 0.3 * width:.2f} {top}H{left + 0.7 * width:.2f}L{left + width} {top + cut:.2f}"
        f"V{top + height}H{left}V{top + cut:.2f}Z"
    )

    def row(at):
        return f"M{x - 0.26 * width:.2f} {top + at:.2f}H{x + 0.26 * width:.2f}"

    return "\n".join(
        (
            f'<path d="{path}" fill="{fill}" stroke="{edge}" stroke-linejoin="round"/>',
            f'<circle cx="{x}" cy="{y}" r="{0.08 * height:.2f}" fill="{edge}"/>',
            stroke(f"{row(0.56 * height // 1)} {row(0.77 * height // 1)}", mark, round(0.08 * height)),
        )
    )
