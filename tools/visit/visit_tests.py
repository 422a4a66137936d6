"""The tests of a scripted visit: a practice test, and a scored one with its review, twice.

Every other test is left by its exit button. What the progress file says after a scored run is printed beside
what it must say.
"""

from __future__ import annotations

import csv
import time
from dataclasses import dataclass
from datetime import date
from pathlib import Path
from typing import TYPE_CHECKING

from screen_places import COURSE_SCREEN
from store_files import CODE_PAGE, LINE_FIELDS
from visit_desktop import Desktop, Window, wait_for
from visit_windows import check_over_the_course

if TYPE_CHECKING:
    from visit import Visit

PRACTICE, SCORED = "rt0101", "rt0102"  # the modules whose tests are taken
MISTAKES = 2
# The review's window, twips and pixels within it at 96 dpi.
REVIEW_SIZE = (3900, 2700)
SECOND_ITEM, EXIT_REVIEW, TITLE_BAR = (60, 33), (207, 155), (80, -10)
DRAG = (-380, -260)  # pixels
FIELDS = ["module", "viewed", "attempts", "first score", "first pattern", "first date", "highest",
          "highest pattern", "highest date", "last"]
SETTLE = 0.35  # seconds until a step is painted


@dataclass
class Question:
    """Its answers' flags, and the review link."""

    flags: list[bool]
    link: str


def read_test(store: Path, module: str, page: str) -> tuple[str, list[Question]]:
    """The type of a test and its questions."""
    text = (store / module / f"{module}_{page[:-4]}TST").read_text(encoding=CODE_PAGE)
    fields = [field for row in csv.reader(text.splitlines()) for field in row]
    groups = [fields[at:at + 6] for at in range(1, len(fields), 6)]
    return fields[0], [Question([flag == "1" for flag in group[2].split(">>")], group[5]) for group in groups]


def big_windows(desktop: Desktop) -> int:
    return sum(size == COURSE_SCREEN for _, size in desktop.visible())


def await_test(desktop: Desktop) -> None:
    """The test lies over the course screen and is as large."""
    wait_for(lambda: big_windows(desktop) == 2, "the test")
    time.sleep(SETTLE)


def await_course(desktop: Desktop) -> None:
    wait_for(lambda: big_windows(desktop) == 1, "the course screen behind the test")
    time.sleep(SETTLE)


def leave_test(desktop: Desktop, picture: str | None = None) -> None:
    """By the exit question, from any state of the test."""
    await_test(desktop)
    desktop.key("Escape")
    wait_for(lambda: len(desktop.visible()) > 2, "the exit question")
    time.sleep(SETTLE)
    if picture is not None:
        desktop.picture(picture)
    desktop.key("alt+y")
    await_course(desktop)


class TestVisit:
    """The tests that a visit meets; `visit` is the visit itself."""

    def __init__(self, visit: Visit) -> None:
        self.visit = visit
        self.desktop = visit.desktop
        self.scale = visit.desktop.dpi / 96
        self.review_size = tuple(round(twips * visit.desktop.dpi / 1440) for twips in REVIEW_SIZE)

    def meet(self, module: str, page: str) -> None:
        """Does what is to be done at a test page; behind it the page after the test is on the screen."""
        await_test(self.desktop)
        kind, questions = read_test(self.visit.store, module, page)
        if module == PRACTICE and kind == "2":
            self.practise(questions)
        elif module == SCORED and kind != "2":
            self.take_twice(module, questions)
        else:
            leave_test(self.desktop)

    # Answering

    def press(self, *keys: str) -> None:
        for key in keys:
            self.desktop.key(key)
            time.sleep(0.05)
        time.sleep(SETTLE)

    def tick(self, question: Question) -> None:
        """All correct answers; the first answer has the focus."""
        for flag in question.flags:
            if flag:
                self.desktop.key("space")
                if sum(question.flags) == 1:
                    break  # the tick would follow the arrow
            self.desktop.key("Down")
        time.sleep(SETTLE)

    def answer(self, question: Question, right: bool, picture: str | None) -> None:
        if right:
            self.tick(question)
        if picture is not None:
            self.desktop.picture(f"{picture}-a-ticked")
        self.press("Return")
        if picture is not None:
            self.desktop.picture(f"{picture}-b-judged")

    def practise(self, questions: list[Question]) -> None:
        for number, question in enumerate(questions, start=1):
            self.answer(question, True, f"t0-practice-{number}")
            self.press("Return")  # Next, and behind the last question Close
        await_course(self.desktop)
        self.visit.check("a practice test records nothing", self.fields(PRACTICE)[2:] == [""] * 8)

    # The scored test

    def fields(self, module: str) -> list[str]:
        rows = csv.reader(self.visit.record.read_text(encoding=CODE_PAGE).splitlines())
        return next((row for row in rows if row[0] == module and len(row) == LINE_FIELDS), [])

    def check_fields(self, what: str, module: str, must_be: list[str]) -> None:
        wait_for(lambda: self.fields(module)[2] == must_be[2], "the record of the test")
        found = self.fields(module)
        for name, value, wanted in zip(FIELDS, found, must_be):
            print(f"      {name:16}{value:44}{wanted}")
        self.visit.check(f"{what}: the ten fields are as they must be", found == must_be)

    def take_twice(self, module: str, questions: list[Question]) -> None:
        count = len(questions)
        viewed, today = self.fields(module)[1], date.today().isoformat()
        pattern = "0" * MISTAKES + "1" * (count - MISTAKES)
        score = str(round((count - MISTAKES) / count * 100))
        self.run(questions, MISTAKES, "t1")
        first = [score, pattern, today]
        self.check_fields("with two mistakes", module, [module, viewed, "1", *first, *first, score])
        self.desktop.picture("t1-result")
        self.review(questions)
        self.press("Return")
        await_course(self.desktop)
        # Going back steps over the test page, going forward meets it again.
        self.press("Left", "Right")
        await_test(self.desktop)
        self.run(questions, 0, "t2")
        best = ["100", "1" * count, today]
        self.check_fields("with all answers right", module, [module, viewed, "2", *first, *best, "100"])
        self.desktop.picture("t2-result")
        self.press("Return")
        await_course(self.desktop)

    def run(self, questions: list[Question], mistakes: int, picture: str) -> None:
        """From the first question to the result page; the first answers are the wrong ones."""
        self.desktop.picture(f"{picture}-question-1")
        for number, question in enumerate(questions, start=1):
            self.answer(question, number > mistakes, f"{picture}-question-{number}")
            self.press("Return")

    # The review

    def window(self) -> Window:
        window = self.desktop.window(*self.review_size)
        if window is None:
            raise SystemExit("visit: the review does not show")
        return window

    def click(self, place: tuple[int, int]) -> None:
        self.window().click(*(round(pixels * self.scale) for pixels in place))
        time.sleep(SETTLE)

    def await_review(self) -> None:
        wait_for(lambda: self.desktop.window(*self.review_size) is not None, "the review")
        time.sleep(0.6)  # it slides into its corner

    def check_open(self, what: str, question: Question) -> None:
        module, page = question.link[:6], question.link[7:]
        self.visit.check(f"{what} opens {module} {page}", self.visit.resume_line() == f'"{module}","{page}"')

    def review(self, questions: list[Question]) -> None:
        """Both items from the result page, the second from the window too; the window dragged and closed."""
        self.press("Tab", "Tab", "Return")
        self.await_review()
        self.check_open("the first item", questions[0])
        self.desktop.picture("t1-review-1-corner")
        self.click(SECOND_ITEM)
        self.check_open("the second item of the window", questions[1])
        self.desktop.picture("t1-review-2-second-item")
        self.drag()
        self.click(EXIT_REVIEW)
        await_test(self.desktop)
        self.desktop.picture("t1-review-4-result-again")
        self.press("Tab", "Tab", "Tab", "Return")
        self.await_review()
        self.check_open("the second item", questions[1])
        self.window().click(*TITLE_BAR)  # the keys are the course screen's until then
        time.sleep(SETTLE)
        self.press("alt+F4")
        await_test(self.desktop)
        self.desktop.picture("t1-review-5-closed")

    def drag(self) -> None:
        before = self.window()
        before.point(*TITLE_BAR)
        self.desktop.run("xdotool", "mousedown", "1")
        for part in range(1, 11):
            before.point(TITLE_BAR[0] + DRAG[0] * part // 10, TITLE_BAR[1] + DRAG[1] * part // 10)
        self.desktop.run("xdotool", "mouseup", "1")
        time.sleep(SETTLE)
        dragged = self.window()
        check_over_the_course(self.visit, self.review_size, "the review")
        self.desktop.picture("t1-review-3-dragged")
        dragged.click(*TITLE_BAR)
        time.sleep(SETTLE)
        after = self.window()
        self.visit.check("the review can be dragged", (dragged.x, dragged.y) != (before.x, before.y))
        self.visit.check("it keeps its place", (after.x, after.y) == (dragged.x, dragged.y))
