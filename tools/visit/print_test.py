#!/usr/bin/env python3
"""Prints by the real program on the printers of a CUPS of its own, and reads the sheets back.

Usage: print_test.py STORE [OUT]. OUT keeps the pictures and the sheets. With --display it prints pages alone, from a
display of another size than the design's. Exits with 1 when something was not as it must be, and with 77 where the
packages for it are missing.
"""

import argparse
import re
import shutil
import subprocess
import sys
import tempfile
import time
from contextlib import ExitStack
from pathlib import Path

from private_cups import DEFAULT, OTHER, PPD, PRINTERS, SHEETS, SKIPPED, PrivateCups, missing_packages
from program_run import Run
from screen_places import (CLOSE, CLOSE_GLOSSARY, DIALOG, GLOSSARY, GLOSSARY_ROW, PRINT_GLOSSARY, PRINT_ROW,
                           PRINTER_DIALOG)
from store_files import prepare_learner, read_courses
from visit_desktop import DESIGN, Desktop, differing_pixels, wait_for
from visit_printing import SETTLE, Printing, text_of

# The desktop's print dialog, and the number of copies once its options are open.
SYSTEM_DIALOG, COPIES = (281, 155), (301, 195)

OLE_FILE = b"\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1" + bytes(504)  # what CUPS knows for a document of another program
INCH = 72.0  # points
SHIFT = 4  # pixels of the design by which its area may stand beside the middle of the display
NEAR = 1.5  # pixels of the screen that a place on the sheet may be off
MEAN_ERROR = 0.02  # of the full range: the lines of a rendered sheet don't fall on those of the screen


def output_of(*command: object) -> str:
    return subprocess.run([str(word) for word in command], check=True, capture_output=True, text=True).stdout


def numbers_of(entry: str, sheet: str) -> list[float]:
    """The four or two numbers of an entry of the printer's description, points."""
    match = re.search(rf'^\*{entry} {sheet}/{sheet}: "([\d ]+)"', PPD.read_text(encoding="utf-8"), re.MULTILINE)
    return [float(number) for number in match[1].split()] if match else []


class Sheet:
    """A printed page as it lies before the reader, wider than high, and where a picture has to stand on it."""

    def __init__(self, pdf: Path, folder: Path, screen: tuple[int, int]) -> None:
        name = SHEETS[pdf.stem.split("-")[0]]
        left, bottom, right, top = numbers_of("ImageableArea", name)
        short, long = numbers_of("PaperDimension", name)
        # A sheet may be turned to either side, so that the larger of two margins counts.
        self.corner = max(bottom, long - top), max(left, short - right)
        area = long - 2 * self.corner[0], short - 2 * self.corner[1]
        width = min(area[0], area[1] * screen[0] / screen[1])
        resolution = screen[0] / width * INCH  # a dot of the rendered sheet is a pixel of the screen
        self.pixels = resolution / INCH
        stem = folder / pdf.stem
        output_of("pdftoppm", "-r", resolution, "-png", "-singlefile", pdf, stem)
        output_of("pdfimages", "-png", pdf, stem)
        self.rendered = stem.with_suffix(".png")
        self.stood = self.turn_as_read()
        self.picture = folder / f"{pdf.stem}-000.png"
        self.count = int(re.search(r"Pages:\s+(\d+)", output_of("pdfinfo", pdf))[1])
        self.size = long, short

    def turn_as_read(self) -> bool:
        """Whether the page came standing, turned to the right."""
        width, height = (int(number) for number in output_of("identify", "-format", "%w %h", self.rendered).split())
        if height > width:
            output_of("convert", self.rendered, "-rotate", "-90", self.rendered)
        return height > width

    def found(self) -> tuple[list[int], list[int]]:
        """Size and place of what is printed, and size of the sheet, pixels."""
        told = output_of("convert", self.rendered, "-fuzz", "1%", "-format", "%@ %w %h", "info:")
        numbers = [int(number) for number in re.findall(r"\d+", told)]
        return numbers[:4], numbers[4:]


def mean_error(one: Path, other: Path) -> float:
    """Of the full range, 0 to 1."""
    told = subprocess.run(["compare", "-metric", "MAE", str(one), str(other), "null:"], check=False,
                          capture_output=True, text=True).stderr
    share = re.search(r"\(([\d.e-]+)\)", told)
    return float(share[1]) if share else 1.0


class PrintTest:
    def __init__(self, desktop: Desktop, cups: PrivateCups, run: Run) -> None:
        self.desktop, self.cups, self.run_ = desktop, cups, run
        self.printing = Printing(desktop, cups)
        self.screen = tuple(round(pixels * desktop.scale) for pixels in DESIGN)
        self.failures = 0

    def check(self, what: str, holds: bool) -> None:
        print(("ok    " if holds else "FAILED ") + what, flush=True)
        self.failures += not holds

    def compare(self, pdf: Path, picture: Path) -> None:
        sheet = Sheet(pdf, self.desktop.pictures, self.screen)
        (width, height, left, top), paper = sheet.found()
        wanted = [*self.screen, *(round(margin * sheet.pixels) for margin in sheet.corner)]
        print(f"      size and place {[width, height, left, top]}, must be {wanted}")
        self.check("one sheet comes", sheet.count == 1)
        self.check("it is the sheet of the printer", all(abs(pixels - points * sheet.pixels) < NEAR
                                            for pixels, points in zip(paper, sheet.size)))
        self.check("the picture fills the sheet one way",
                   abs(width - self.screen[0]) < NEAR and abs(height - self.screen[1]) < NEAR)
        self.check("it begins at the top left corner of the printable area",
                   abs(left - wanted[2]) < NEAR and abs(top - wanted[3]) < NEAR)
        screen = self.area_of(picture, sheet.picture)
        area = f"{self.screen[0]}x{self.screen[1]}"
        crop = self.desktop.pictures / f"{pdf.stem}-as-printed.png"
        output_of("convert", sheet.rendered, "-crop", f"{area}+{left}+{top}", "+repage", crop)
        error = mean_error(screen, crop)
        print(f"      mean error {error:.4f}")
        self.check("the sheet shows the course screen", error < MEAN_ERROR)
        size = output_of("identify", "-format", "%wx%h", sheet.picture)
        self.check(f"its picture has the display's own pixels, {size}", size == area)
        if self.desktop.scale == 1:
            self.check("and each of those of the screen",
                       differing_pixels(screen, sheet.picture, f"{area}+0+0") == 0)

    def area_of(self, picture: Path, printed: Path) -> Path:
        """The design's area in a picture of the display, where it is most like what was printed."""
        corner = self.desktop.course()
        best, least = picture, 1.0
        reach = 0 if self.desktop.scale == 1 else round(SHIFT * self.desktop.scale)
        for aside in range(-reach, reach + 1) if self.desktop.display[0] > self.screen[0] else [0]:
            crop = picture.with_name(f"{picture.stem}-area{aside}.png")
            output_of("convert", picture, "-crop", f"{self.screen[0]}x{self.screen[1]}+{corner.x + aside}+{corner.y}",
                      "+repage", crop)
            if (error := mean_error(crop, printed)) < least:
                best, least = crop, error
        return best

    def print_pages(self) -> None:
        self.compare(*self.printing.print_page("page", OTHER, arrives_at=OTHER))
        self.check("nothing comes on the default printer", not self.cups.printed_on(DEFAULT))
        self.printing.print_page("page-again", None, arrives_at=OTHER)
        self.check("the printer chosen is preset the next time", not self.cups.printed_on(DEFAULT))

    def print_attachments(self, folder: Path) -> None:
        names = sorted(file.name for file in folder.iterdir() if file.is_file())
        pdf = next(name for name in names if name.endswith(".pdf"))
        repository = self.printing.open_repository()
        self.printing.print_attachment(repository, names.index(pdf), "attachment-dialog", OTHER)
        printed = self.cups.await_printed(DEFAULT)
        self.check(f"{pdf} comes on the default printer with its text",
                   text_of(printed) == text_of(folder / pdf) and text_of(printed).strip() != "")
        for name in names:
            if name.endswith((".rtf", ".doc")):
                self.printing.print_attachment(repository, names.index(name), "attachment-dialog", None)
                self.await_box("no-program", windows=2)
                self.check(f"{name}, which no printer takes, brings a message", True)
        repository.click(*CLOSE)
        self.printing.await_end_of(DIALOG, "the repository")

    def print_glossary(self) -> None:
        """Twice, by the desktop's own print dialog."""
        known = self.cups.printed_on(DEFAULT)
        self.printing.choose_row(GLOSSARY_ROW)
        glossary = self.desktop.await_window(*GLOSSARY, what="the glossary")
        glossary.click(*PRINT_GLOSSARY)
        dialog = self.desktop.await_window(*SYSTEM_DIALOG, what="the desktop's print dialog")
        self.desktop.key("alt+o")
        time.sleep(SETTLE)
        dialog.click(*COPIES)
        self.desktop.key("ctrl+a", "2")
        self.desktop.picture("glossary-dialog")
        self.desktop.key("Return")
        printed = self.cups.await_printed(DEFAULT, known)
        pages = text_of(printed).split("\f")[:-1]
        self.check("the glossary comes in two copies",
                   len(pages) > 2 and pages[:len(pages) // 2] == pages[len(pages) // 2:])
        self.check("from its first word to its last", "Age check" in pages[0] and "Z" in pages[-1].split())
        glossary.click(*CLOSE_GLOSSARY)
        self.printing.await_end_of(GLOSSARY, "the glossary")

    def await_box(self, picture: str, windows: int) -> None:
        """A box over as many windows comes, is no printer dialog, and goes at Enter."""
        wait_for(lambda: len(self.desktop.visible()) == windows + 1, "the message")
        self.check("no printer dialog comes", self.desktop.window(*PRINTER_DIALOG) is None)
        self.desktop.picture(picture)
        self.desktop.key("Return")
        wait_for(lambda: len(self.desktop.visible()) == windows, "the end of the message")

    def do_without_printers(self) -> None:
        for name in PRINTERS:
            self.cups.must("lpadmin", "-x", name)
        self.printing.choose_row(PRINT_ROW)
        self.await_box("no-printer", windows=1)
        self.cups.stop()
        self.printing.choose_row(PRINT_ROW)
        self.await_box("no-cups", windows=1)

    def count_sheets(self) -> None:
        printed = {name: len(self.cups.printed_on(name)) for name in PRINTERS}
        self.check("nothing else was printed", printed == {DEFAULT: 2, OTHER: 2})

    def run(self, attachments: Path) -> None:
        self.print_pages()
        self.print_attachments(attachments)
        self.print_glossary()
        self.do_without_printers()
        self.count_sheets()
        self.check("the program ends well", self.run_.leave() == 0)


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("store", type=Path)
    parser.add_argument("out", type=Path, nargs="?")
    parser.add_argument("--display", default="x".join(map(str, DESIGN)), help="as 1920x1080")
    arguments = parser.parse_args()
    if missing := missing_packages():
        print(f"nothing can be printed without {', '.join(missing)}")
        return SKIPPED
    with ExitStack() as stack:
        out = arguments.out or Path(stack.enter_context(tempfile.TemporaryDirectory(prefix="print-")))
        out.mkdir(parents=True, exist_ok=True)
        store = Path(stack.enter_context(tempfile.TemporaryDirectory(prefix="print-store-"))) / "store"
        shutil.copytree(arguments.store, store, ignore=shutil.ignore_patterns("data"))
        (store / "Repository/1/Ledger.doc").write_bytes(OLE_FILE)
        prepare_learner(store / "data", read_courses(store))
        cups = stack.enter_context(PrivateCups(out / "sheets"))
        width, height = (int(pixels) for pixels in arguments.display.split("x"))
        desktop = stack.enter_context(Desktop(out, 96, display=(width, height)))
        desktop.environment.update(cups.variables)
        run = Run(desktop, desktop.start(store / "tallowmere"))
        run.close_warning()
        run.choose_course(0)
        run.sign_in()
        test = PrintTest(desktop, cups, run)
        if desktop.scale == 1:
            test.run(store / "Repository" / "1")
        else:
            test.print_pages()
    return 1 if test.failures else 0


if __name__ == "__main__":
    sys.exit(main())
