#!/usr/bin/env python3
"""Builds the demo store: make_demo.py DEMO_SOURCES STORE_FOLDER."""

from __future__ import annotations

import argparse
import sys
from pathlib import Path

from demo_store.errors import SourceError
from demo_store.store import StoreWriter


def main() -> int:
    parser = argparse.ArgumentParser(description="Build the demo store from its sources.")
    parser.add_argument("sources", type=Path, help="the folder demo/ of the source tree")
    parser.add_argument("store", type=Path, help="the folder to fill; made when it is missing")
    arguments = parser.parse_args()
    try:
        report = StoreWriter(arguments.sources, arguments.store).write()
    except SourceError as error:
        print(f"make_demo: {error}", file=sys.stderr)
        return 1
    print(f"demo store: {report.pages} pages, {report.words} words, {report.questions} questions")
    for movie in report.missing_movies:
        print(f"make_demo: note: the movie {movie} is not there", file=sys.stderr)
    return 0


if __name__ == "__main__":
    sys.exit(main())
