"""Writes a one-page PDF form from a .sheet source.

A line "# text" is the title, "## text" a heading, "___ label" a line to fill in, "[] text" a box
to tick; every other line is plain text and an empty line a gap.
"""

from __future__ import annotations

from .errors import SourceError

PAGE_WIDTH, PAGE_HEIGHT = 595, 842  # A4, in points
LEFT, TOP, BOTTOM, RIGHT = 56, 786, 48, 539
BLUE, INK = "0.4 0.4 1", "0.15 0.15 0.2"


def render_sheet(where: str, source: str) -> bytes:
    content: list[str] = []
    y = TOP
    for line in source.rstrip("\n").split("\n"):
        y -= _draw(content, y, line)
        if y < BOTTOM:
            raise SourceError(where, "does not fit on one page")
    stream = "\n".join(content).encode("cp1252")
    return _file([
        b"<< /Type /Catalog /Pages 2 0 R >>",
        b"<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
        (f"<< /Type /Page /Parent 2 0 R /MediaBox [0 0 {PAGE_WIDTH} {PAGE_HEIGHT}] "
         "/Resources << /Font << /F1 5 0 R /F2 6 0 R >> >> /Contents 4 0 R >>").encode(),
        b"<< /Length %d >>\nstream\n%s\nendstream" % (len(stream), stream),
        b"<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica /Encoding /WinAnsiEncoding >>",
        b"<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica-Bold /Encoding /WinAnsiEncoding >>",
    ])


def _draw(content: list[str], y: int, line: str) -> int:
    """Draw one line with its top at y and return the height that it takes."""
    if not line.strip():
        return 10
    if line.startswith("# "):
        content.append(_text("F2", 20, BLUE, LEFT, y - 18, line[2:]))
        content.append(f"{BLUE} RG 1.5 w {LEFT} {y - 27} m {RIGHT} {y - 27} l S")
        return 44
    if line.startswith("## "):
        content.append(_text("F2", 13, INK, LEFT, y - 14, line[3:]))
        return 24
    if line.startswith("___"):
        label = line[3:].strip()
        indent = 200 if len(label) > 2 else 12 * len(label)
        content.append(_text("F1", 11, INK, LEFT, y - 14, label))
        content.append(f"0.6 G 0.7 w {LEFT + indent} {y - 17} m {RIGHT} {y - 17} l S")
        return 27
    if line.startswith("[] "):
        content.append(f"0.4 G 0.8 w {LEFT} {y - 15} 10 10 re S")
        content.append(_text("F1", 11, INK, LEFT + 18, y - 14, line[3:]))
        return 21
    content.append(_text("F1", 11, INK, LEFT, y - 12, line))
    return 17


def _text(font: str, size: int, colour: str, x: int, y: int, text: str) -> str:
    escaped = text.replace("\\", "\\\\").replace("(", "\\(").replace(")", "\\)")
    return f"BT {colour} rg /{font} {size} Tf {x} {y} Td ({escaped}) Tj ET"


def _file(objects: list[bytes]) -> bytes:
    out = bytearray(b"%PDF-1.4\n%\xe2\xe3\xcf\xd3\n")
    offsets = []
    for number, body in enumerate(objects, start=1):
        offsets.append(len(out))
        out += b"%d 0 obj\n%s\nendobj\n" % (number, body)
    start = len(out)
    out += b"xref\n0 %d\n0000000000 65535 f \n" % (len(objects) + 1)
    out += b"".join(b"%010d 00000 n \n" % offset for offset in offsets)
    out += b"trailer\n<< /Size %d /Root 1 0 R >>\n" % (len(objects) + 1)
    out += b"startxref\n%d\n%%%%EOF\n" % start
    return bytes(out)
