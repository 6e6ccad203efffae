"""The benchmarks. Each function measures one and returns its tables."""

import callgrind
import measuring
from tables import KELPLIB, Table, compared, fastest, judged, time_text, times

LONG_WORDS = ["--output=a.txt", "--number=5", "--ratio=2.5", "in.txt"]
SHORT_WORDS = ["-o=a.txt", "-n=5", "--ratio=2.5", "in.txt"]
# Library, program, and the command line in the spelling of the library.
TOOLS = [
    (KELPLIB, "kelplib", SHORT_WORDS), ("getopt_long", "getopt_long", LONG_WORDS), ("gflags", "gflags", SHORT_WORDS),
    ("TCLAP", "tclap", SHORT_WORDS), ("CLI11", "cli11", LONG_WORDS), ("cxxopts", "cxxopts", LONG_WORDS),
    ("Boost.Program_options", "boost", LONG_WORDS), ("Abseil flags", "abseil", SHORT_WORDS)]
PARSERS = ["getopt_long", "CLI11", "cxxopts", "Boost.Program_options", "TCLAP", "gflags", "Abseil flags"]


def reader_of(measured, prefix):
    """Returns the function of key and library for tables.compared."""

    def seconds(key, library):
        figure = measured.get(f"{prefix}{key}/{library}")
        return None if figure is None else figure.per_item

    return seconds


def start(_, __):
    goal = 230000
    counts = {}
    floor = callgrind.of_process(str(measuring.PROGRAMS / "start_nothing"))
    lazily_bound = callgrind.of_process(str(measuring.PROGRAMS / "start_lazily_bound"), *SHORT_WORDS) - floor
    for library, program, words in TOOLS:
        measuring.log(f"  {library}")
        counts[library] = callgrind.of_process(str(measuring.PROGRAMS / f"start_{program}"), *words) - floor
    table = Table(
        "Start of a tool",
        f"A tool with ten options, started as `tool {' '.join(SHORT_WORDS)}` (in each library's own spelling), until it "
        f"has read every value: instructions of the whole process, minus the {floor:,} of a program that loads the C++ "
        "runtime and does nothing.",
        ["", "instructions"])
    for library, count in counts.items():
        table.add(f"**{library}**" if library == KELPLIB else library, f"{count:,}")
        if library == KELPLIB:
            table.add("goal", judged(count, goal, "{:,}".format))
            table.add("kelplib with lazy binding", f"{lazily_bound:,}")
    cheaper = [library for library in counts if library not in (KELPLIB, "getopt_long") and counts[library] <= counts[KELPLIB]]
    table.remark("Goal: fewer than with every other C++ library: "
                 + (f"**missed** ({', '.join(cheaper)})." if cheaper else "reached.")
                 + " getopt_long is C, and part of the C library that every program loads anyway. All of kelplib's names "
                 "are bound when it is loaded, even those that this tool never uses, so that the table of their addresses "
                 "is read-only before the tool runs.")
    return [table]


def compile_tool(_, effort):
    limit, most_bytes = "standard headers", 20 * 1024
    folder = measuring.ROOT / "benchmarks/start"
    sources = {limit: folder / "standard_headers.cpp",
               **{library: folder / f"tool_{program}.cpp" for library, program, _ in TOOLS}}
    seconds = measuring.compile_seconds(sources, effort)
    table = Table(
        "Compiling a tool",
        "Processor time (user and system) of `g++ -std=c++17 -O2 -c` for the single source of that tool, and for a source "
        "that only includes the standard headers of kelplib's interface; and the size of the optimised and stripped "
        "program, without the shared libraries that it loads.",
        ["", "time", "ratio", "program"])
    table.add(f"limit: {limit}", time_text(seconds[limit]), "", "")
    for library, program, _ in TOOLS:
        size = measuring.stripped_size(f"start_{program}")
        table.add(f"**{library}**" if library == KELPLIB else library, time_text(seconds[library]),
                  times(seconds[library] / seconds[limit]), f"{size:,} bytes")
        if library == KELPLIB:
            table.add("goal", "", judged(seconds[library] / seconds[limit], 1.25, times), judged(size, most_bytes, "{:,}".format))
    return [table]


def parse(measured, _):
    for options in (10, 100):
        measured.run(f"parse_{options}", [f"parse/{options}"])
    text = ("The program builds the tool from argc and argv with its options, reads the text of every option once, "
            "collects the positional arguments and destroys everything. The command line contains every option, half of "
            "its tokens are positional, and tokens have 5 to 20 bytes; several short command lines take turns. The limit "
            "reads every byte of every token once. Created before the measurement: kelplib's vector of options, "
            "getopt_long's table, Boost's description, and the global flags of gflags and Abseil. CLI11, cxxopts and TCLAP "
            "register their options in the parser object, within the measured time, as kelplib's tool does. gflags and "
            "Abseil return the last value of an option, all others the first.")
    return [parse_table(measured, 10, {"10 tokens": 12, "1,000 tokens": 4.5, "100,000 tokens": 5.5}, text),
            parse_table(measured, 100, {"100 tokens": 52, "1,000 tokens": 4, "100,000 tokens": 6},
                        "The same with ten times as many options, all of them on the command line.")]


def parse_table(measured, options, goals, text):
    columns = {head: head.split()[0].replace(",", "") for head in goals}
    per_token = reader_of(measured, f"parse/{options}/")

    def seconds(tokens, library):
        value = per_token(tokens, library)
        return None if value is None else value * int(tokens)

    table = compared(f"Parsing with {options} options", text, columns, "pass", PARSERS, goals, seconds)
    large = {head: key for head, key in columns.items() if int(key) >= 1000}
    fastest(table, large, large.values(), PARSERS, seconds, "every other library")
    table.remark("Boost.Program_options takes quadratic time and is omitted at 100,000 tokens.")
    return table


def read(measured, _):
    measured.run("read_one", ["read"])
    others = ["strtol", "strtod", "double-conversion", "string stream"]
    columns = {"int": "int", "short (12.5)": "short", "17 digits": "17 digits"}
    goals = dict(zip(columns, (4, 3.2, 3.7)))
    return [compared("Text to one number", "`Kelp::stringToValue` with a different text each time; the time per value. fmt "
                     "only writes numbers.", columns, "from_chars", others, goals, reader_of(measured, "read/"))]


def read_list(measured, _):
    measured.run("read_list", ["list"])
    others = ["strtol, strtod", "double-conversion", "string stream"]
    columns = {"int": "int", "short (12.5)": "short", "17 digits": "17 digits"}
    goals = dict(zip(columns, (1.4, 1.5, 1.5)))
    return [compared("Text to a list", "A text of 1,000,000 numbers, separated by \":\", read into a new vector; the time "
                     "per value. The limit knows the number of values beforehand; one string stream reads the whole text.",
                     columns, "from_chars", others, goals, reader_of(measured, "list/"))]


def locale(measured, _):
    measured.run("read_list", ["locale"])
    columns = {"int": "int", "short (12,5)": "short", "17 digits": "17 digits"}
    goals = dict.fromkeys(columns, 1)
    return [compared("Text to a list under another locale", "The same with numbers that have a decimal comma and points "
                     "between groups of three digits, under a global locale with that format. No other library uses the "
                     "locale.",
                     columns, "fresh string streams", [], goals, reader_of(measured, "locale/"))]


def write_text(measured, _):
    measured.run("write_text", ["text"])
    others = ["fmt", "double-conversion", "string stream", "printf"]
    columns = {head: head for head in ("17 digits", "3 decimals", "whole", "pairs")}
    goals = dict(zip(columns, (1.1, 1, 1, 1)))
    seconds = reader_of(measured, "text/")
    table = compared("Numbers to text", "1,000,000 numbers as one text by `std::to_string` of a vector, and as many pairs "
                     "of numbers with three decimals, each by `std::to_string` of a tuple; the time per value or pair. The "
                     "limit writes the shortest digits into one existing buffer. The stream and printf write 17 digits; "
                     "they and double-conversion have no pairs.", columns, "to_chars", others, goals, seconds)
    fastest(table, columns, columns.values(), ["fmt"], seconds, "fmt")
    return [table]


def redraw(measured, effort):
    measured.run("redraw", ["redraw"])
    seconds = reader_of(measured, "redraw/")
    tqdm = measuring.tqdm_seconds(effort)
    columns = {"to /dev/null": "null", "to a terminal": "terminal"}

    def with_tqdm(key, library):
        if library == "tqdm":
            return tqdm if key == "null" else None
        return seconds(key, library)

    table = compared("One redraw", "`KELP_progress` with a label and the time left, wall clock time. The limit is one "
                     "write of the same bytes. The terminal is a pseudo-terminal that a thread reads. printf and fflush "
                     "write the same bytes; tqdm, in Python, draws its own bar of about that length.",
                     columns, "write", ["printf and fflush", "tqdm"], dict(zip(columns, (2, 1.25))), with_tqdm)
    allocations = measured["redraw/null/kelplib"].allocations
    ratio = tqdm / seconds("null", KELPLIB)
    table.remark(f"Goal: no allocation: {'reached' if allocations == 0 else f'**missed** ({allocations:g} a redraw)'}. "
                 f"Goal: 100 times cheaper than tqdm: {'reached' if ratio >= 100 else '**missed**'} ({ratio:.0f} times).")
    return [table]


def kit(measured, effort):
    """Compares the tool of start() with one that reads the same options strictly."""
    programs = {KELPLIB: "kelplib", "kit": "kit"}
    seconds = measuring.compile_seconds(
        {name: measuring.ROOT / f"benchmarks/start/tool_{program}.cpp" for name, program in programs.items()}, effort)
    floor = callgrind.of_process(str(measuring.PROGRAMS / "start_nothing"))
    count = {name: callgrind.of_process(str(measuring.PROGRAMS / f"start_{program}"), *SHORT_WORDS) - floor
             for name, program in programs.items()}
    size = {name: measuring.stripped_size(f"start_{program}") for name, program in programs.items()}
    table = Table(
        "A tool with the kit",
        "The tool with ten options, written with the library alone and with the kit, whose code is part of the tool: start, time "
        "to compile and size as above.",
        ["", "instructions of the start", "time to compile", "program"])
    for name in programs:
        table.add("**with the kit**" if name == "kit" else "without the kit", f"{count[name]:,}", time_text(seconds[name]),
                  f"{size[name]:,} bytes")
    table.add("goal", judged(count["kit"] / count[KELPLIB], 1.15, times), judged(seconds["kit"] / seconds[KELPLIB], 1.5, times),
              judged(size["kit"] - size[KELPLIB], 60000, "{:,} bytes more".format))
    measured.run("kit_advance", ["advance"])
    goal = 50e-9
    costs = Table("Progress that draws nothing", "One call of `Kelpkit::Progress::advance`; reading the clock, for comparison.",
                  ["", "into a file", "on a console, nothing due"])
    advance = [measured[f"advance/{place}"].seconds for place in ("file", "console")]
    costs.add("**advance**", *map(time_text, advance))
    costs.add("goal", *(judged(cost, goal, time_text) for cost in advance))
    costs.add("the clock", "", time_text(measured["advance/clock"].seconds))
    return [table, costs]
