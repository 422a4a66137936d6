#!/usr/bin/env python3
"""Draws the skin: writes skin/svg/*.svg and renders them into skin/GUIimages.

Needs rsvg-convert, ImageMagick's convert, cjpeg and the Liberation Sans font.
"""

import subprocess
import sys
import tempfile
from pathlib import Path

SKIN = Path(__file__).resolve().parents[2] / "skin"
sys.path.insert(0, str(SKIN))
sys.dont_write_bytecode = True

from draw import avi, backgrounds, controls, waiting  # noqa: E402

ICON_SIZES = (64, 256)
COPIES = (2, 3)     # larger pictures for larger displays, in folders of their own


def all_pictures():
    makers = (
        controls.dialog_buttons,
        controls.header_buttons,
        controls.bottom_buttons,
        controls.menu_rows,
        controls.scroll_arrows,
        backgrounds.dialogs,
        backgrounds.check_progress,
        backgrounds.course_screen,
        backgrounds.glossary,
        backgrounds.splash,
        waiting.wait_window,
    )
    made = {}
    for make in makers:
        made.update(make())
    return made


def render_png(source, target, *size):
    subprocess.run(["rsvg-convert", *size, "-o", target, source], check=True)


def render_jpeg(source, target, times=1):
    """Keeps red, green and blue as they are: a JPEG's usual turn to brightness and colour costs
    the flat blue up to three levels, and captions stand on it with a ground of the same blue."""
    with tempfile.TemporaryDirectory() as folder:
        png, ppm = Path(folder) / "picture.png", Path(folder) / "picture.ppm"
        render_png(source, png, "-z", str(times))
        subprocess.run(["convert", png, "-background", "white", "-flatten", "-depth", "8", ppm], check=True)
        options = ["-rgb", "-quality", "100", "-sample", "1x1", "-optimize"]
        subprocess.run(["cjpeg", *options, "-outfile", target, ppm], check=True)


def render_frame(text):
    """A picture of a movie, in the colours that players of such movies expect."""
    png = subprocess.run(["rsvg-convert"], input=text.encode(), capture_output=True, check=True).stdout
    ppm = subprocess.run(["convert", "png:-", "-depth", "8", "ppm:-"], input=png, capture_output=True, check=True).stdout
    options = ["-quality", "90", "-sample", "1x1"]
    return subprocess.run(["cjpeg", *options], input=ppm, capture_output=True, check=True).stdout


def main():
    sources, images = SKIN / "svg", SKIN / "GUIimages"
    sources.mkdir(exist_ok=True)
    images.mkdir(exist_ok=True)
    for name, text in all_pictures().items():
        source = sources / f"{name}.svg"
        source.write_text(text, encoding="utf-8")
        render_jpeg(source, images / f"{name}.jpg")
        for times in COPIES:
            copies = images / f"{times}x"
            copies.mkdir(exist_ok=True)
            render_jpeg(source, copies / f"{name}.jpg", times)
    frames = [render_frame(text) for text in waiting.movie()]
    (images / "transmit.avi").write_bytes(avi.avi(frames, *waiting.SCENE, waiting.PER_SECOND))
    for name, text in backgrounds.icon().items():
        source = sources / f"{name}.svg"
        source.write_text(text, encoding="utf-8")
        for size in ICON_SIZES:
            render_png(source, images / f"{name}-{size}.png", "-w", str(size))


if __name__ == "__main__":
    main()
