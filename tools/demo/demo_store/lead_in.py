"""The bytes that stand before the document in a page file. The player skips them unread."""

LEAD_IN = b"Tallowmere course page 1.0  \r\n"
LEAD_IN_SIZE = 30
assert len(LEAD_IN) == LEAD_IN_SIZE


def document_kind(document: bytes) -> str | None:
    """Return "RTF" or "HTML" as the first bytes tell, or None when they are neither's."""
    if document.startswith(b"{\\rtf"):
        return "RTF"
    start = document.removeprefix(b"\xef\xbb\xbf").lstrip()[:32].lower()
    if start.startswith((b"<!doctype html", b"<html", b"<head", b"<body")):
        return "HTML"
    return None
