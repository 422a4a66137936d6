"""The part of the visit that checks the progress: the list of modules under the mouse, and the jumps."""

import time
from typing import TYPE_CHECKING

from program_run import Run
from screen_places import FIRST_MODULE, SECOND_MODULE, SECOND_TOPIC
from store_files import read_courses
from visit_desktop import Window, wait_for

if TYPE_CHECKING:
    from visit import Visit


def open_progress(visit: "Visit", course: str) -> tuple[Run, Window]:
    """Starts the program anew and signs in."""
    run = Run(visit.desktop, visit.desktop.start(visit.store / "tallowmere"))
    run.choose_course(sorted(read_courses(visit.store), key=str.casefold).index(course))
    progress = run.check_progress()
    time.sleep(0.3)  # the first picture is painted
    return run, progress


def leave(visit: "Visit", run: Run) -> None:
    time.sleep(0.3)  # the keys go to the course screen
    visit.check("the program ends well", run.leave() == 0)


def play(visit: "Visit") -> None:
    course = visit.record.name
    modules = read_courses(visit.store)[course].modules
    first, second = list(modules)[:2]

    run, progress = open_progress(visit, course)
    progress.point(*SECOND_MODULE)
    time.sleep(0.3)
    visit.desktop.picture("progress-module")
    progress.click(*SECOND_MODULE)
    wait_for(lambda: visit.resume_line() == f'"{second}","0001.txm"', "the module chosen in check progress")
    visit.check("a click on a module opens it", True)
    leave(visit, run)

    run, progress = open_progress(visit, course)
    progress.point(*FIRST_MODULE)
    time.sleep(0.3)
    progress.point(*SECOND_TOPIC)
    time.sleep(0.3)
    visit.desktop.picture("progress-topic")
    progress.click(*SECOND_TOPIC)
    wait_for(lambda: visit.resume_line().startswith(f'"{first}",'), "the topic chosen in check progress")
    visit.check("a click on a topic opens its first page", visit.resume_line() != f'"{first}","0001.txm"')
    leave(visit, run)
