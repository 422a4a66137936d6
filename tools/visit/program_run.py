"""The road through the real program that every script takes: course choice, sign-in, course screen."""

import subprocess
import time
from collections.abc import Callable
from dataclasses import dataclass

from screen_places import COURSE_SCREEN, DIALOG, LEFT_BUTTON, PROGRESS
from visit_desktop import DESIGN, PATIENCE, Desktop, Window

# The close box of a window; unlike its Close button it starts no test again.
CLOSE_WINDOW = ("alt+F4",)
CLICK_AGAIN = 0.25  # seconds; a button takes no click before its form's timer has enabled it


class Gone(Exception):
    """The program has ended."""


class Stuck(Exception):
    """The program did not do what was waited for."""


@dataclass
class Run:
    """One run of the program. Every step ends at once with `Gone` when the program does."""

    desktop: Desktop
    process: subprocess.Popen[bytes]

    def until(self, condition: Callable[[], bool], what: str) -> None:
        end = time.monotonic() + PATIENCE
        while not condition():
            if self.process.poll() is not None:
                raise Gone
            if time.monotonic() > end:
                sizes = [size for _, size in self.desktop.visible()]
                raise Stuck(f"{what} did not come; windows: {sizes}")
            time.sleep(0.01)

    def await_dialog(self, what: str, size: tuple[int, int] = DIALOG) -> Window:
        found: list[Window] = []

        def look() -> bool:
            window = self.desktop.window(*size)
            found.extend([window] if window is not None else [])
            return bool(found)

        self.until(look, what)
        return found[0]

    def click_away(self, dialog: Window, what: str) -> None:
        """Clicks the left button until the dialog has gone."""
        clicked = 0.0

        def gone() -> bool:
            nonlocal clicked
            if self.desktop.window(*DIALOG) is None:
                return True
            if time.monotonic() > clicked + CLICK_AGAIN:
                dialog.click(*LEFT_BUTTON)
                clicked = time.monotonic()
            return False

        self.until(gone, what)

    def close_warning(self) -> None:
        """Goes on on a display of another size than the design's."""
        if self.desktop.display != DESIGN:
            self.until(lambda: bool(self.desktop.visible()), "the warning of the display's size")
            time.sleep(0.5)  # it takes keys
            self.desktop.key("alt+y")

    def choose_course(self, index: int) -> None:
        dialog = self.await_dialog("the course choice")
        self.desktop.key(*["Down"] * (index + 1))
        self.click_away(dialog, "the splash")

    def check_progress(self) -> Window:
        """Signs in as the only learner; the check-progress screen stands then."""
        self.click_away(self.await_dialog("the welcome"), "check progress")
        return self.await_dialog("check progress", PROGRESS)

    def sign_in(self) -> None:
        """As the only learner, up to the course screen."""
        self.check_progress()
        self.leave_progress()

    def leave_progress(self) -> None:
        closed = 0.0

        def gone() -> bool:
            nonlocal closed
            if self.desktop.window(*PROGRESS) is None:
                return True
            if time.monotonic() > closed + CLICK_AGAIN:
                self.desktop.key(*CLOSE_WINDOW)
                closed = time.monotonic()
            return False

        self.until(gone, "the course screen")

    def message(self) -> bool:
        """Whether anything stands before the course screen."""
        return any(size != COURSE_SCREEN for _, size in self.desktop.visible())

    def await_message(self) -> None:
        self.until(self.message, "a message")
        time.sleep(0.3)  # its picture is painted

    def close_message(self) -> None:
        self.desktop.key("Return")
        self.until(lambda: not self.message(), "the end of the message")
        time.sleep(0.2)  # the keys go to the course screen again

    def leave(self) -> int:
        """Leaves from the course screen; gives what the program ends with."""
        self.desktop.key("Escape")
        self.await_message()
        self.desktop.key("alt+y")
        return self.process.wait(PATIENCE)
