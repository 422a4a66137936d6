"""Reads a .test source and writes the test file that the player reads.

A source is "type: scored" or "type: practice", then questions:

    ? the question, which may hold "double quotes"
    + a correct answer
    - a wrong answer
    = the explanation (may be missing)
    > review label | rt0102/0003 (may be missing)
"""

from __future__ import annotations

import re
from dataclasses import dataclass, field

from .errors import SourceError
from .model import Question, Quiz
from .text import crlf

TYPES = {"type: scored": False, "type: practice": True}
REVIEW = re.compile(r"(.+?) *\| *([a-z0-9]{6})/(\d{4})$")
ANSWER_MARK = ">>"
# The file's fields can't hold a double quote; this character stands for it.
QUOTE_STAND_IN = "\u00ab"


@dataclass
class _Draft:
    line: int
    text: str
    answers: list[tuple[bool, str]] = field(default_factory=list)
    explanation: str = ""
    review: tuple[str, str] = ("", "")


def parse_quiz(where: str, source: str) -> Quiz:
    lines = source.split("\n")
    if lines[0].strip() not in TYPES:
        raise SourceError(where, "begins with " + " or ".join(TYPES), 1)
    drafts: list[_Draft] = []
    for number, raw in enumerate(lines[1:], start=2):
        line = raw.strip()
        if not line:
            continue
        if QUOTE_STAND_IN in line or ANSWER_MARK in line:
            raise SourceError(where, f"{QUOTE_STAND_IN} and {ANSWER_MARK} can't stand here", number)
        mark, text = line[0], line[2:]
        if line[1:2] != " " or mark not in "?+-=>" or (mark != "?" and not drafts):
            raise SourceError(where, f"can't read {line}", number)
        if mark == "?":
            drafts.append(_Draft(number, text))
        elif mark in "+-":
            drafts[-1].answers.append((mark == "+", text))
        elif mark == "=":
            drafts[-1].explanation = text
        else:
            drafts[-1].review = _review(where, number, text)
    if not drafts:
        raise SourceError(where, "a test without questions")
    return Quiz(where, TYPES[lines[0].strip()], [_question(where, draft) for draft in drafts])


def _review(where: str, number: int, text: str) -> tuple[str, str]:
    match = REVIEW.match(text)
    if match is None:
        raise SourceError(where, "a review item is: label | rt0101/0001", number)
    return match[1], f"{match[2]}_{match[3]}.txm"


def _question(where: str, draft: _Draft) -> Question:
    if len(draft.answers) < 2:
        raise SourceError(where, f"fewer than two answers: {draft.text}", draft.line)
    if not any(correct for correct, _ in draft.answers):
        raise SourceError(where, f"no answer is correct: {draft.text}", draft.line)
    return Question(draft.line, draft.text, draft.answers, draft.explanation, *draft.review)


def quiz_text(quiz: Quiz) -> str:
    """Return the test file's text, one question per line, without a blank line at the end."""
    lines = [_quoted("2" if quiz.practice else "1")]
    for question in quiz.questions:
        fields = [
            question.text,
            ANSWER_MARK.join(text for _, text in question.answers),
            ANSWER_MARK.join("1" if correct else "0" for correct, _ in question.answers),
            question.explanation,
            question.review_label,
            question.review_link,
        ]
        lines.append(",".join(_quoted(field) for field in fields))
    return crlf("\n".join(lines) + "\n")


def _quoted(text: str) -> str:
    return '"' + text.replace('"', QUOTE_STAND_IN) + '"'
