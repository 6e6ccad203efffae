"""The goals: set before the measurement, those of the kit after a first one. Tables and verdicts are made from them alone."""

import typing


class Goal(typing.NamedTuple):
    most: float  # the largest allowed value, mostly a ratio to the limit
    why: str  # printed while the goal is missed


REGISTRY = ("Most of a short line is the registration of the options, which the interface makes part of building a tool.")
PIECES = "The number of values is not known beforehand, so that every separator is examined and the vector grows."
TERMINAL = "A redraw reads the clock and the locale and formats the line, which the limit does not."

START = Goal(230_000, "Almost all of it is the loader, which looks up every name when the library is loaded.")
START_FIRST = "The loader looks up every name of a shared library; a library of headers alone has few."
COMPILE = Goal(1.2, "The public classes and their templates are compiled in every tool.")
PROGRAM = Goal(16 * 1024, "The tool contains the destructor of its object, and some code for each type that it reads.")
PARSE = {
    10: {"10 tokens": Goal(16, REGISTRY),
         "1,000 tokens": Goal(4.5, "Every token is copied, and the copies are destroyed."),
         "100,000 tokens": Goal(5.5, "Every token is copied, and the copies no longer fit the caches.")},
    100: {"100 tokens": Goal(52, REGISTRY),
          "1,000 tokens": Goal(4, "A hundred options are registered for a thousand tokens. " + REGISTRY),
          "100,000 tokens": Goal(6, "Every token is copied, and the copies no longer fit the caches.")},
}
PARSE_FIRST = ("getopt_long is C: it checks nothing, keeps nothing, and leaves a pointer into argv for its caller to copy.")
READ_CHECKS = "An interface without errors looks at the locale and at what follows the number; from_chars does neither."
READ = {"int": Goal(4, READ_CHECKS), "short (12.5)": Goal(3.2, READ_CHECKS), "17 digits": Goal(3.7, READ_CHECKS)}
LIST = {"int": Goal(1.45, PIECES), "short (12.5)": Goal(1.5, PIECES), "17 digits": Goal(1.5, PIECES)}
LOCALE = {head: Goal(1, "Each value passes through a stream.") for head in ("int", "short (12,5)", "17 digits")}
READ_FIRST = ("double-conversion reads the text where it lies. The interface of kelplib demands a copy and the format of the global "
              "locale.")
TEXT = {"17 digits": Goal(0.85, "The shortest digits take two multiplications of 128 bits."),
        **{head: Goal(1, "The number is tried with few digits first.") for head in ("3 decimals", "whole", "pairs")}}
FMT_FIRST = "fmt, too, has a fast conversion of shortest digits, and it writes into a text with room for all."
FMT_AHEAD = Goal(0.8, FMT_FIRST)
REDRAW = {"to /dev/null": Goal(2, TERMINAL), "to a terminal": Goal(1.2, TERMINAL),
          "without a pause": Goal(1.2, TERMINAL + " The reader and the system work at the same time, so that a pause between two "
                                  "writes costs more than its length.")}
TQDM_TIMES = 100
TQDM_WHY = "Most of kelplib's time is the system's, which writes the line."
FURTHER_TOKEN = Goal(1.25, "More keys are compared for every option.")
KIT_START = Goal(1.15, "The kit also checks every option and argument, and its code is relocated with the tool.")
KIT_COMPILE = Goal(1.5, "The headers of the kit come in addition.")
KIT_BYTES = Goal(60_000, "The kit is linked into the tool.")
KIT_LINE = Goal(2, "The kit searches the definition for each token and keeps the token for its messages.")
KIT_FIRST = "The strict reader builds a table of all forms for every line."
ADVANCE = Goal(50e-9, "The clock is read too often.")
PYTHON_CALL = "Each is the call of a function that does nothing."
PYTHON_THREAD = "A thread draws, which shares the interpreter with the loop."
# Ratios to tqdm.
PYTHON = {("into a file", "loop"): Goal(0.5, PYTHON_CALL), ("on a terminal", "loop"): Goal(0.5, PYTHON_THREAD),
          ("into a file", "update"): Goal(1, PYTHON_CALL), ("on a terminal", "update"): Goal(0.5, PYTHON_THREAD)}
