"""The display of the process. A thread redraws it, so that the work itself never looks at a clock."""

import atexit
import math
import os
import threading
import time
import weakref
from typing import NamedTuple, Optional, Protocol

from . import _library, _terminal

_SECONDS_BEFORE_FIRST_DRAW = 0.5
_SECONDS_BETWEEN_DRAWS = 0.1
# A longer estimate of the time left is not shown: the library's number of seconds could overflow.
_LONGEST_ESTIMATE_SECONDS = 1e9
_WIDEST_BAR, _NARROWEST_BAR = 30, 10
# All of a bar's line except the label and the bar itself: "100.0% ", "|", " time left: ", "277777 hours ".
_REST_OF_BAR = 33

# A finalizer may take it while its thread already holds it.
_lock = threading.RLock()
_current: Optional["Display"] = None


class _Frame(NamedTuple):
    """The space that a frame takes on the screen. Its long lines wrap when the terminal becomes narrower."""

    lines: int
    long_lines: int
    columns: int

    def rows(self) -> int:
        """Returns how many rows it takes in the terminal as it is now."""
        console = _terminal.console()
        return self.lines + self.long_lines * (self.columns // console.columns if console else 0)


_FACE = _Frame(6, 3, 60)


class Owner(Protocol):
    """What a display shows the progress of. Its end closes the display, which therefore does not keep it alive."""

    _display: Optional["Display"]

    def _count(self) -> float:
        """Returns how much is done."""


class Display:
    """Draws how much of the work is done, from its opening to its close. A process has one open display at most."""

    def __init__(self, owner: Owner, label: str, total: Optional[float], smile: bool) -> None:
        self._owner, self._total = weakref.ref(owner), total
        self._shown: Optional[_Frame] = None
        self._drawn: float = 0
        self._results: list[int] = []
        self._next_draw = time.monotonic() + _SECONDS_BEFORE_FIRST_DRAW
        _library.initialise(total or 0, _WIDEST_BAR, b"", int(smile and total is not None))
        self._label = ""
        self.set_label(label)
        self._start_thread()

    def is_of(self, owner: Owner) -> bool:
        """Returns whether an owner that ends is this display's. The collector of cycles clears the reference beforehand."""
        return self._owner() in (owner, None)

    def set_label(self, label: str) -> None:
        with _lock:
            text = _terminal.fitted(label)
            # The percentage follows the label directly. Blanks overwrite the end of a longer label.
            text += " " if text else ""
            self._label = text + " " * (_terminal.cells(self._label) - _terminal.cells(text))
            _library.settings.text = _terminal.encoded(self._label)

    def close(self, complete: bool) -> None:
        """Draws the state of the work if anything was drawn before, and leaves the cursor below it."""
        global _current
        _terminal.flush()
        with _lock:
            if self is not _current:
                return
            try:
                if self._shown:
                    self._leave(self._shown, complete)
            finally:
                _current = None
        self.stop_thread()

    def _leave(self, frame: _Frame, complete: bool) -> None:
        count = self._count()
        if complete and self._total is not None and math.isclose(count, self._total):
            count = self._total  # a sum of fractions
        try:
            self._draw(count, complete)
        finally:  # also after Ctrl-C
            # The finished face leaves the cursor below it.
            if not (self._is_face() and self._drawn == self._total and self._results):
                _terminal.write(b"\n" * (self._shown or frame).rows())

    def _count(self) -> float:
        owner = self._owner()
        try:
            count = owner._count() if owner is not None else self._drawn
            share = float(count)
        except (TypeError, ValueError, OverflowError):
            return math.nan  # is not drawn
        # Whole numbers are shown with all their digits.
        return count if isinstance(count, int) else share

    def _start_thread(self) -> None:
        self._stop = threading.Event()
        self._thread: Optional[threading.Thread] = None
        try:
            thread = threading.Thread(target=self._keep_drawing, args=[self._stop], name="kelplib.progress", daemon=True)
            thread.start()
            self._thread = thread
        except RuntimeError:
            pass  # without threads, or in a subinterpreter without daemon threads, nothing is drawn

    def stop_thread(self) -> None:
        self._stop.set()
        if self._thread is not None and self._thread is not threading.current_thread():
            # Normally ends at once. A finalizer that runs while this thread prints may have to wait for itself.
            self._thread.join(1)

    def _keep_drawing(self, stop: threading.Event) -> None:
        while not stop.wait(max(0.0, self._next_draw - time.monotonic())):
            # What was printed before an item was done precedes the frame that counts it. Without the lock: see stop_thread.
            count = self._count()
            _terminal.flush()
            with _lock:
                if stop.is_set() or self is not _current:
                    return
                # The end of the work draws the last state.
                if count != self._drawn and (self._total is None or count < self._total):
                    self._draw(count, False)
                self._next_draw = time.monotonic() + _SECONDS_BETWEEN_DRAWS

    def _draw(self, count: float, complete: bool) -> None:
        """Draws the state of the work if it can be drawn."""
        console = _terminal.console()
        if console is None or math.isnan(count):
            return
        if self._total is None:
            self._draw_count(count, complete, console)
        else:
            self._draw_share(min(count, self._total), self._total, console)

    def _draw_share(self, count: float, total: float, console: os.terminal_size) -> None:
        seconds = _library.time_stamp() - _library.settings.start_time
        if count <= 0 or (count < total and seconds * total >= _LONGEST_ESTIMATE_SECONDS * count):
            return
        frame = _FACE
        if not self._is_face():
            others = _terminal.cells(self._label) + _REST_OF_BAR
            _library.settings.width = width = min(_WIDEST_BAR, console.columns - others - 1)
            frame = _Frame(1, 1, others + width)
            if width < _NARROWEST_BAR:
                return
        if console.columns <= frame.columns or console.lines <= frame.lines:
            return
        self._shown, self._drawn = frame, count
        self._results.clear()
        # Keys that were pressed meanwhile may have moved the cursor.
        _library.rewind_cursor(0)
        # Ctrl-C raises its exception before or after this call, and so there is a result whenever the frame was drawn.
        self._results.extend(map(_library.draw, (count,)))

    def _draw_count(self, count: float, complete: bool, console: os.terminal_size) -> None:
        seconds = _library.time_stamp() - _library.settings.start_time
        number = str(count) if isinstance(count, int) else f"{count:.10g}"
        spent = (f"done in: {_terminal.duration(seconds, 1)}" if complete else
                 f"time spent: {_terminal.duration(seconds, 0)}")
        text = f"{self._label}{number} {spent}"
        # The last text is shorter.
        before = self._shown.columns if self._shown else 0
        frame = _Frame(1, 1, max(_terminal.cells(text), before))
        if console.columns <= frame.columns or console.lines <= frame.lines:
            return
        self._shown, self._drawn = frame, count
        _terminal.write(b"\r" + _terminal.encoded(text + " " * (before - _terminal.cells(text))) + b"\r")

    def _is_face(self) -> bool:
        # The library has decided; terminals of MSYS get a bar.
        return bool(_library.settings.smile == 1) and self._total is not None


def open_for(owner: Owner, label: str, total: Optional[float], smile: bool) -> None:
    """Gives the owner a new display, unless there is no terminal, nothing to be drawn, or an open display."""
    global _current
    with _lock:
        if _current is None and total != 0 and _terminal.console() is not None:
            # One statement, so that Ctrl-C never leaves an open display without an owner.
            _current = owner._display = Display(owner, label, total, smile)


def _close_at_exit() -> None:
    if _current is not None:
        _current.close(False)


def _before_fork() -> None:
    # No other thread draws while the process forks, and none is lost in the child.
    if _current is not None:
        _current.stop_thread()
    _lock.acquire()


def _in_parent() -> None:
    if _current is not None:
        _current._start_thread()
    _lock.release()


def _in_child() -> None:
    global _current
    _current = None
    _lock.release()


atexit.register(_close_at_exit)
if hasattr(os, "register_at_fork"):
    os.register_at_fork(before=_before_fork, after_in_parent=_in_parent, after_in_child=_in_child)
