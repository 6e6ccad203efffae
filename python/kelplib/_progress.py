"""The public interface: progress of a loop or of a block."""

import itertools
import math
from types import TracebackType
from typing import Any, Generic, Iterable, Iterator, Optional, TypeVar, overload

from ._display import Display, open_for

T = TypeVar("T")


class _End:
    """An iterator without items that follows the items of a loop. Its loop has taken all items when it is asked for one, and
    has been left early when it is destroyed without that."""

    def __init__(self, progress: "Progress[Any]", counter: "itertools.count[int]") -> None:
        self._progress, self._counter = progress, counter

    def __iter__(self) -> "_End":
        return self

    def __next__(self) -> Any:
        self._progress._loop_ended(self._counter, True)
        raise StopIteration

    def __del__(self) -> None:
        self._progress._loop_ended(self._counter, False)


class Progress(Generic[T]):
    """Progress of work, made by progress(). Iterating over it, or entering it with "with", opens the display of the process.

    The display is drawn on a terminal only, once the work has lasted half a second, and at most ten times a second. While it is
    open, other objects draw nothing.
    """

    _display: Optional[Display] = None

    def __init__(self, items: Optional[Iterable[T]], total: Optional[float], label: str, smile: bool, show: bool) -> None:
        self._items, self._total, self._smile, self._show = items, _checked_total(total), smile, show
        self._label = _checked_label(label)
        self._done: float = 0
        self._counter: Optional["itertools.count[int]"] = None
        self._complete = False
        self._entered = False

    def __iter__(self) -> Iterator[T]:
        if self._items is None:
            raise TypeError("progress() without items cannot be iterated over; use it with \"with\", and call update()")
        items = iter(self._items)
        if not self._entered:
            self._open()
        if self._display is None or self._counter is not None:
            return items
        # Each item takes a number, in code of the interpreter itself. The thread that draws reads how many were taken.
        counter = itertools.count(1)
        self._counter, self._complete = counter, False
        return itertools.compress(itertools.chain(items, _End(self, counter)), counter)

    def __enter__(self) -> "Progress[T]":
        self._entered = True
        self._open()
        return self

    def __exit__(self, kind: Optional[type[BaseException]], _: Optional[BaseException], __: Optional[TracebackType]) -> None:
        self._entered = False
        self._close(kind is None)

    def __del__(self) -> None:
        # After Ctrl-C at an unfortunate moment. A copy leaves the display alone.
        if self._display is not None and self._display.is_of(self):
            self._close(False)

    def update(self, amount: float = 1) -> None:
        """Counts an amount as done. Several threads may call it."""
        # The interpreter does not change threads within this statement.
        self._done += amount

    @property
    def label(self) -> str:
        """The label; a new one is shown with the next redraw."""
        return self._label

    @label.setter
    def label(self, label: str) -> None:
        self._label = _checked_label(label)
        if self._display is not None:
            self._display.set_label(label)

    def _open(self) -> None:
        if self._show and self._display is None:
            self._done = 0
            open_for(self, self._label, self._total, self._smile)
        # Not through __dict__: Python 3.11 slows down objects whose dictionary was looked at.
        if self._display is None:
            setattr(self, "update", _ignore)
        elif self.update is _ignore:
            delattr(self, "update")

    def _close(self, complete: bool) -> None:
        if self._display is not None:
            try:
                self._display.close(complete)
            finally:
                self._display.close(False)  # in case Ctrl-C has ended the other call
                self._display = None

    def _count(self) -> float:
        # The loop still works on its last item until it is complete.
        return self._done + (max(0, _taken(self._counter) - (not self._complete)) if self._counter is not None else 0)

    def _loop_ended(self, counter: "itertools.count[int]", complete: bool) -> None:
        if counter is self._counter:
            self._complete = self._complete or complete
            if not self._entered:
                self._close(complete)
            # Last, because Ctrl-C may end this call; the end of the iterator then repeats it.
            self._done, self._counter = self._count(), None


def _ignore(amount: float = 1) -> None:
    """Replaces update() while nothing is drawn."""


def _taken(counter: "itertools.count[int]") -> int:
    """Returns how many numbers were taken. The representation "count(8)" is the only way to see the next one."""
    return int(repr(counter)[len("count("):-1]) - 1


def _length(items: Any) -> Optional[int]:
    try:
        return len(items)
    except Exception:
        return None  # A loop over the items would not have asked.


def _checked_total(total: Optional[float]) -> Optional[float]:
    if total is None:
        return None
    try:
        if 0 <= total and (number := float(total)) < math.inf:
            return number
    except OverflowError:
        pass
    raise ValueError(f"total is not a number of 0 or more: {total}")


def _checked_label(label: str) -> str:
    # Also where nothing is drawn, so that a mistake shows there, too.
    if not isinstance(label, str):
        raise TypeError(f"label is not a string: {label!r}")
    return label


@overload
def progress(items: Iterable[T], total: Optional[float] = None, *, label: str = "", smile: bool = False,
             show: bool = True) -> Progress[T]: ...


@overload
def progress(items: None = None, total: Optional[float] = None, *, label: str = "", smile: bool = False,
             show: bool = True) -> Progress[Any]: ...


def progress(items: Optional[Iterable[Any]] = None, total: Optional[float] = None, *, label: str = "", smile: bool = False,
             show: bool = True) -> Progress[Any]:
    """Shows progress on the console: of a loop over the items, or of a "with" block that calls update().

    total is the amount of work, by default len(items). Without either, the display counts and shows the time spent. label may
    have 20 characters; "..." replaces the middle of a longer one. smile=True draws a face of six lines, which needs a total,
    instead of a bar. show=False draws nothing. Nothing is drawn into a pipe or a file.
    """
    return Progress(items, _length(items) if total is None else total, label, smile, show)
