"""The terminal on standard output, and texts that fit it."""

import os
import sys
import unicodedata
from typing import Optional

_STANDARD_OUTPUT = 1
_LABEL_CELLS = 20


def console() -> Optional[os.terminal_size]:
    """Returns the size of the terminal on standard output. Returns None if there is no terminal that can move its cursor, or
    if the program has replaced sys.stdout."""
    try:
        if sys.stdout.fileno() != _STANDARD_OUTPUT or not os.isatty(_STANDARD_OUTPUT) or os.environ.get("TERM") == "dumb":
            return None
        size = os.get_terminal_size(_STANDARD_OUTPUT)
    except Exception:
        return None  # a replaced sys.stdout may raise anything
    return size if size.columns > 0 else None


def cells(text: str) -> int:
    """Returns the number of cells that a text takes at most on a terminal."""
    return sum(2 if unicodedata.east_asian_width(character) in "WF" else 1 for character in text)


def fitted(label: str) -> str:
    """Replaces unprintable characters, and the middle of a long label by "..."."""
    if len(label) > _LABEL_CELLS:
        # A longer text is fitted in the same way, only more slowly.
        label = label[:_LABEL_CELLS] + label[-_LABEL_CELLS:]
    text = "".join(character if character.isprintable() else "?" for character in label)
    if cells(text) <= _LABEL_CELLS:
        return text
    half = (_LABEL_CELLS - 3) // 2
    begin, end = text[:half], text[-half:]
    while cells(begin) > half:
        begin = begin[:-1]
    while cells(end) > half:
        end = end[1:]
    return f"{begin}...{end}"


def encoded(text: str) -> bytes:
    encoding = getattr(sys.stdout, "encoding", None) or "utf-8"
    if sys.platform == "win32":
        # The library writes bytes in the encoding of the console.
        import ctypes
        encoding = f"cp{ctypes.windll.kernel32.GetConsoleOutputCP()}"
    try:
        return text.encode(encoding, "replace")
    except (LookupError, TypeError):  # a replaced sys.stdout
        return text.encode("utf-8", "replace")


def duration(seconds: float, decimals: int) -> str:
    """Writes a time as the library does: as long as the longest unit, so that it overwrites an earlier time."""
    for limit, unit_seconds, unit in ((60, 1, "secs "), (3600, 60, "mins "), (float("inf"), 3600, "hours")):
        if seconds < limit:
            break
    number = f"{seconds / unit_seconds:.{decimals}f}" if decimals else str(int(seconds / unit_seconds))
    return f"{number} {unit} "


def flush() -> None:
    """Passes what the program has printed to the terminal, so that it precedes the next frame."""
    try:
        sys.stdout.flush()
    except Exception:
        pass  # not open, just being flushed, or replaced


def write(text: bytes) -> None:
    """Writes to the terminal, even if the program has replaced sys.stdout meanwhile. Writes nothing to a file that has taken the
    place of the terminal."""
    try:
        if os.isatty(_STANDARD_OUTPUT):
            os.write(_STANDARD_OUTPUT, text)
    except OSError:
        pass
