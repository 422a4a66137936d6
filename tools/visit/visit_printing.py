"""Printing in the scripts that drive the program: the page by the toolbar, an attachment from the repository."""

from __future__ import annotations

import subprocess
import time
from collections.abc import Callable
from pathlib import Path
from typing import TYPE_CHECKING

from private_cups import DEFAULT, PRINTERS, PrivateCups
from screen_places import (CLOSE, DIALOG, FIRST_LINE, FIRST_NAME, NAME_STEP, NAMES_ARROW, OK, PRINT, PRINT_ROW,
                           PRINTER_DIALOG, REPOSITORY_ROW, TOOLBAR, WAIT_WINDOW)
from visit_desktop import Desktop, Window, wait_for
from visit_windows import check_over_the_course

if TYPE_CHECKING:
    from visit import Visit

SETTLE = 0.4  # seconds until a step is painted


class Printing:
    """Begins and ends each print on the course screen. Its pictures bear the name given.

    `look` gets the size and the name of each form that has come.
    """

    def __init__(self, desktop: Desktop, cups: PrivateCups,
                 look: Callable[[tuple[int, int], str], None] = lambda *_: None) -> None:
        self.desktop, self.cups, self.look = desktop, cups, look
        self.screen = desktop.course()

    def await_end_of(self, size: tuple[int, int], what: str) -> None:
        wait_for(lambda: self.desktop.window(*size) is None, f"the end of {what}")
        time.sleep(SETTLE)

    def choose_row(self, row: tuple[int, int]) -> None:
        self.screen.click(*TOOLBAR)
        time.sleep(SETTLE)
        self.screen.click(*row)

    def accept_dialog(self, picture: str, printer: str | None) -> None:
        """Takes that printer from the list by mouse, or leaves the one that is preset."""
        dialog = self.desktop.await_window(*PRINTER_DIALOG, what="the printer dialog")
        self.look(PRINTER_DIALOG, "the printer dialog")
        if printer is not None:
            dialog.click(*NAMES_ARROW)
            time.sleep(SETTLE)
            x, y = FIRST_NAME
            dialog.click(x, y + NAME_STEP * list(PRINTERS).index(printer))
            time.sleep(SETTLE)
        self.desktop.picture(picture)
        dialog.click(*OK)

    def print_page(self, picture: str, printer: str | None, arrives_at: str) -> tuple[Path, Path]:
        """Gives the sheet, and a picture of the screen as it was when the page was taken from it."""
        known = self.cups.printed_on(arrives_at)
        self.choose_row(PRINT_ROW)
        self.accept_dialog(f"{picture}-dialog", printer)
        self.desktop.await_window(*WAIT_WINDOW, what="the wait window")
        self.desktop.picture(f"{picture}-wait")
        self.await_end_of(WAIT_WINDOW, "the wait window")
        screen = self.desktop.still_picture(f"{picture}-screen")
        return self.cups.await_printed(arrives_at, known), screen

    def open_repository(self) -> Window:
        self.choose_row(REPOSITORY_ROW)
        return self.desktop.await_window(*DIALOG, what="the repository")

    def print_attachment(self, repository: Window, line: int, picture: str, printer: str | None) -> None:
        """The attachment of that line of the list, from 0."""
        repository.click(*FIRST_LINE)
        self.desktop.key("Home", *["Down"] * line)
        repository.click(*PRINT)
        self.accept_dialog(picture, printer)
        self.await_end_of(PRINTER_DIALOG, "the printer dialog")


def text_of(pdf: Path) -> str:
    return subprocess.run(["pdftotext", "-layout", str(pdf), "-"], check=True, capture_output=True, text=True).stdout


def print_page_and_attachment(visit: Visit, cups: PrivateCups) -> None:
    """Both on the default printer."""
    printing = Printing(visit.desktop, cups, lambda *form: check_over_the_course(visit, *form))
    printing.print_page("print-page", None, DEFAULT)
    visit.check("the page is printed", True)
    folder = visit.store / "Repository" / "1"
    names = sorted(file.name for file in folder.iterdir() if file.is_file())
    pdf = next(name for name in names if name.endswith(".pdf"))
    known = cups.printed_on(DEFAULT)
    repository = printing.open_repository()
    printing.print_attachment(repository, names.index(pdf), "print-attachment", None)
    printed = cups.await_printed(DEFAULT, known)
    visit.check("an attachment is printed", text_of(printed) == text_of(folder / pdf))
    repository.click(*CLOSE)
    printing.await_end_of(DIALOG, "the repository")
