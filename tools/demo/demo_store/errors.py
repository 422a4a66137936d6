"""The one error of the demo store's tools."""


class SourceError(Exception):
    """A fault in a source file. The message names the file and, where there is one, the line."""

    def __init__(self, where: object, what: str, line: int | None = None) -> None:
        place = f"{where}:{line}" if line is not None else f"{where}"
        super().__init__(f"{place}: {what}")
