"""A desktop of its own for scripts that drive the program: X server, window manager, keys, clicks, pictures."""

import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
from collections.abc import Callable, Sequence
from pathlib import Path

# A window manager is found by its name; those of the larger desktops want a session bus of their own.
WINDOW_MANAGERS = {
    "openbox": ["openbox"],
    "xfwm4": ["dbus-run-session", "--", "xfwm4"],
    "metacity": ["dbus-run-session", "--", "metacity"],
    "mutter": ["dbus-run-session", "--", "mutter", "--x11"],
    "kwin": ["dbus-run-session", "--", "kwin_x11"],
}
# The panels of a desktop.
DOCKS = {"tint2": ["tint2"], "xfce4-panel": ["dbus-run-session", "--", "xfce4-panel", "--disable-wm-check"]}
DESIGN = (1024, 768)  # pixels of the display that the screens are designed for
PATIENCE = 20.0  # seconds until something that was waited for counts as not coming
STILL = 0.4  # seconds without a change


class Desktop:
    """Starts the X server and window manager; use as a context manager.

    The program is started behind the words of `wrapper`, the command that is to watch it. On a display of
    another size than the design's the program fits itself to it: sizes and places are the design's all the same.
    """

    def __init__(self, pictures: Path, dpi: int, wrapper: Sequence[str] = (),
                 window_manager: str = "openbox", display: tuple[int, int] = DESIGN) -> None:
        self.display = display
        self.scale = min(display[0] / DESIGN[0], display[1] / DESIGN[1])
        self.pictures = pictures
        self.dpi = dpi
        self.wrapper = wrapper
        self.window_manager = WINDOW_MANAGERS[window_manager]
        self.numbers: dict[str, int] = {}
        self.processes: list[subprocess.Popen[bytes]] = []
        self.groups: list[subprocess.Popen[bytes]] = []
        self.environment = {name: value for name, value in os.environ.items() if name != "WAYLAND_DISPLAY"}
        self.runtime = tempfile.mkdtemp(prefix="visit-")

    def __enter__(self) -> "Desktop":
        receive, send = os.pipe()
        self.processes.append(subprocess.Popen(
            ["Xvfb", "-displayfd", str(send), "-screen", "0", f"{self.display[0]}x{self.display[1]}x24", "-dpi", str(self.dpi),
             "-nolisten", "tcp"],
            pass_fds=[send], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
        os.close(send)
        with os.fdopen(receive) as pipe:
            number = pipe.readline().strip()
        # What the program keeps of its dialogs must not go among the settings of whoever runs this.
        self.environment.update(DISPLAY=f":{number}", XDG_RUNTIME_DIR=self.runtime, XDG_CONFIG_HOME=self.runtime)
        self.groups.append(self.start_group(self.window_manager))
        try:
            wait_for(lambda: "window id" in self.ask("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"),
                     "the window manager")
        except SystemExit:
            self.__exit__()
            raise
        subprocess.run(["xrdb", "-nocpp", "-merge", "-"], env=self.environment, check=True,
                       input=f"Xft.dpi: {self.dpi}\n".encode())
        self.run("xsetroot", "-solid", "#5A5A78")
        return self

    def __exit__(self, *_: object) -> None:
        for group in reversed(self.groups):
            os.killpg(group.pid, signal.SIGTERM)
            group.wait()
        for process in reversed(self.processes):
            process.terminate()
            process.wait()
        shutil.rmtree(self.runtime, ignore_errors=True)

    def start_dock(self, name: str = "tint2") -> None:
        """A desktop's panel, where it is installed."""
        if shutil.which(name):
            self.groups.append(self.start_group(DOCKS[name]))

    def start_group(self, command: Sequence[str]) -> subprocess.Popen[bytes]:
        """In a group of its own, to end with the bus that it may have; no screen reader reads its frames."""
        return subprocess.Popen(command, env={**self.environment, "NO_AT_BRIDGE": "1", "XFCE_PANEL_MIGRATE_DEFAULT": "1"},
                                start_new_session=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def start(self, program: Path, user: int | None = None) -> subprocess.Popen[bytes]:
        """As another user only root can start a program."""
        if user is not None:
            os.chown(self.runtime, user, user)
        process = subprocess.Popen([*self.wrapper, program], env=self.environment, user=user, group=user,
                                   extra_groups=None if user is None else [])
        self.processes.append(process)
        return process

    def kill(self, process: subprocess.Popen[bytes]) -> None:
        """Ends a program that was started here, without asking it."""
        process.kill()
        process.wait()
        self.processes.remove(process)

    def run(self, *command: str) -> None:
        subprocess.run(command, env=self.environment, check=False, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)

    def ask(self, *command: str) -> str:
        return subprocess.run(command, env=self.environment, check=False, capture_output=True,
                              text=True).stdout

    def key(self, *keys: str) -> None:
        self.run("xdotool", "key", *keys)

    def type(self, text: str) -> None:
        self.run("xdotool", "type", "--delay", "40", text)

    def picture(self, name: str) -> Path:
        """Takes a picture of the screen. Names are numbered in their order; one used again is overwritten."""
        number = self.numbers.setdefault(name, len(self.numbers) + 1)
        path = self.pictures / f"{number:03}-{name}.png"
        self.run("import", "-window", "root", str(path))
        return path

    def still_picture(self, name: str) -> Path:
        """The same once the screen stands still: what was covered is painted again behind the window that goes."""
        seen = [""]

        def stands() -> bool:
            seen.append(self.ask("identify", "-format", "%#", str(self.picture(name))))
            time.sleep(STILL)
            return seen[-1] == seen[-2]

        wait_for(stands, "a screen that stands still")
        return self.picture(name)

    def visible(self) -> list[tuple[str, tuple[int, int]]]:
        """Number and size of every visible window of the program; what fills the display has the design's size."""
        told = self.ask("xdotool", "search", "--onlyvisible", "--class", "tallowmere", "getwindowgeometry", "%@")
        found = re.findall(r"Window (\d+)\s+Position: .*\s+Geometry: (\d+)x(\d+)", told)
        return [(number, self.designed((int(width), int(height)))) for number, width, height in found]

    def designed(self, size: tuple[int, int]) -> tuple[int, int]:
        if size == self.display:
            return DESIGN
        return round(size[0] / self.scale), round(size[1] / self.scale)

    def stacked(self) -> list[tuple[int, int]]:
        """The sizes of the program's visible windows, the lowest first."""
        sizes = dict(self.visible())
        told = self.ask("xprop", "-root", "_NET_CLIENT_LIST_STACKING")
        numbers = [str(int(number, 16)) for number in re.findall(r"0x[0-9a-f]+", told)]
        return [sizes[number] for number in numbers if number in sizes]

    def window(self, width: int, height: int) -> "Window | None":
        """The visible window of the program that has that size, but for the rounding of a scaled one."""
        leeway = 0 if self.scale == 1 else max(1, round(1 / self.scale))
        for number, size in self.visible():
            if abs(size[0] - width) <= leeway and abs(size[1] - height) <= leeway:
                return self.place(number)
        return None

    def place(self, number: str) -> "Window | None":
        facts = dict(line.strip().split(":", 1) for line in
                     self.ask("xwininfo", "-id", number).splitlines() if ":" in line)
        if "Absolute upper-left X" not in facts:
            return None  # it has gone meanwhile
        x, y = int(facts["Absolute upper-left X"]), int(facts["Absolute upper-left Y"])
        if (int(facts["Width"]), int(facts["Height"])) == self.display:
            return self.course()
        return Window(self, x, y)

    def course(self) -> "Window":
        """The design's area of a form that fills the display, where the program's rounding may move it a little."""
        return Window(self, *(round((whole - part * self.scale) / 2) for whole, part in zip(self.display, DESIGN)))

    def await_window(self, width: int, height: int, what: str) -> "Window":
        found: list[Window] = []

        def look() -> bool:
            window = self.window(width, height)
            if window is not None:
                found.append(window)
            return window is not None

        wait_for(look, what)
        time.sleep(0.3)  # the first picture is painted
        return found[-1]


class Window:
    """A window found on the desktop; places are the design's pixels within it."""

    def __init__(self, desktop: Desktop, x: int, y: int) -> None:
        self.desktop, self.x, self.y = desktop, x, y

    def point(self, x: int, y: int) -> None:
        place = self.x + x * self.desktop.scale, self.y + y * self.desktop.scale
        self.desktop.run("xdotool", "mousemove", *(str(round(part)) for part in place))

    def click(self, x: int, y: int) -> None:
        self.point(x, y)
        self.desktop.run("xdotool", "click", "1")


def wait_for(condition: Callable[[], bool], what: str) -> None:
    end = time.monotonic() + PATIENCE
    while not condition():
        if time.monotonic() > end:
            raise SystemExit(f"visit: {what} did not come")
        time.sleep(0.05)


def differing_pixels(one: Path, other: Path, area: str) -> int:
    """How many pixels of an area ("WxH+X+Y") differ between two pictures."""
    result = subprocess.run(["compare", "-metric", "AE", "-extract", area, str(one), str(other), "null:"],
                            capture_output=True, text=True, check=False)
    return int(float(result.stderr.split()[0]))
