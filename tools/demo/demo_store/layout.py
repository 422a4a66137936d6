"""The sheets that pages and documents are laid out for."""

from __future__ import annotations

from dataclasses import dataclass


@dataclass(frozen=True)
class Layout:
    """The sheet that a page is laid out for; font sizes are half points."""

    width: int
    height: int
    margin_left: int
    margin_right: int
    margin_top: int
    body_size: int
    title_size: int
    title_band: bool
    measure: int  # widest line of running text

    @property
    def text_width(self) -> int:
        return self.width - self.margin_left - self.margin_right


# The page view is 998 by 663 pixels; the right margin leaves room for its scroll bar.
SCREEN = Layout(14970, 9945, 540, 840, 225, 26, 40, True, 12300)
# Help and trademark windows are narrower: nothing on these sheets has a width of its own.
SMALL = Layout(8400, 9945, 240, 240, 240, 22, 32, False, 8400)
# Documents of the repository are opened by a word processor: an A4 sheet.
PAPER = Layout(11906, 16838, 1134, 1134, 1134, 22, 36, False, 9638)
