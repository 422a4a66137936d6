#!/usr/bin/env python3
"""Makes a page file of an author's RTF or HTML document: add_lead_in.py DOCUMENT PAGE."""

from __future__ import annotations

import argparse
import os
import sys
from pathlib import Path

from demo_store.lead_in import LEAD_IN, LEAD_IN_SIZE, document_kind


def main() -> int:
    parser = argparse.ArgumentParser(
        description="Put the lead-in of a page file before an RTF or HTML document.")
    parser.add_argument("document", type=Path)
    parser.add_argument("page", type=Path, help="the page file to write, such as 0001.txm")
    arguments = parser.parse_args()
    try:
        document = arguments.document.read_bytes()
        if document_kind(document) is None:
            return _refuse(arguments.document, document)
        # The whole page takes the place of an old one at once, also when it is the source itself.
        draft = arguments.page.with_name(arguments.page.name + ".new")
        draft.write_bytes(LEAD_IN + document)
        os.replace(draft, arguments.page)
    except OSError as error:
        print(f"add_lead_in: {error}", file=sys.stderr)
        return 1
    return 0


def _refuse(path: Path, document: bytes) -> int:
    if document_kind(document[LEAD_IN_SIZE:]) is not None:
        reason = "has a lead-in already"
    else:
        reason = "is neither RTF nor HTML"
    print(f"add_lead_in: {path} {reason}", file=sys.stderr)
    return 1


if __name__ == "__main__":
    sys.exit(main())
