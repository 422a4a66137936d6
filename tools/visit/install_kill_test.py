#!/usr/bin/env python3
"""Kills installations of a course at random moments and looks whether the store holds a whole version.

Usage: install_kill_test.py KIT [--kills N] [--seed S]

KIT is the program tallowmere-course. Two versions of a course, of which each has a module that the other lacks,
take turns in a store beside a course that shares a module with them. After each kill the next run of the kit
has to leave the one version or the other, to the byte, and no file of the other course touched. Half of the
kills wait for the journal, from which on the store changes. Ends with 1 at the first fault.
"""

import argparse
import os
import random
import shutil
import subprocess
import sys
import tempfile
import time
from collections import Counter
from pathlib import Path

PAGES = 30
CHANGE_TIME = 0.004  # seconds from the journal on within which a kill comes


def write(path: Path, text: str) -> None:
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text, encoding="utf-8")


def write_course(folder: Path, name: str, modules: list[str], words: str) -> Path:
    write(folder / "course.toml", f'name = "{name}"\nrepository = "{name}"\n' + "".join(
        f'[[module]]\nid = "{module}"\nname = "{module}"\n' for module in modules))
    for module in modules:
        shared = words if module != "shared" else "the same"
        for page in range(1, PAGES + 1):
            topic = "---\ntopic: Start\n---\n" if page == 1 else ""
            write(folder / module / f"{page}.md", f"{topic}# Page {page}\n\n{shared}\n")
    for path in ("glossary.md", "about.txt", "attachments/list.txt", "trademark/1.md"):
        write(folder / path, f"## Till\n{words}\n")
    return folder


def content(store: Path) -> dict[str, bytes]:
    return {str(path.relative_to(store)): path.read_bytes() for path in store.rglob("*")
            if path.is_file() and path.name != "store.lock"
            and not path.relative_to(store).parts[0].startswith((".saving", ".installing"))}


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("kit")
    parser.add_argument("--kills", type=int, default=100)
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    chance = random.Random(options.seed)
    with tempfile.TemporaryDirectory() as place:
        return Test(options.kit, Path(place), chance).run(options.kills)


class Test:
    def __init__(self, kit: str, place: Path, chance: random.Random) -> None:
        self.kit, self.chance, self.store = kit, chance, place / "store"
        (self.store / "registry").mkdir(parents=True)
        write(self.store / "data" / "learner", "x")
        self.parcels = []
        for number, modules in enumerate((["shared", "till01"], ["shared", "till01", "till02"],
                                          ["till03", "shared", "till01"])):
            name = "Other" if number == 0 else "Till"
            modules = ["shared", "other1"] if number == 0 else modules
            source = write_course(place / f"source{number}", name, modules, f"version {number} " * 200)
            self.parcels.append(place / f"{number}.tallowcourse")
            self.do("build", str(source), "-o", str(self.parcels[-1]))
        self.versions = []
        self.install(0)
        for version in (1, 2):
            began = time.monotonic()
            self.install(version)
            self.time = time.monotonic() - began
            self.versions.append(content(self.store))

    def do(self, *words: str) -> None:
        done = subprocess.run([self.kit, *words], capture_output=True, text=True)
        if done.returncode != 0:
            raise SystemExit(f"{' '.join(words)}: {done.stderr}")

    def install(self, version: int) -> None:
        self.do("install", str(self.parcels[version]), "--store", str(self.store))

    def kill_one(self, version: int, in_change: bool) -> None:
        process = subprocess.Popen([self.kit, "install", str(self.parcels[version]), "--store", str(self.store)],
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        if in_change:
            while process.poll() is None and not (self.store / ".installing" / "journal").exists():
                pass
            time.sleep(self.chance.uniform(0, CHANGE_TIME))
        else:
            time.sleep(self.chance.uniform(0, self.time))
        process.kill()
        process.wait()

    def run(self, kills: int) -> int:
        found: Counter[str] = Counter()
        for number in range(kills):
            version = self.chance.choice((1, 2))
            before = content(self.store)
            self.kill_one(version, number % 2 == 0)
            cut = (self.store / ".installing" / "journal").exists()
            meanwhile = content(self.store)
            subprocess.run([self.kit, "remove", "no such course", "--store", str(self.store)],
                           capture_output=True)
            after = content(self.store)
            if after not in self.versions or (not cut and after != meanwhile):
                print(f"kill {number}: the store is neither version", file=sys.stderr)
                shutil.copytree(self.store, "install-kill-fault", dirs_exist_ok=True)
                return 1
            left = [name for name in os.listdir(self.store) if name == ".installing"]
            if left:
                print(f"kill {number}: {left} is left", file=sys.stderr)
                return 1
            found["journal open" if cut else "no journal"] += 1
            if cut and meanwhile not in self.versions:
                found["half changed, then made whole"] += 1
            found["new" if after == self.versions[version - 1] else "old"] += 1
            found["changed"] += after != before
            self.install(version)
            if content(self.store) != self.versions[version - 1] or len(
                    [name for name in os.listdir(self.store) if name.startswith(".")]) > 0:
                print(f"kill {number}: the installation behind it failed", file=sys.stderr)
                return 1
        print(f"{kills} kills, install takes {self.time:.2f} s: {dict(found)}")
        return 0


if __name__ == "__main__":
    sys.exit(main())
