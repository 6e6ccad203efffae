"""Progress of long work on the console, drawn by the shared library kelplib:

    for item in kelplib.progress(items, label="reading"):
        read(item)

    with kelplib.progress(total=size, label="copying", smile=True) as display:
        for block in blocks:
            copy(block)
            display.update(len(block))

Importing the package loads the library. If that fails, it raises ImportError, which says where it has looked.
"""

from ._progress import Progress, progress

__all__ = ["Progress", "progress"]
