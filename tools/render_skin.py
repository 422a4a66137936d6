#!/usr/bin/env python3
"""Draws the skin: writes skin/svg/*.svg and renders them into skin/GUIimages.

Needs rsvg-convert, ImageMagick's convert and the Liberation Sans font.
"""

import subprocess
import sys
import tempfile
from pathlib import Path

SKIN = Path(__file__).resolve().parent.parent / "skin"
sys.path.insert(0, str(SKIN))

from draw import backgrounds, controls  # noqa: E402

ICON_SIZES = (64, 256)


def all_pictures():
    makers = (
        controls.dialog_buttons,
        controls.header_buttons,
        controls.bottom_buttons,
        controls.menu_rows,
        controls.scroll_arrows,
        backgrounds.dialogs,
        backgrounds.course_screen,
        backgrounds.splash,
    )
    made = {}
    for make in makers:
        made.update(make())
    return made


def render_png(source, target, width=None):
    size = ["-w", str(width)] if width else []
    subprocess.run(["rsvg-convert", *size, "-o", target, source], check=True)


def render_jpeg(source, target):
    """Full quality and unthinned colour, so that flat areas keep their colour."""
    with tempfile.TemporaryDirectory() as folder:
        png = Path(folder) / "picture.png"
        render_png(source, png)
        options = ["-strip", "-background", "white", "-flatten", "-sampling-factor", "4:4:4", "-quality", "100"]
        subprocess.run(["convert", png, *options, target], check=True)


def main():
    sources, images = SKIN / "svg", SKIN / "GUIimages"
    sources.mkdir(exist_ok=True)
    images.mkdir(exist_ok=True)
    for name, text in all_pictures().items():
        source = sources / f"{name}.svg"
        source.write_text(text, encoding="utf-8")
        render_jpeg(source, images / f"{name}.jpg")
    for name, text in backgrounds.icon().items():
        source = sources / f"{name}.svg"
        source.write_text(text, encoding="utf-8")
        for size in ICON_SIZES:
            render_png(source, images / f"{name}-{size}.png", size)


if __name__ == "__main__":
    main()
