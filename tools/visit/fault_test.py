#!/usr/bin/env python3
"""What a learner sees when the place of the records fails, and that no record is harmed by it.

Usage: fault_test.py STORE OUT

Runs the real program under Xvfb on a copy of the store. For each fault: a learner signs in, the fault comes,
the learner turns pages. The program has to tell it in a message and stay up, the files have to stay as they
were, and once the fault is lifted turning pages has to go on and be recorded. OUT gets the pictures: whether
the messages say what is wrong is for a person to see there. Faults that need mounts need root; without it they
are left out, and said to be. Ends with 1 when something was not as it must be.
"""

import os
import shutil
import subprocess
import sys
import tempfile
import time
from collections.abc import Callable
from dataclasses import dataclass
from pathlib import Path

from program_run import Gone, Run, Stuck
from screen_places import LEFT_BUTTON
from store_files import Damage, check_data_folder, check_data_kept, check_progress, prepare_learner, read_courses
from visit_desktop import Desktop

DISK_SIZE = "256k"
NOBODY = 65534
DATA_ROOT_FILE = """Windows Registry Editor Version 5.00

[HKEY_LOCAL_MACHINE\\SOFTWARE\\TLMS\\Tallowmere Manager 1.0]
"DataRoot"="{}"
"""


class NotPossible(Exception):
    """The fault cannot be made here."""


def system(*command: str) -> None:
    try:
        done = subprocess.run(command, capture_output=True, text=True, check=False)
    except FileNotFoundError as error:
        raise NotPossible(f"there is no {command[0]}") from error
    if done.returncode != 0:
        raise NotPossible(f"{' '.join(command)}: {done.stderr.strip()}")


class Place:
    """A folder with the learner data in it, on a small disk of its own where one is wanted."""

    def __init__(self, folder: Path, own_disk: bool) -> None:
        self.folder = folder
        self.data = folder / "data"
        self.record = Path()
        self.mounts = 0
        self.frozen = False
        folder.mkdir()
        if own_disk:
            self.mount("-t", "tmpfs", "-o", f"size={DISK_SIZE},mode=755", "tmpfs")

    def mount(self, *options: str) -> None:
        system("mount", *options, str(self.folder))
        self.mounts += 1

    def unmount(self) -> None:
        self.mounts -= 1
        system("umount", "--lazy", str(self.folder))

    def remove(self) -> None:
        if self.frozen:
            self.thaw()
        while self.mounts > 0:
            self.unmount()
        shutil.rmtree(self.folder)

    # The faults

    def fill(self) -> None:
        with (self.folder / "filler").open("wb", buffering=0) as filler:
            try:
                while True:
                    filler.write(bytes(4096))
            except OSError:
                pass

    def empty(self) -> None:
        (self.folder / "filler").unlink()

    def lock(self) -> None:
        # Over the disk itself: that one the program holds open by its lock file.
        self.mount("--bind", str(self.folder))
        system("mount", "-o", "remount,ro,bind", str(self.folder))

    def hide(self) -> None:
        self.data.rename(self.folder / "elsewhere")

    def show(self) -> None:
        (self.folder / "elsewhere").rename(self.data)

    def freeze(self) -> None:
        system("chattr", "+i", str(self.record))
        self.frozen = True

    def thaw(self) -> None:
        system("chattr", "-i", str(self.record))
        self.frozen = False

    def give_away(self) -> None:
        """Root holds the file; the program runs as somebody else."""
        os.chown(self.record, 0, 0)
        self.record.chmod(0o644)

    def take_back(self) -> None:
        os.chown(self.record, NOBODY, NOBODY)


@dataclass(frozen=True)
class Fault:
    name: str
    make: Callable[[Place], None]
    lift: Callable[[Place], None]
    needs_root: bool = True
    own_disk: bool = False
    user: int | None = None
    at_sign_in: bool = False  # it is there when the program starts


FAULTS = [
    Fault("disk-full", Place.fill, Place.empty, own_disk=True),
    Fault("read-only", Place.lock, Place.unmount, own_disk=True),
    Fault("read-only-from-the-start", Place.lock, Place.unmount, own_disk=True, at_sign_in=True),
    Fault("vanished", Place.hide, Place.show, needs_root=False),
    Fault("frozen-file", Place.freeze, Place.thaw),
    Fault("file-of-another-user", Place.give_away, Place.take_back, user=NOBODY),
]


class FaultTest:
    def __init__(self, desktop: Desktop, store: Path) -> None:
        self.desktop, self.store = desktop, store
        self.courses = read_courses(store)
        self.course = self.courses[sorted(self.courses, key=str.casefold)[0]]
        self.failures = 0

    def check(self, what: str, holds: bool) -> None:
        print(("ok    " if holds else "FAILED ") + what, flush=True)
        self.failures += not holds

    def prepare(self, fault: Fault, folder: Path) -> Place:
        place = Place(folder, fault.own_disk)
        place.record = prepare_learner(place.data, self.courses) / self.course.name
        if fault.user is not None:
            for path in [place.data, *place.data.rglob("*")]:
                os.chown(path, fault.user, fault.user)
        text = DATA_ROOT_FILE.format(place.data)
        (self.store / "registry/zz-data-root.reg").write_text(text, encoding="utf-8")
        return place

    def resume_page(self, place: Place) -> str:
        return check_progress(place.record, self.course, place.record.read_bytes()).resume[1]

    def play(self, fault: Fault, folder: Path) -> None:
        print(f"-- {fault.name}")
        place = self.prepare(fault, folder)
        run: Run | None = None
        try:
            if fault.at_sign_in:
                fault.make(place)
            run = Run(self.desktop, self.desktop.start(self.store / "tallowmere", fault.user))
            if fault.at_sign_in:
                self.start_under_the_fault(run, fault)
            run.choose_course(0)
            if fault.at_sign_in:
                self.sign_in_under_the_fault(run, fault, place)
            else:
                self.turn_under_the_fault(run, fault, place)
        finally:
            if run is not None and run.process.poll() is None:
                self.desktop.kill(run.process)
            place.remove()

    def start_under_the_fault(self, run: Run, fault: Fault) -> None:
        run.await_message()
        self.desktop.picture(f"{fault.name}-0-start")
        self.check("the start tells it", run.process.poll() is None)
        self.desktop.key("Return")

    def sign_in_under_the_fault(self, run: Run, fault: Fault, place: Place) -> None:
        before = place.record.read_bytes()
        welcome = run.await_dialog("the welcome")
        welcome.click(*LEFT_BUTTON)
        run.until(lambda: len(self.desktop.visible()) > 2, "a message")
        time.sleep(0.3)
        self.desktop.picture(f"{fault.name}-1-message")
        self.check("the sign-in tells it", run.process.poll() is None)
        self.check("the record is as it was", place.record.read_bytes() == before)
        self.desktop.key("Return")
        run.until(lambda: len(self.desktop.visible()) == 2, "the end of the message")
        fault.lift(place)
        run.sign_in()
        self.go_on(run, fault, place, "0003.txm")

    def turn_under_the_fault(self, run: Run, fault: Fault, place: Place) -> None:
        run.sign_in()
        self.desktop.picture(f"{fault.name}-0-before")
        content = {path: path.read_bytes() for path in (place.record, place.record.parent / "User")}
        whole = check_data_folder(place.data, self.courses)
        fault.make(place)
        self.tell(run, f"{fault.name}-1-message")
        # Turning back passes over every error, so it says nothing.
        self.desktop.key("Left")
        time.sleep(0.5)
        self.check("turning back does not bring the program down", run.process.poll() is None)
        self.tell(run, f"{fault.name}-2-message-again")
        fault.lift(place)
        self.check("the files are as they were", all(path.read_bytes() == old for path, old in content.items()))
        check_data_kept(whole, check_data_folder(place.data, self.courses))
        self.go_on(run, fault, place, "0004.txm")
        check_data_kept(whole, check_data_folder(place.data, self.courses))

    def tell(self, run: Run, picture: str) -> None:
        self.desktop.key("Right")
        run.await_message()
        self.desktop.picture(picture)
        run.close_message()
        self.check("turning on is told and the program stays up", run.process.poll() is None)

    def go_on(self, run: Run, fault: Fault, place: Place, page: str) -> None:
        self.desktop.key("Right")
        run.until(lambda: self.resume_page(place) == page, f"the record of page {page}")
        time.sleep(0.3)
        self.desktop.picture(f"{fault.name}-3-lifted")
        self.check("turning goes on and is recorded once it is lifted", not run.message())
        left = check_data_folder(place.data, self.courses).left_over
        self.check("no file of a failed save is left", left == [])
        self.check("the program ends well", run.leave() == 0)

    def run(self, folder: Path) -> None:
        for fault in FAULTS:
            if fault.needs_root and os.geteuid() != 0:
                print(f"-- {fault.name}: left out, it needs root")
                continue
            try:
                self.play(fault, folder / fault.name)
            except NotPossible as reason:
                print(f"      left out, it cannot be made here: {reason}")
            except (Damage, Stuck) as problem:
                self.check(str(problem), False)
            except Gone:
                self.check("the program stays up", False)


def main() -> int:
    store, out = Path(sys.argv[1]), Path(sys.argv[2])
    shutil.rmtree(out, ignore_errors=True)
    out.mkdir(parents=True)
    with tempfile.TemporaryDirectory(prefix="faults-") as name:
        folder = Path(name)
        folder.chmod(0o755)  # for the program of another user
        shutil.copytree(store, folder / "store", ignore=shutil.ignore_patterns("data"))
        with Desktop(out, 96) as desktop:
            test = FaultTest(desktop, folder / "store")
            test.run(folder)
    print(f"The pictures are in {out}/")
    return 1 if test.failures else 0


if __name__ == "__main__":
    sys.exit(main())
