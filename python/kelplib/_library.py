"""The functions and the data of the shared library. Importing this module loads the library and checks it."""

import ctypes
import os
import sys

_MAJOR = 1
_NAME = "kelplib.dll" if sys.platform == "win32" else f"libkelplib.so.{_MAJOR}"
_VARIABLE = "KELPLIB_LIBRARY"
_ADVICE = (f"Install it (on Debian: the package libkelplib{_MAJOR}), or set {_VARIABLE} to the path of the library. "
           "To find a library that is installed elsewhere, add its folder to "
           + ("PATH." if sys.platform == "win32" else "LD_LIBRARY_PATH."))


class Settings(ctypes.Structure):
    """KELP_GlobalProgress."""

    _fields_ = [("total", ctypes.c_double), ("width", ctypes.c_int), ("text", ctypes.c_char * 128),
                ("start_time", ctypes.c_double), ("last_blink", ctypes.c_double), ("smile", ctypes.c_int),
                ("terminal_env", ctypes.c_char_p)]


def _place() -> tuple[str, str]:
    """Returns what to load, a path or a name for the system's loader, and a description of where that is."""
    named = os.environ.get(_VARIABLE)
    if named:
        return named, f"the file that {_VARIABLE} names"
    beside = os.path.join(os.path.dirname(os.path.abspath(__file__)), _NAME)
    if os.path.exists(beside):
        return beside, "the file in the folder of the package"
    if sys.platform == "win32":
        # CDLL does not search PATH.
        for folder in os.environ.get("PATH", "").split(os.pathsep):
            if folder and os.path.exists(os.path.join(folder, _NAME)):
                return os.path.join(folder, _NAME), "found by PATH"
        return _NAME, f"not in PATH, the folder {os.path.dirname(beside)}, or a folder of os.add_dll_directory()"
    return _NAME, f"searched in the folder {os.path.dirname(beside)}, LD_LIBRARY_PATH and the system's folders"


def _load() -> ctypes.CDLL:
    place, description = _place()
    try:
        library = ctypes.CDLL(place)
    except OSError as error:
        reason = str(error)
        if os.path.isfile(place) and reason == f"{place}: cannot open shared object file: No such file or directory":
            reason = f"{place}: made for another kind of processor"  # the C library's text for that misleads
        raise ImportError(f"kelplib: cannot load {place} ({description}): {reason}. {_ADVICE}", name="kelplib",
                          path=place) from None
    if not _is_known(library):
        raise ImportError(f"kelplib: {place} ({description}) is not version {_MAJOR} of the library kelplib. {_ADVICE}",
                          name="kelplib", path=place)
    return library


def _is_known(library: ctypes.CDLL) -> bool:
    """Declares the functions, and checks that the settings have the expected layout, which identifies the major version."""
    try:
        for name, result, *parameters in (
                ("time_stamp", ctypes.c_double), ("rewind_cursor", ctypes.c_int, ctypes.c_uint),
                ("progress_global_init", ctypes.c_int, ctypes.c_double, ctypes.c_int, ctypes.c_char_p, ctypes.c_int),
                ("progress_global", ctypes.c_int, ctypes.c_double)):
            function = getattr(library, f"KELP_{name}")
            function.restype, function.argtypes = result, parameters
        settings = Settings.in_dll(library, "KELP_GlobalProgress")
    except (AttributeError, ValueError):
        return False
    # Another part of the process may use the display.
    before = bytes(settings)
    earliest = library.KELP_time_stamp()
    library.KELP_progress_global_init(0.75, 123, b"kelplib", 2)
    known = ((settings.total, settings.width, settings.text) == (0.75, 123, b"kelplib")
             and earliest <= settings.start_time <= library.KELP_time_stamp()
             and settings.smile == (2 if settings.terminal_env is None else 0))
    ctypes.memmove(ctypes.addressof(settings), before, len(before))
    return known


_library = _load()
settings = Settings.in_dll(_library, "KELP_GlobalProgress")
time_stamp = _library.KELP_time_stamp
rewind_cursor = _library.KELP_rewind_cursor
initialise = _library.KELP_progress_global_init
draw = _library.KELP_progress_global
