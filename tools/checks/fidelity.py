#!/usr/bin/python3
"""Compares how the player and LibreOffice show the same pages.

Usage: fidelity.py FOLDER OUT [--only WORD] [--screens N] [--limit SECONDS] [--preset release]

Every .rtf file of FOLDER is shown by the player's own page view (render_page, which this builds) and by
LibreOffice (`tools/setup.sh fidelity` installs it). OUT gets a picture of both side by side, the player's at
the left, and keeps LibreOffice's conversions: a second run on the same OUT only shows the player's pages
anew. Without LibreOffice the player's column alone is filled. Prints a table, the least similar pages first.

Words: those of both are counted, whatever their order. The column gives the share that both have; what one
of them lacks is listed below the table. LibreOffice tells its words twice, and neither way tells them as they
are: its plain text has hidden words, lacks notes and changes bullets; its sheets have headers, footers and the
words in drawings, and break others at the ends of lines. So a word is missing here when both of its ways have
it more often, and extra when neither has it as often.

Similarity, 0 to 1: both pages are laid out at the same text width and cut to the text area, LibreOffice's
sheets put below one another without their margins. What differs from the colour of the paper is ink. It is
averaged over cells 12 pixels wide and 4 high, and capped, so that a dark picture weighs no more than text on
the same area. The rows of cells are then aligned in their order like two texts, any row may be passed over,
so that the ink in common becomes the largest; similarity is twice that over the ink of both. A line set a
little higher or lower costs nothing; text that is missing, broken elsewhere, indented, sized or shaded
differently does.
"""

import argparse
import os
import re
import shutil
import subprocess
import sys
import unicodedata
from collections import Counter
from dataclasses import dataclass, field
from pathlib import Path
from statistics import median

try:
    import numpy as np
except ImportError:
    sys.exit("fidelity: numpy is missing; tools/setup.sh fidelity installs it")

ROOT = Path(__file__).resolve().parents[2]
DPI = 96
SCREEN = 663               # pixels, the height of the player's page
CELL_WIDTH, CELL_HEIGHT = 12, 4
MOST_INK = 0.25            # of a cell; about that of a line of text
SLACK = 8                  # pixels kept at both sides of the text area
SHEET_GAP = 6              # pixels between two sheets of LibreOffice
BATCH = 12                 # files that one run of LibreOffice gets
WORST = 10
MOST_WORDS = 0.95
LISTED_WORDS, LONGEST_WORD = 12, 30
# Twips of a page that names none: LibreOffice's paper and margins, the player's rim at both sides.
PAPER, MARGIN, RIM = (12240, 15840), 1440, 180


@dataclass
class Page:
    source: Path
    ours: str = "yes"
    theirs: str = "yes"
    words: float | None = None
    similarity: float | None = None
    missing: Counter[str] = field(default_factory=Counter)
    extra: Counter[str] = field(default_factory=Counter)

    def both(self) -> bool:
        return self.ours == self.theirs == "yes"


@dataclass(frozen=True)
class Sheet:
    """The lengths of a page, in pixels."""

    text_left: int   # on LibreOffice's sheet
    text_top: int
    text_width: int
    text_height: int
    our_left: int
    our_width: int


def sheet_of(rtf: bytes) -> Sheet:
    def twips(usual: int, *words: str) -> int:
        """What the first of the words says that the page has."""
        found = (re.search(rb"\\%s(\d{1,5})(?!\d)" % word.encode(), rtf) for word in words)
        return next((int(match[1]) for match in found if match), usual)

    def pixels(length: int) -> int:
        return round(length * DPI / 1440)

    # The first section's own lengths come before the document's; the player takes the document's alone.
    width, height = twips(PAPER[0], "pgwsxn", "paperw"), twips(PAPER[1], "pghsxn", "paperh")
    left, right, top, bottom = (twips(MARGIN, f"marg{side}sxn", f"marg{side}") for side in "lrtb")
    text_width = max(width - left - right, 1440)
    our_left, our_right = twips(RIM, "margl"), twips(RIM, "margr")
    return Sheet(pixels(left), pixels(top), pixels(text_width), pixels(max(height - top - bottom, 1440)),
                 pixels(our_left), pixels(text_width + our_left + our_right))


def build(preset: str) -> Path:
    if not (ROOT / "build" / preset / "build.ninja").exists():
        subprocess.run(["cmake", "--preset", preset], cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", "--preset", preset, "--target", "render_page"], cwd=ROOT, check=True,
                   stdout=subprocess.DEVNULL)
    return ROOT / "build" / preset / "tools/checks/render_page"


def show_ours(program: Path, page: Page, out: Path, sheet: Sheet, height: int, limit: float) -> None:
    picture, text = out / f"{page.source.stem}.ours.png", out / f"{page.source.stem}.ours.txt"
    for old in (picture, text):
        old.unlink(missing_ok=True)
    try:
        run = subprocess.run([program, page.source, picture, text, str(sheet.our_width), str(height)],
                             capture_output=True, timeout=limit, check=False)
    except subprocess.TimeoutExpired:
        page.ours = "time"
        return
    if run.returncode != 0:
        page.ours = "no" if run.returncode == 2 else "crash"


class Office:
    """LibreOffice with a profile of its own in the folder of the conversions."""

    def __init__(self, out: Path, limit: float) -> None:
        self.folder = out / "office"
        self.folder.mkdir(exist_ok=True)
        self.limit = limit

    def made(self, source: Path, ending: str) -> Path:
        return self.folder / f"{source.stem}.{ending}"

    def convert(self, sources: list[Path]) -> None:
        for ending, target in (("pdf", "pdf"), ("txt", "txt:Text (encoded):UTF8")):
            waiting = [source for source in sources if not self.made(source, ending).exists()]
            for start in range(0, len(waiting), BATCH):
                self.run(waiting[start:start + BATCH], target)
            # One that kills LibreOffice or holds it up takes the rest of its batch along.
            for source in waiting:
                if not self.made(source, ending).exists():
                    self.run([source], target)

    def run(self, sources: list[Path], target: str) -> None:
        command = ["soffice", f"-env:UserInstallation=file://{self.folder}/profile", "--headless", "--norestore",
                   "--convert-to", target, "--outdir", self.folder, *sources]
        process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   start_new_session=True)
        try:
            process.wait(self.limit * len(sources))
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, 9)  # the launcher and the program behind it
            process.wait()


def gray(picture: Path) -> np.ndarray:
    """The picture as rows of brightness, 0 to 255."""
    raw = subprocess.run(["convert", picture, "-background", "white", "-flatten", "-depth", "8", "pgm:-"],
                         capture_output=True, check=True).stdout
    header = re.match(rb"P5\s+(\d+)\s+(\d+)\s+255\s", raw)
    assert header is not None
    return np.frombuffer(raw, np.uint8, offset=header.end()).reshape(int(header[2]), int(header[1]))


def ink_of(picture: np.ndarray) -> np.ndarray:
    """What differs from the paper, the most frequent brightness, 0 to 1."""
    paper = int(np.bincount(picture.ravel(), minlength=256).argmax())
    return np.abs(picture.astype(np.float32) - paper) / 255


def text_area(picture: np.ndarray, left: int, width: int) -> np.ndarray:
    """The columns of the text and a little beside them; paper where the picture ends before."""
    ink = ink_of(picture)
    area = np.zeros((ink.shape[0], width + 2 * SLACK), np.float32)
    first, last = max(left - SLACK, 0), min(left + width + SLACK, ink.shape[1])
    if last > first:
        area[:, first - (left - SLACK):last - (left - SLACK)] = ink[:, first:last]
    return area


def inked_rows(ink: np.ndarray) -> slice:
    """The rows from the first to the last that are not empty."""
    rows = np.flatnonzero(ink.max(axis=1, initial=0) > 0.1)
    return slice(int(rows[0]), int(rows[-1]) + 1) if rows.size else slice(0, 0)


@dataclass
class Part:
    """What is compared of one picture."""

    picture: Path
    left: int    # of the text area, pixels
    rows: slice
    ink: np.ndarray


def part_of(picture: Path, left: int, width: int, rows: slice) -> Part:
    area = text_area(gray(picture), left, width)
    shown = inked_rows(area[rows])
    start = rows.start or 0
    rows = slice(start + shown.start, start + shown.stop)
    return Part(picture, left, rows, area[rows])


def their_sheets(pdf: Path, out: Path, height: int) -> list[Path]:
    """Pictures of as many sheets as may be needed."""
    for old in out.glob(f"{glob_safe(pdf.stem)}.sheet-*.png"):
        old.unlink()
    count = height // SCREEN + 3
    subprocess.run(["pdftoppm", "-q", "-png", "-r", str(DPI), "-l", str(count), pdf, out / f"{pdf.stem}.sheet"],
                   check=True)
    return sorted(out.glob(f"{glob_safe(pdf.stem)}.sheet-*.png"))


def glob_safe(name: str) -> str:
    return re.sub(r"([\[*?])", r"[\1]", name)


def ink_below_one_another(parts: list[Part]) -> np.ndarray:
    width = parts[0].ink.shape[1]
    gap = np.zeros((SHEET_GAP, width), np.float32)
    rows = [row for part in parts for row in (part.ink, gap)]
    return np.concatenate(rows[:-1])


def cells(ink: np.ndarray, height: int) -> np.ndarray:
    ink = ink[:height]
    full = np.pad(ink, ((0, -ink.shape[0] % CELL_HEIGHT), (0, -ink.shape[1] % CELL_WIDTH)))
    blocks = full.reshape(full.shape[0] // CELL_HEIGHT, CELL_HEIGHT, full.shape[1] // CELL_WIDTH, CELL_WIDTH)
    return np.minimum(blocks.mean(axis=(1, 3)), MOST_INK)


def similarity(ours: np.ndarray, theirs: np.ndarray, height: int) -> float:
    a, b = cells(ours, height), cells(theirs, height)
    above_a, above_b = (np.concatenate([[0], np.cumsum(rows.sum(axis=1))]) for rows in (a, b))
    common = np.zeros((len(a) + 1, len(b) + 1), np.float32)
    for row in range(len(a)):
        pairs = np.minimum(a[row], b).sum(axis=1)
        best = np.maximum(common[row, 1:], common[row, :-1] + pairs)
        common[row + 1, 1:] = np.maximum.accumulate(best)
    ink = np.maximum(above_a[:, None] + above_b[None, :], 1e-6)
    share = 2 * common / ink
    # Where the bounded height cuts a page the comparison ends with whichever page ends first.
    if ours.shape[0] > height or theirs.shape[0] > height:
        return float(max(share[-1, 1:].max(initial=0), share[1:, -1].max(initial=0)))
    return float(share[-1, -1]) if above_a[-1] + above_b[-1] > 0 else 1.0


def words_of(text: Path) -> Counter[str]:
    plain = unicodedata.normalize("NFKC", text.read_text("utf-8", "replace")).replace("\u00AD", "")
    return Counter(re.findall(r"\w+", plain))


def words_of_sheets(pdf: Path) -> Counter[str]:
    text = pdf.with_suffix(".sheets.txt")
    if not text.exists():
        subprocess.run(["pdftotext", "-q", "-enc", "UTF-8", pdf, text], check=True)
    return words_of(text)


def compare_words(page: Page, ours: Path, theirs: Path) -> None:
    here, told, shown = words_of(ours), words_of(theirs), words_of_sheets(theirs.with_suffix(".pdf"))
    there = (told & shown) | (here & (told | shown))
    page.missing, page.extra = there - here, here - there
    total = here.total() + there.total()
    page.words = 2 * (here & there).total() / total if total else 1.0


def put_beside(ours: Part, theirs: list[Part], width: int, height: int, made: Path) -> None:
    """What was compared, the player's page at the left."""
    def crop(part: Part) -> list[str | Path]:
        size = f"{width + 2 * SLACK}x{max(part.rows.stop - part.rows.start, 1)}"
        return ["(", part.picture, "-crop", f"{size}{part.left - SLACK:+}{part.rows.start:+}!", "-background",
                "white", "-flatten", ")"]

    below = ["-append", "-crop", f"x{height}+0+0", "+repage", "-bordercolor", "gray40", "-border", "3"]
    sheets = [word for part in theirs for word in crop(part)]
    subprocess.run(["convert", "(", *crop(ours), *below, ")", "(", "-background", "gray80", *sheets, *below, ")",
                    "-background", "gray40", "+append", made], check=True)


def compare(page: Page, sheet: Sheet, office: Office, out: Path, height: int) -> None:
    picture = out / f"{page.source.stem}.ours.png"
    pdf, txt = office.made(page.source, "pdf"), office.made(page.source, "txt")
    if not pdf.exists() or not txt.exists():
        page.theirs = "no"
    if not page.both():
        return
    compare_words(page, picture.with_suffix(".txt"), txt)
    ours = part_of(picture, sheet.our_left, sheet.text_width, slice(0, None))
    rows = slice(sheet.text_top, sheet.text_top + sheet.text_height)
    theirs = [part_of(shot, sheet.text_left, sheet.text_width, rows)
              for shot in their_sheets(pdf, office.folder, height)]
    page.similarity = similarity(ours.ink, ink_below_one_another(theirs), height)
    put_beside(ours, theirs, sheet.text_width, height, out / f"{page.source.stem}.both.png")


def percent(share: float | None) -> str:
    # Only what is the same throughout is 100.
    return "-" if share is None else "100" if share == 1 else f"{min(share * 100, 99.9):.1f}"


def shortened(word: str) -> str:
    return word if len(word) <= LONGEST_WORD else word[:LONGEST_WORD] + "..."


def listed(words: Counter[str]) -> str:
    names = [shortened(word) if count == 1 else f"{shortened(word)} x{count}" for word, count in words.items()]
    more = f" and {len(names) - LISTED_WORDS} more" if len(names) > LISTED_WORDS else ""
    return " ".join(names[:LISTED_WORDS]) + more


def report(pages: list[Page]) -> None:
    pages.sort(key=lambda page: (page.similarity is not None, page.similarity or 0, page.source.name))
    width = max(len(page.source.stem) for page in pages)
    print(f"{'file':<{width}}  here   there  words  similarity")
    for page in pages:
        figure = "-" if page.similarity is None else f"{page.similarity:.3f}"
        print(f"{page.source.stem:<{width}}  {page.ours:<5}  {page.theirs:<5}  {percent(page.words):>5}  {figure:>10}")
    print("\nWords that are missing (-) or extra (+) here:")
    for page in sorted(pages, key=lambda page: page.words or 0):
        if page.missing or page.extra:
            print(page.source.stem)
            for sign, words in (("-", page.missing), ("+", page.extra)):
                if words:
                    print(f"  {sign} {listed(words)}")
    compared = [page for page in pages if page.similarity is not None]
    print(f"\n{len(pages)} files; {sum(page.ours == 'yes' for page in pages)} load here, "
          f"{sum(page.theirs == 'yes' for page in pages)} there; "
          f"{sum(page.words == 1 for page in pages)} of {len(compared)} have the same words, "
          f"{sum((page.words or 0) >= MOST_WORDS for page in pages)} have {MOST_WORDS:.0%} of them")
    if compared:
        print(f"median similarity {median(page.similarity or 0 for page in compared):.3f}")
        print("least similar: " + ", ".join(page.source.stem for page in compared[:WORST]))


def main() -> int:
    parser = argparse.ArgumentParser(usage=(__doc__ or "").split("\n")[2].removeprefix("Usage: "))
    parser.add_argument("folder", type=Path)
    parser.add_argument("out", type=Path)
    parser.add_argument("--only", default="")
    parser.add_argument("--screens", type=int, default=3)
    parser.add_argument("--limit", type=float, default=30.0)
    parser.add_argument("--preset", default="release")
    options = parser.parse_args()
    sources = sorted(path.resolve() for path in options.folder.glob("*.rtf") if options.only in path.name)
    if not sources:
        parser.error(f"no .rtf file in {options.folder}")
    out = options.out.resolve()
    out.mkdir(parents=True, exist_ok=True)
    program = build(options.preset)
    height = options.screens * SCREEN
    missing = [name for name in ("soffice", "pdftoppm", "pdftotext", "convert") if shutil.which(name) is None]
    if missing:
        print(f"not compared: {', '.join(missing)} missing; tools/setup.sh fidelity installs what is needed")
    office = Office(out, options.limit)
    if not missing:
        office.convert(sources)
    pages = [Page(source) for source in sources]
    for page in pages:
        sheet = sheet_of(page.source.read_bytes())
        show_ours(program, page, out, sheet, height, options.limit)
        if missing:
            page.theirs = "-"
        else:
            compare(page, sheet, office, out, height)
    report(pages)
    return 1 if any(page.ours in ("crash", "time") for page in pages) else 0


if __name__ == "__main__":
    sys.exit(main())
