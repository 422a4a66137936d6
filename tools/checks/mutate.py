#!/usr/bin/env python3
"""Says which faults the tests would miss: changes one line of src/ at a time and runs the tests of its folder.

Each change (an operator, a number, a condition, a call left out) is built into the test programs of the changed
file's folder, which then run until the first failure. What no program noticed is a gap in the tests, or a line that
nobody needs. The work is done on a copy of the last commit, in a temporary folder or in --copy FOLDER, which is kept
with what was built: nothing here is touched. Headers and main.cpp are left alone: too much hangs on the ones, and no
test program holds the other.

--changes FILE writes the list of changes, or takes them from the file where there is one already, so that the same
changes can be tried again with other tests. A line that has moved is found by its text.
"""

import argparse
import json
import os
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
from collections import Counter
from collections.abc import Iterator
from dataclasses import asdict, dataclass
from pathlib import Path

# The test programs of a folder, the quickest first. The longest folder that holds the file counts.
PROGRAMS = {
    "texts": ["texts_core_test"],
    "platform": ["platform_core_test"],
    "platform/files": ["files_core_test", "learners_core_test"],
    "platform/registry": ["registry_core_test"],
    "platform/forms": ["platform_forms_test", "coursescreen_test"],
    "platform/grid": ["platform_grid_test", "reference_test"],
    "platform/movies": ["coursescreen_test"],
    "platform/shell": ["platform_shell_test", "desktop_test"],
    "pages": ["pages_test"],
    "frame": ["frame_core_test", "startup_test", "coursescreen_test"],
    "content": ["content_core_test"],
    "learners": ["learners_core_test", "startup_test"],
    "desktop": ["desktop_test"],
    "reference": ["reference_core_test", "reference_test"],
    "coursescreen": ["coursescreen_test"],
    "assessment": ["assessment_core_test", "assessment_test"],
    "progress": ["progress_core_test", "progress_test"],
    "signin": ["startup_test"],
    "startup": ["startup_test"],
}

OPERATORS = {
    " == ": " != ", " != ": " == ", " <= ": " < ", " >= ": " > ", " < ": " <= ", " > ": " >= ",
    " && ": " || ", " || ": " && ", " + ": " - ", " - ": " + ", " * ": " / ", " / ": " * ",
    " += ": " -= ", " -= ": " += ", "++": "--", "true": "false", "false": "true",
}
WORD = re.compile(r"\b(?:true|false)\b|(?<=\S) (?:[=!<>]=|[<>+*/-]|&&|\|\||[+-]=) (?=\S)|\+\+")
NUMBER = re.compile(r"(?<![\w.])(0[xX][0-9a-fA-F]+|\d+\.\d+|0|[1-9]\d*)(?![\w.])")
CONDITION = re.compile(r"\b(?:if|while) \(")
CALL = re.compile(r"(?P<head>^\s*|(?:\)|else) )(?!return\b|throw\b|co_)"
                  r"[A-Za-z_][\w:]*(?:(?:\.|->)\w+|\(\)|\[\w+\])*\(.*\);$")
LITERAL = re.compile(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])*\'')
SKIPPED = re.compile(r"^\s*(?:#|//|using |namespace |template|static_assert|Q_ASSERT|Q_UNREACHABLE"
                     r"|q(?:Debug|Info|Warning|Critical)\b)|\bQ_OBJECT\b")
MEMORY = 6 << 30  # bytes that a test program may take: a change can make it ask for any amount
LARGEST_FILE = 1 << 30  # bytes
TEST_SECONDS = 300  # nothing passes that takes longer


@dataclass(frozen=True)
class Change:
    file: str  # below src
    line: int  # from 1, where it was when the change was drawn
    text: str  # of the line
    above: str  # the line before it, which tells equal lines apart
    change: str  # the line as changed


def blanked(line: str) -> str:
    """The line with its literals and comment blanked, every other character in its place."""
    line = LITERAL.sub(lambda found: found[0][0] + "_" * (len(found[0]) - 2) + found[0][-1], line)
    code = line.partition("//")[0].rstrip()
    return code + " " * (len(line) - len(code))


def closing(code: str, opening: int) -> int:
    """Where the parenthesis at opening is closed; -1 when that is on another line."""
    depth = 0
    for at in range(opening, len(code)):
        depth += {"(": 1, ")": -1}.get(code[at], 0)
        if depth == 0:
            return at
    return -1


def changed_lines(line: str, above: str) -> Iterator[str]:
    """Everything that can be made of a line of code."""
    code = blanked(line)
    if SKIPPED.search(code) or code.strip() in {"", "{", "}", "};"}:
        return

    def with_text(start: int, end: int, text: str) -> str:
        return line[:start] + text + line[end:]

    for found in WORD.finditer(code):
        yield with_text(*found.span(), OPERATORS[found[0]])
    for found in NUMBER.finditer(code):
        yield with_text(*found.span(), str(float(found[0]) + 1) if "." in found[0] else str(int(found[0], 0) + 1))
    for found in CONDITION.finditer(code):
        opening, end = found.end() - 1, closing(code, found.end() - 1)
        if end > 0 and ";" not in code[opening:end]:
            yield with_text(opening, end + 1, f"(!{line[opening:end + 1]})")
    if (call := CALL.search(code.rstrip())) and blanked(above).strip()[-1:] in {"", ";", "{", "}", ":", ")"}:
        start = call.end("head")
        if closing(code, code.index("(", start)) > 0 and code.count("(", start) == code.count(")", start):
            yield with_text(start, len(code.rstrip()), "{}" if call["head"].strip() else ";")


def drawn(source: Path, generator: random.Random) -> Iterator[Change]:
    """Changes in an order by chance, each of another line."""
    places = []
    for path in sorted(source.rglob("*.cpp")):
        lines = path.read_text(encoding="utf-8").splitlines()
        for number, line in enumerate(lines):
            above = lines[number - 1] if number else ""
            if choices := list(changed_lines(line, above)):
                places.append((path.relative_to(source).as_posix(), number + 1, line, above, choices))
    generator.shuffle(places)
    for file, number, line, above, choices in places:
        if programs_of(file):
            yield Change(file, number, line, above, generator.choice(choices))


def programs_of(file: str) -> list[str]:
    for folder in map(str, Path(file).parents):
        if folder in PROGRAMS:
            return PROGRAMS[folder]
    return []  # main.cpp, which no test program holds


def located(source: Path, change: Change) -> tuple[Path, int] | None:
    """The file that has the line now and its index there: the nearest one with the same text."""
    path = source / change.file
    if not path.exists():
        moved = sorted(source.rglob(path.name))
        if len(moved) != 1:
            return None
        path = moved[0]
    lines = path.read_text(encoding="utf-8").splitlines()
    same = [at for at, line in enumerate(lines) if line.strip() == change.text.strip()]
    if not same:
        return None
    return path, min(same, key=lambda at: (lines[at - 1].strip() != change.above.strip(),
                                           abs(at + 1 - change.line)))


def limited() -> None:
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_FSIZE, (LARGEST_FILE, LARGEST_FILE))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


class Copy:
    """A work tree of the last commit with a build folder of its own."""

    def __init__(self, repository: Path, kept: Path | None, jobs: int) -> None:
        self.repository = repository
        self.is_kept = kept is not None
        self.folder = kept.resolve() if kept else Path(tempfile.mkdtemp(prefix="mutate-"))
        self.tree = self.folder / "tree"
        self.build = self.tree / "build" / "dev"
        self.jobs = jobs

    def __enter__(self) -> "Copy":
        head = subprocess.run(["git", "-C", self.repository, "rev-parse", "HEAD"], check=True, capture_output=True,
                              text=True).stdout.strip()
        if self.tree.exists():
            subprocess.run(["git", "-C", self.tree, "checkout", "--quiet", "--force", "--detach", head], check=True)
        else:
            subprocess.run(["git", "-C", self.repository, "worktree", "add", "--quiet", "--detach", self.tree, head],
                           check=True)
        linker = ["-D", "CMAKE_EXE_LINKER_FLAGS=-fuse-ld=mold"] if shutil.which("mold") else []
        subprocess.run(["cmake", "--preset", "dev", *linker], cwd=self.tree, check=True, stdout=subprocess.DEVNULL)
        return self

    def __exit__(self, *_: object) -> None:
        if self.is_kept:
            return
        subprocess.run(["git", "-C", self.repository, "worktree", "remove", "--force", self.tree], check=False)
        shutil.rmtree(self.folder, ignore_errors=True)

    def made(self, programs: list[str]) -> bool:
        return subprocess.run(["cmake", "--build", self.build, "-j", str(self.jobs), "--target", *programs],
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0

    def fails(self, program: str) -> bool:
        """Whether the program notices something, be it by a crash or by never coming to an end."""
        scratch = self.folder / "scratch"
        shutil.rmtree(scratch, ignore_errors=True)
        scratch.mkdir()
        screen = self.tree / "tests/support/screen-96dpi.json"
        environment = os.environ | {"QT_QPA_PLATFORM": f"offscreen:configfile={screen}", "LC_ALL": "C.UTF-8",
                                    "HOME": str(scratch), "TMPDIR": str(scratch)}
        path, = (self.build / "tests").rglob(program)
        test = subprocess.Popen([path, "--gtest_fail_fast", "--gtest_brief=1"], cwd=scratch, env=environment,
                                stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                start_new_session=True, preexec_fn=limited)
        try:
            return test.wait(TEST_SECONDS) != 0
        except subprocess.TimeoutExpired:
            return True
        finally:
            try:
                os.killpg(test.pid, signal.SIGKILL)  # with all that it started
            except ProcessLookupError:
                pass
            test.wait()

    def notices(self, path: Path, index: int, change: Change) -> bool | None:
        """Whether the tests notice the change; None when it doesn't compile."""
        programs = programs_of(path.relative_to(self.tree / "src").as_posix())
        original = path.read_text(encoding="utf-8")
        lines = original.splitlines()
        lines[index] = change.change
        path.write_text("\n".join(lines) + "\n", encoding="utf-8")
        try:
            return any(self.fails(program) for program in programs) if self.made(programs) else None
        finally:
            path.write_text(original, encoding="utf-8")


def told(change: Change, verdict: str) -> None:
    print(f"{verdict}: {change.file}:{change.line}\n    - {change.text.strip()}\n    + {change.change.strip()}",
          flush=True)


def table(verdicts: list[tuple[Change, bool]], origin: str) -> str:
    noticed, all_of = Counter(), Counter()
    for change, seen in verdicts:
        folder = str(Path(change.file).parent)
        for row in (folder, "all"):
            all_of[row] += 1
            noticed[row] += seen
    rows = [f"{folder:20} {noticed[folder]:7} {all_of[folder] - noticed[folder]:11}"
            for folder in sorted(all_of, key=lambda row: (row == "all", row))]
    share = 100 * noticed["all"] / max(all_of["all"], 1)
    return "\n".join([f"{'folder':20} {'noticed':>7} {'not noticed':>11}", *rows,
                      f"{share:.0f} of 100 changes noticed, {origin}"])


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=30, help="changes to try (default: 30)")
    parser.add_argument("--seed", type=int, default=1, help="what the changes are drawn by (default: 1)")
    parser.add_argument("--changes", type=Path, metavar="FILE", help="the list of changes, written or read")
    parser.add_argument("--copy", type=Path, metavar="FOLDER", help="where the copy is made and kept")
    parser.add_argument("--jobs", "-j", type=int, default=1, help="jobs of the build (default: 1)")
    options = parser.parse_args()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))  # the line is restored, and the copy goes
    repository = Path(__file__).resolve().parents[2]
    given = None
    if options.changes and options.changes.exists():
        given = [Change(**entry) for entry in json.loads(options.changes.read_text(encoding="utf-8"))]

    verdicts: list[tuple[Change, bool]] = []
    with Copy(repository, options.copy, options.jobs) as copy:
        source = copy.tree / "src"
        programs = sorted({program for programs in PROGRAMS.values() for program in programs})
        if not copy.made(programs):
            raise SystemExit("mutate: the test programs don't build")
        for program in programs:
            if copy.fails(program):
                raise SystemExit(f"mutate: {program} fails without any change")
        for change in given if given is not None else drawn(source, random.Random(options.seed)):
            if given is None and len(verdicts) >= options.count:
                break
            place = located(source, change)
            if place is None:
                told(change, "gone")
                continue
            seen = copy.notices(*place, change)
            if seen is None:
                if given is not None:
                    told(change, "no longer compiles")
                continue
            told(change, "noticed" if seen else "NOT NOTICED")
            verdicts.append((change, seen))
            if options.changes and given is None:
                listed = [asdict(one) for one, _ in verdicts]
                options.changes.write_text(json.dumps(listed, indent=1, ensure_ascii=False) + "\n", encoding="utf-8")
    print(table(verdicts, f"seed {options.seed}" if given is None else f"list {options.changes.name}"))
    return 0


if __name__ == "__main__":
    sys.exit(main())
