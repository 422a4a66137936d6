"""PNG and JPEG pictures: their sizes, read from their headers, and their RTF."""

from __future__ import annotations

from dataclasses import dataclass
from pathlib import Path

from .errors import SourceError

TWIPS_PER_PIXEL = 15  # on the page
PNG_SIGNATURE = b"\x89PNG\r\n\x1a\n"
JPEG_START = b"\xff\xd8"
# Start-of-frame markers; C4, C8 and CC in the same range mean something else.
JPEG_FRAMES = set(range(0xC0, 0xD0)) - {0xC4, 0xC8, 0xCC}


@dataclass(frozen=True)
class Image:
    data: bytes
    blip: str  # the RTF word for the format
    width: int  # pixels
    height: int


def read_image(path: Path) -> Image:
    data = path.read_bytes()
    if data.startswith(PNG_SIGNATURE) and data[12:16] == b"IHDR":
        return Image(data, "pngblip", *_pair(data[16:20], data[20:24]))
    if data.startswith(JPEG_START):
        return Image(data, "jpegblip", *_jpeg_size(path, data))
    raise SourceError(path, "neither a PNG nor a JPEG picture")


def picture_group(path: Path, shown: int) -> str:
    """Return the picture as RTF; `shown` is its width on the page in pixels, 0 for its own."""
    image = read_image(path)
    shown = shown or image.width
    width = shown * TWIPS_PER_PIXEL
    height = round(shown * image.height / image.width) * TWIPS_PER_PIXEL
    hexed = image.data.hex()
    lines = "\r\n".join(hexed[i : i + 128] for i in range(0, len(hexed), 128))
    return (f"{{\\pict\\{image.blip}\\picw{image.width}\\pich{image.height}"
            f"\\picwgoal{width}\\pichgoal{height}\r\n{lines}}}")


def _jpeg_size(path: Path, data: bytes) -> tuple[int, int]:
    at = 2
    while at + 9 <= len(data) and data[at] == 0xFF:
        if data[at + 1] in JPEG_FRAMES:
            return _pair(data[at + 7 : at + 9], data[at + 5 : at + 7])
        at += 2 + int.from_bytes(data[at + 2 : at + 4], "big")
    raise SourceError(path, "a JPEG picture without a size")


def _pair(width: bytes, height: bytes) -> tuple[int, int]:
    return int.from_bytes(width, "big"), int.from_bytes(height, "big")
