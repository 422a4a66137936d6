"""The files of a store: its courses and pages, and whether every file of its learners is whole.

For the scripts that drive the real program. A file that is not as the program writes it is a `Damage`.
"""

import re
from dataclasses import dataclass, field
from pathlib import Path

CODE_PAGE = "cp1252"
USER_DATA = Path("Tallowmere Manager 1.0/UserData")
USER_FILE = "User"
# What a killed program may leave: its lock, and what was on its way beside what it was to become, a file or
# a learner's folder.
LOCK_FILE = ".lock"
PASSING = re.compile(r"\.saving-[0-9a-f]{12}-(?P<process>\d+)-[0-9a-f]{8}")

LINE_FIELDS = 10
TEST_PATTERNS = [r"\d*", r"\d*", r"[01]*", r"(\d{4}-\d\d-\d\d)?"] + [
    r"\d*", r"[01]*", r"(\d{4}-\d\d-\d\d)?", r"\d*"]
LINE = re.compile(r'"[^"\r\n]*"(?:,"[^"\r\n]*")*')


LEARNER = ("Zoë", "Lindqvist", "zoe@example.com")
TEST_RESULT = ["2", "80", "10110", "2004-03-09", "90", "10111", "2004-03-10", "70"]


class Damage(Exception):
    """A file of the learners is not as it must be; the text names the file."""


@dataclass
class Module:
    """Its pages in order, the topics of its pages, and which of the pages are tests."""

    pages: list[str]
    topics: list[str]
    tests: list[str]


@dataclass
class Course:
    name: str
    modules: dict[str, Module]

    def pages(self) -> list[tuple[str, str]]:
        """Module and page of every page, in reading order."""
        return [(name, page) for name, module in self.modules.items() for page in module.pages]


@dataclass
class Progress:
    """What a progress file holds; lines are viewed list and test fields by module, in the file's order."""

    resume: tuple[str, str]
    lines: dict[str, list[str]] = field(default_factory=dict)


def read_module(folder: Path) -> Module:
    pages: list[str] = []
    topics: list[str] = []
    tests: list[str] = []
    for line in (folder / "Map.txt").read_text(encoding=CODE_PAGE).splitlines()[3:]:
        page, _, rest = line.partition("*")
        if page:
            kind, _, topic = rest.partition("*")
            pages.append(page)
            topics += [topic] if topic else []
            tests += [page] if kind == "Test" else []
    return Module(pages, topics, tests)


def read_courses(store: Path) -> dict[str, Course]:
    """The courses that the store's registry lists, by name."""
    courses: dict[str, Course] = {}
    name = ""
    for file in sorted((store / "registry").glob("*.reg")):
        for line in file.read_text(encoding="utf-8").splitlines():
            if key := re.fullmatch(r"\[.*\\([^\\]+)\\Modules\]", line):
                name = key[1]
            elif modules := re.fullmatch(r'"ModuleString"="(.*)"', line):
                ids = re.findall(".{6}", modules[1])
                courses[name] = Course(name, {module: read_module(store / module) for module in ids})
    return courses


def quoted_line(*fields: str) -> bytes:
    return ('"' + '","'.join(fields) + '"\r\n').encode(CODE_PAGE)


def prepare_learner(data_folder: Path, courses: dict[str, Course]) -> Path:
    """A learner who has read a little of each course and finished a test in it; gives the learner's folder."""
    learner = data_folder / USER_DATA / f"{LEARNER[0]} {LEARNER[1]}"
    learner.mkdir(parents=True)
    (learner / USER_FILE).write_bytes(quoted_line(*LEARNER))
    for course in courses.values():
        (module, first), (second, _), *_ = course.modules.items()
        (learner / course.name).write_bytes(quoted_line(module, first.pages[1])
                                            + quoted_line(second, "__", *TEST_RESULT)
                                            + quoted_line(module, f"_{first.topics[0]}_", *[""] * 8))
    return learner


def read_records(path: Path, content: bytes) -> list[list[str]]:
    """The fields of every line of a whole file."""
    encoding = "utf-8-sig" if content.startswith(b"\xef\xbb\xbf") else CODE_PAGE
    try:
        text = content.decode(encoding)
    except UnicodeDecodeError as error:
        raise Damage(f"{path}: {error}") from error
    if not text.endswith("\r\n"):
        raise Damage(f"{path}: does not end with a line end, {content[-40:]!r}")
    records = []
    for line in text[:-2].split("\r\n"):
        if not LINE.fullmatch(line):
            raise Damage(f"{path}: no line of quoted fields, {line!r}")
        records.append(line[1:-1].split('","'))
    return records


def check_user(path: Path, content: bytes) -> None:
    records = read_records(path, content)
    if len(records) != 1 or len(records[0]) not in (3, 5):
        raise Damage(f"{path}: no learner's record, {records}")
    if f"{records[0][0]} {records[0][1]}" != path.parent.name:
        raise Damage(f"{path}: another learner's record, {records}")


def viewed_topics(path: Path, module: str, viewed: str) -> list[str]:
    """A module entered at a page without a topic has an empty name first."""
    if not re.fullmatch(r"(__)?(_[^_]+_)*", viewed):
        raise Damage(f"{path}: no list of topics for {module}, {viewed!r}")
    return re.findall(r"_([^_]+)_", viewed)


def check_line(path: Path, course: Course, record: list[str]) -> None:
    module = course.modules.get(record[0])
    if len(record) != LINE_FIELDS or module is None:
        raise Damage(f"{path}: no line of a module, {record}")
    topics = viewed_topics(path, record[0], record[1])
    if len(set(topics)) != len(topics) or not set(topics) <= set(module.topics):
        raise Damage(f"{path}: topics that {record[0]} does not have, or twice: {topics}")
    for text, pattern in zip(record[2:], TEST_PATTERNS):
        if not re.fullmatch(pattern, text):
            raise Damage(f"{path}: no test result of {record[0]}, {text!r}")


def check_progress(path: Path, course: Course, content: bytes) -> Progress:
    records = read_records(path, content)
    resume = records[0]
    if len(resume) != 2 or resume[0] not in course.modules or resume[1] not in course.modules[resume[0]].pages:
        raise Damage(f"{path}: no page to resume at, {resume}")
    progress = Progress((resume[0], resume[1]))
    for record in records[1:]:
        check_line(path, course, record)
        if record[0] in progress.lines:
            raise Damage(f"{path}: two lines of {record[0]}")
        progress.lines[record[0]] = record[1:]
    return progress


def check_tests_kept(path: Path, module: str, old: list[str], new: list[str]) -> None:
    """The eight test fields change only by a further run: the first result stays, the highest never falls."""
    if new == old:
        return
    runs = int(new[0] or 0) - int(old[0] or 0)
    if runs < 1 or (old[1] and new[1:4] != old[1:4]) or int(new[4]) < int(old[4] or 0):
        raise Damage(f"{path}: the test of {module} lost something, {old} became {new}")


def check_nothing_lost(path: Path, before: Progress, after: Progress) -> None:
    """Lines stay in their order, viewed lists only grow, of test results nothing is lost."""
    if list(after.lines)[:len(before.lines)] != list(before.lines):
        raise Damage(f"{path}: lines are gone, {list(before.lines)} became {list(after.lines)}")
    for module, old in before.lines.items():
        new = after.lines[module]
        if not new[0].startswith(old[0]):
            raise Damage(f"{path}: {module} lost something, {old} became {new}")
        check_tests_kept(path, module, old[1:], new[1:])


@dataclass
class LearnerData:
    """Everything under a data folder that was found whole."""

    progress: dict[Path, Progress] = field(default_factory=dict)
    users: dict[Path, bytes] = field(default_factory=dict)
    left_over: list[Path] = field(default_factory=list)


def check_learner_file(data: LearnerData, courses: dict[str, Course], path: Path) -> None:
    if PASSING.fullmatch(path.name):
        data.left_over.append(path)
    elif path.name == USER_FILE:
        data.users[path] = path.read_bytes()
        check_user(path, data.users[path])
    elif path.name in courses:
        data.progress[path] = check_progress(path, courses[path.name], path.read_bytes())
    else:
        raise Damage(f"{path}: a file that does not belong here")


def check_data_folder(folder: Path, courses: dict[str, Course]) -> LearnerData:
    """Looks at every file of a data folder; the first that is not whole or not known is a `Damage`."""
    data = LearnerData()
    for path in sorted(folder.rglob("*")):
        place = path.relative_to(folder)
        if path.is_dir() and (place in (USER_DATA.parent, USER_DATA) or place.parent == USER_DATA):
            continue
        if place.parent == USER_DATA.parent and PASSING.fullmatch(path.name):
            data.left_over.append(path)
        elif place.parent.parent == USER_DATA.parent and PASSING.fullmatch(path.parent.name):
            continue  # whole or not, nobody lists it
        elif place.parent.parent == USER_DATA and path.is_file():
            check_learner_file(data, courses, path)
        elif str(place) != LOCK_FILE:
            raise Damage(f"{path}: does not belong here")
    return data


def check_data_kept(before: LearnerData, after: LearnerData) -> None:
    """What was there before is still there."""
    for path, content in before.users.items():
        if after.users.get(path) != content:
            raise Damage(f"{path}: changed or gone")
    for path, progress in before.progress.items():
        if path not in after.progress:
            raise Damage(f"{path}: gone")
        check_nothing_lost(path, progress, after.progress[path])
