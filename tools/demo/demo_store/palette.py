"""The colours of the pages. The renderer writes them as the RTF colour table, in this order."""

COLOURS: dict[str, tuple[int, int, int]] = {
    "ink": (0x26, 0x26, 0x33),
    "blue": (0x66, 0x66, 0xFF),
    "light": (0xCC, 0xCC, 0xFF),
    "pale": (0xF0, 0xF0, 0xFF),
    "grey": (0x80, 0x80, 0x80),
    "white": (0xFF, 0xFF, 0xFF),
    "warm": (0xC2, 0x5A, 0x00),
    "cream": (0xFF, 0xF0, 0xDC),
    "link": (0x33, 0x33, 0xCC),
    "rule": (0xBB, 0xBB, 0xDD),
}


def colour_number(name: str) -> int:
    """Return the number of a colour in the colour table; 0 is the reader's own default."""
    return list(COLOURS).index(name) + 1
