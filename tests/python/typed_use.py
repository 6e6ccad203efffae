"""Uses of the package for mypy, which is not run but checked."""

from typing import Iterator

import kelplib


def lengths(words: list[str]) -> Iterator[int]:
    for word in kelplib.progress(words, label="reading", smile=True):
        yield len(word)
    with kelplib.progress(words, total=5.5) as display:
        display.update(0.5)
        display.label = "more"
        for word in display:
            yield len(word)


def blocks(sizes: list[int]) -> None:
    with kelplib.progress(total=sum(sizes), label="copying", show=False) as display:
        for size in sizes:
            display.update(size)


def wrong(words: list[str]) -> None:
    for word in kelplib.progress(words):
        word + 1  # type: ignore[operator]
    kelplib.progress(words, None, "label")  # type: ignore[call-overload]
    kelplib.progress(5)  # type: ignore[call-overload]
