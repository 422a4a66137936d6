#!/usr/bin/env python3
"""Kills the real program hundreds of times and looks whether a learner's record is still whole.

Usage: kill_test.py STORE [--kills N] [--seed S] [--out FOLDER]

Works on a copy of the store with a learner of its own, under Xvfb. Each time it starts the program, signs in
and turns pages as fast as it can, kills the program at a random moment with SIGKILL, checks every file of the
data folder and goes on from what it finds. While pages turn, the progress file is read all the time: at no
moment may it be anything but whole. Ends with 1 at the first fault, says how to have it again, and leaves the
data folder and a picture in FOLDER.
"""

import argparse
import os
import random
import shutil
import subprocess
import sys
import tempfile
import threading
import time
from collections import Counter
from pathlib import Path

from program_run import Gone, Run, Stuck
from store_files import (PASSING, Damage, LearnerData, Progress, check_data_folder, check_data_kept,
                         check_nothing_lost, check_progress, prepare_learner, read_courses)
from visit_desktop import PATIENCE, Desktop

# The moments of a kill, with their shares in percent.
MOMENTS = {"start": 14, "sign-in": 18, "first visit": 10, "turning": 32, "after a key": 14,
           "in a save": 12}
# How long after the beginning of its moment a kill comes at most, seconds.
START_TIME, SPLASH_TIME, SIGN_IN_TIME, TURNING_TIME, KEY_TIME = 0.35, 1.5, 0.15, 0.6, 0.04
PROGRESS_EVERY = 50  # kills
TEST_KEYS = 20  # two for each question of a test and one for its result, and a few more


def killed_after(process: subprocess.Popen[bytes], seconds: float) -> threading.Timer:
    timer = threading.Timer(seconds, process.kill)
    timer.start()
    return timer


class KillTest:
    def __init__(self, desktop: Desktop, store: Path, seed: int) -> None:
        self.desktop, self.store = desktop, store
        self.seed = seed
        self.courses = read_courses(store)
        self.names = sorted(self.courses, key=str.casefold)
        self.data_folder = store / "data"
        self.learner = prepare_learner(self.data_folder, self.courses)
        self.moments: Counter[str] = Counter()
        self.reads = self.turns = 0
        self.left_over: set[tuple[int, int]] = set()
        self.most_left_over = 0
        self.moment = ""
        self.data = check_data_folder(self.data_folder, self.courses)

    # One kill

    def kill_once(self, number: int) -> None:
        # Every kill has its own numbers: how far the one before came does not change them.
        self.random = random.Random(f"{self.seed}/{number}")
        self.moment = self.random.choices(list(MOMENTS), weights=list(MOMENTS.values()))[0]
        self.moments[self.moment] += 1
        aside = self.set_aside() if self.moment == "first visit" else None
        run = Run(self.desktop, self.desktop.start(self.store / "tallowmere"))
        try:
            self.bring_to_its_end(run)
        finally:
            self.desktop.kill(run.process)
        self.check_files()
        if aside is not None:
            self.bring_back(*aside)

    def bring_to_its_end(self, run: Run) -> None:
        timers: list[threading.Timer] = []
        try:
            self.go_to_the_moment(run, timers)
        except Gone:
            pass
        except Stuck:
            self.desktop.pictures.mkdir(parents=True, exist_ok=True)
            self.desktop.picture("stuck")
            raise
        finally:
            for timer in timers:
                timer.cancel()
        if run.process.wait() != -9:
            raise Damage(f"the program ended by itself with {run.process.returncode}")

    def go_to_the_moment(self, run: Run, timers: list[threading.Timer]) -> None:
        """Leaves with `Gone` when the kill has come."""

        def kill_within(seconds: float) -> None:
            timers.append(killed_after(run.process, self.random.uniform(0, seconds)))

        course = self.names[0] if self.moment == "first visit" else self.random.choice(self.names)
        if self.moment == "start":
            kill_within(START_TIME)
        run.choose_course(self.names.index(course))
        # Half of the kills at the sign-in come anywhere behind the course choice, half at its writing.
        early = self.moment == "sign-in" and self.random.random() < 0.5
        if early:
            kill_within(SPLASH_TIME)
        run.await_dialog("the welcome")
        if self.moment in ("sign-in", "first visit") and not early:
            kill_within(SIGN_IN_TIME)
        run.sign_in()
        if self.moment == "turning":
            kill_within(TURNING_TIME)
        self.turn_pages(run, self.learner / course)

    def set_aside(self) -> tuple[Path, bytes]:
        """Takes the record of the first course away, so that the program makes it anew."""
        path = self.learner / self.names[0]
        content = path.read_bytes()
        path.unlink()
        del self.data.progress[path]
        return path, content

    def bring_back(self, path: Path, content: bytes) -> None:
        path.write_bytes(content)
        self.data = check_data_folder(self.data_folder, self.courses)

    # Turning pages

    def keys(self) -> list[str]:
        """To and fro, on the whole forward, until the kill.

        A test that comes up takes no notice of the arrows; Enter walks through it to its result and out of it.
        """
        keys: list[str] = []
        while len(keys) < 400:
            keys += ["Right"] * self.random.randint(2, 30) + ["Return"] * TEST_KEYS
            keys += ["Left"] * self.random.randint(1, 20)
        return keys

    def turn_pages(self, run: Run, path: Path) -> None:
        if self.moment == "after a key":
            for _ in range(self.random.randint(0, 3)):
                self.desktop.run("xdotool", "key", "--delay", "0", "Right")
                time.sleep(0.03)
            self.desktop.run("xdotool", "key", "--delay", "0", self.random.choice(["Right", "Left"]))
            time.sleep(self.random.uniform(0, KEY_TIME))
            run.process.kill()
        pause = str(self.random.randint(8, 30))
        typing = subprocess.Popen(["xdotool", "key", "--delay", pause, *self.keys()], env=self.desktop.environment)
        try:
            if self.moment == "in a save":
                self.kill_in_a_save(run, path.parent)
            self.watch(run, path)
        finally:
            typing.kill()
            typing.wait()

    def kill_in_a_save(self, run: Run, folder: Path) -> None:
        """Kills as soon as one of the next saves has begun; looks without a pause, since a save is short."""

        def saves(name: str) -> bool:
            passing = PASSING.fullmatch(name)
            return passing is not None and passing["process"] == str(run.process.pid)

        waiting = self.random.randint(1, 6)
        end = time.monotonic() + PATIENCE
        there = False
        while waiting > 0 and time.monotonic() < end:
            was, there = there, any(map(saves, os.listdir(folder)))
            waiting -= there and not was
        run.process.kill()
        if waiting > 0:
            raise Stuck("a save did not come")

    def watch(self, run: Run, path: Path) -> None:
        """Reads the progress file until the program has gone; what was seen once has to last."""
        course = self.courses[path.name]
        content = b""

        def look() -> bool:
            nonlocal content
            if not path.exists() and self.moment == "first visit":
                return False
            self.reads += 1
            latest = path.read_bytes()
            if latest != content:
                self.see(path, check_progress(path, course, latest))
                content = latest
            return False

        run.until(look, "the kill")

    def see(self, path: Path, progress: Progress) -> None:
        before = self.data.progress.get(path)
        if before is not None:
            check_nothing_lost(path, before, progress)
            self.turns += before.resume != progress.resume
        self.data.progress[path] = progress

    # The files

    def check_files(self) -> None:
        after: LearnerData = check_data_folder(self.data_folder, self.courses)
        check_data_kept(self.data, after)
        self.data = after
        for path in after.left_over:
            self.left_over.add((path.stat().st_ino, path.stat().st_mtime_ns))
        self.most_left_over = max(self.most_left_over, len(after.left_over))

    def run(self, kills: int) -> int:
        """How many kills went well."""
        begun = time.monotonic()
        for number in range(1, kills + 1):
            self.kill_once(number)
            if number % PROGRESS_EVERY == 0:
                print(f"{number} kills, {(time.monotonic() - begun) / number:.2f} s each, {self.turns} page turns "
                      "seen", flush=True)
        return kills

    def report(self, kills: int, seconds: float) -> None:
        print("Moments: " + ", ".join(f"{moment} {self.moments[moment]}" for moment in MOMENTS))
        print(f"Page turns seen: {self.turns}; progress files read meanwhile: {self.reads}, all whole")
        print(f"Files left behind by a save cut short: {len(self.left_over)} in all, at most {self.most_left_over} "
              "at a time")
        for path, progress in self.data.progress.items():
            topics = sum(line[0].count("__") + 1 for line in progress.lines.values())
            print(f"At the end: {path.name}: {len(progress.lines)} lines, {topics} topics")
        print(f"{kills} kills in {seconds:.0f} s ({seconds / kills:.2f} s each): every start got as far as it was "
              "let, nothing was lost, no file was damaged")


def tell_fault(test: KillTest, desktop: Desktop, fault: Exception, arguments: argparse.Namespace) -> None:
    number = sum(test.moments.values())
    out: Path = arguments.out
    out.mkdir(parents=True, exist_ok=True)
    shutil.copytree(test.data_folder, out / "data", dirs_exist_ok=True)
    print(f"FAULT at kill {number} ({test.moment}): {fault}")
    print(f"To have it again: kill_test.py {arguments.store} --kills {number} --seed {arguments.seed} (the moment "
          f"within a step varies a little). The files are in {out}/")


def read_arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(description="Kills the program and checks the learner's record.")
    parser.add_argument("store", type=Path)
    parser.add_argument("--kills", type=int, default=500)
    parser.add_argument("--seed", type=int, default=random.randrange(1_000_000))
    parser.add_argument("--out", type=Path, default=Path("kill-fault"))
    return parser.parse_args()


def main() -> int:
    arguments = read_arguments()
    print(f"Seed {arguments.seed}", flush=True)
    with tempfile.TemporaryDirectory(prefix="kills-") as folder:
        store = Path(folder) / "store"
        shutil.copytree(arguments.store, store, ignore=shutil.ignore_patterns("data"))
        with Desktop(arguments.out, 96) as desktop:
            test = KillTest(desktop, store, arguments.seed)
            begun = time.monotonic()
            try:
                kills = test.run(arguments.kills)
            except (Damage, Stuck) as fault:
                tell_fault(test, desktop, fault, arguments)
                return 1
            test.report(kills, time.monotonic() - begun)
    return 0


if __name__ == "__main__":
    sys.exit(main())
