"""The benchmarks. Each function measures one and returns its tables."""

import callgrind
import goals
import measuring
from tables import KELPLIB, Table, compared, fastest, time_text, times

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


def millions(count):
    return f"{count / 1e6:,.0f} M"


def start(_, __):
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
            table.add("goal", table.judge(count, goals.START, "{:,}".format))
            table.add("kelplib with lazy binding", f"{lazily_bound:,}")
    cheaper = [library for library in counts if library not in (KELPLIB, "getopt_long") and counts[library] <= counts[KELPLIB]]
    if cheaper:
        table.missed(goals.START_FIRST)
    table.remark("Goal: fewer than with every other C++ library: "
                 + (f"**missed** ({', '.join(cheaper)})." if cheaper else "reached.")
                 + " getopt_long is C, and part of the C library that every program loads anyway. All of kelplib's names "
                 "are bound when it is loaded, even those that this tool never uses, so that the table of their addresses "
                 "is read-only before the tool runs.")
    return [table]


def compile_tool(_, effort):
    limit = "standard headers and settings"
    folder = measuring.ROOT / "benchmarks/start"
    sources = {limit: folder / "standard_headers.cpp",
               **{library: folder / f"tool_{program}.cpp" for library, program, _ in TOOLS}}
    seconds = measuring.compile_seconds(sources, effort)
    measuring.log("  instructions")
    counts = measuring.compile_instructions(sources, effort)
    table = Table(
        "Compiling a tool",
        "`g++ -std=c++17 -O2` for the single source of that tool: the instructions of the compiler, which are reproducible, and its "
        "processor time (user and system). The limit includes the standard headers of kelplib's interface and makes and checks the "
        "settings, as every tool does. The last column is the size of the optimised and stripped program, without the shared "
        "libraries that it loads.",
        ["", "instructions", "ratio", "time", "program"])
    table.add(f"limit: {limit}", millions(counts[limit]), "", time_text(seconds[limit]), "")
    for library, program, _ in TOOLS:
        size = measuring.stripped_size(f"start_{program}")
        table.add(f"**{library}**" if library == KELPLIB else library, millions(counts[library]),
                  times(counts[library] / counts[limit]), time_text(seconds[library]), f"{size:,} bytes")
        if library == KELPLIB:
            table.add("goal", "", table.judge(counts[library] / counts[limit], goals.COMPILE, times), "",
                      table.judge(size, goals.PROGRAM, "{:,}".format))
    return [table]


def parse(measured, _):
    for options in (10, 100):
        measured.run(f"parse_{options}", [f"parse/{options}"])
    text = ("The program builds the tool from argc and argv with its options, reads the text of every option once, "
            "collects the positional arguments and destroys everything. The command line contains every option, half of "
            "its tokens are positional, and tokens have 5 to 20 bytes; several short command lines take turns. All libraries read "
            "the same lines, and register their options in the same random order. The limit reads every byte of every token once; "
            "its ratio depends on the processor, and so the ratio to getopt_long is in a row of its own. Created before the "
            "measurement: kelplib's vector of options, getopt_long's table, Boost's description, and the global flags of gflags and "
            "Abseil. CLI11, cxxopts and TCLAP register their options in the parser object, within the measured time, as kelplib's "
            "tool does. gflags and Abseil return the last value of an option, all others the first.")
    return [parse_table(measured, 10, text),
            parse_table(measured, 100, "The same with ten times as many options, all of them on the command line. kelplib distinguishes "
                        "options by their first byte, so from the 27th option on its names begin with a digit, punctuation, or a byte "
                        "above 0x7f where the other libraries' begin with a letter; lengths and values are the same.")]


def parse_table(measured, options, text):
    columns = {head: head.split()[0].replace(",", "") for head in goals.PARSE[options]}
    per_token = reader_of(measured, f"parse/{options}/")

    def seconds(tokens, library):
        value = per_token(tokens, library)
        return None if value is None else value * int(tokens)

    table = compared(f"Parsing with {options} options", text, columns, "pass", PARSERS, goals.PARSE[options], seconds)
    table.add("kelplib to getopt_long", *(times(seconds(key, KELPLIB) / seconds(key, "getopt_long")) for key in columns.values()))
    large = {head: key for head, key in columns.items() if int(key) >= 1000}
    fastest(table, large, large.values(), PARSERS, seconds, "every other library", goals.PARSE_FIRST)
    table.remark("Boost.Program_options takes quadratic time and is omitted at 100,000 tokens.")
    return table


def read(measured, _):
    measured.run("read_one", ["read"])
    others = ["strtol", "strtod", "double-conversion", "string stream"]
    columns = {"int": "int", "short (12.5)": "short", "17 digits": "17 digits"}
    seconds = reader_of(measured, "read/")
    table = compared("Text to one number", "`Kelp::stringToValue` with a different text each time; the time per value. fmt "
                     "only writes numbers.", columns, "from_chars", others, goals.READ, seconds)
    real = {head: key for head, key in columns.items() if key != "int"}
    fastest(table, real, real.values(), ["double-conversion"], seconds, "double-conversion", goals.READ_FIRST)
    return [table]


def read_list(measured, _):
    measured.run("read_list", ["list"])
    others = ["strtol, strtod", "double-conversion", "string stream"]
    columns = {"int": "int", "short (12.5)": "short", "17 digits": "17 digits"}
    return [compared("Text to a list", "A text of 1,000,000 numbers, separated by \":\", read into a new vector; wall clock "
                     "time per value. kelplib consumes the text, and each reader gets a fresh copy, made before the measurement. "
                     "The limit knows the number of values beforehand; one string stream reads the whole text.",
                     columns, "from_chars", others, goals.LIST, reader_of(measured, "list/"))]


def locale(measured, _):
    measured.run("read_list", ["locale"])
    columns = {"int": "int", "short (12,5)": "short", "17 digits": "17 digits"}
    return [compared("Text to a list under another locale", "The same with numbers that have a decimal comma and points "
                     "between groups of three digits, under a global locale with that format. No other library uses the "
                     "locale.",
                     columns, "fresh string streams", [], goals.LOCALE, reader_of(measured, "locale/"))]


def write_text(measured, _):
    measured.run("write_text", ["text"])
    others = ["fmt", "double-conversion", "string stream", "printf"]
    columns = {head: head for head in ("17 digits", "3 decimals", "whole", "pairs")}
    seconds = reader_of(measured, "text/")
    table = compared("Numbers to text", "1,000,000 numbers as one text by `std::to_string` of a vector, and as many pairs "
                     "of numbers with three decimals, each by `std::to_string` of a tuple; the time per value or pair. The "
                     "limit writes the shortest digits into one existing buffer. fmt (its headers, compiled like this library's), "
                     "double-conversion and printf write into a text that has room for all, without a copy. The stream and printf write 17 digits; "
                     "they and double-conversion have no pairs.", columns, "to_chars", others, goals.TEXT, seconds)
    fastest(table, columns, columns.values(), ["fmt"], seconds, "fmt", goals.FMT_FIRST)
    ratio = seconds("17 digits", KELPLIB) / seconds("17 digits", "fmt")
    table.remark(f"Goal for the ratio to fmt with 17 digits, {times(ratio)}: {table.judge(ratio, goals.FMT_AHEAD, times)}.")
    return [table]


def redraw(measured, effort):
    measured.run("redraw", ["redraw"])
    seconds = reader_of(measured, "redraw/")
    tqdm = measuring.tqdm_seconds(effort)
    columns = {"to /dev/null": "null", "to a terminal": "terminal", "without a pause": "busy"}

    def with_tqdm(key, library):
        if library == "tqdm":
            return tqdm if key == "null" else None
        return seconds(key, library)

    table = compared("One redraw", "`KELP_progress` with a label and the time left, wall clock time. The limit is one "
                     "write of the same bytes, ready in memory. A tool redraws a few times a second, and so in the second column the "
                     "terminal (a pseudo-terminal) is read empty before each redraw, outside the measured time. In the third, redraws follow one another while a thread reads: writes in a tight loop keep the "
                     "reader awake, and work between two writes counts more than once. fwrite and fflush write the ready line; printf "
                     "and fflush format it and write the same bytes; tqdm, in Python, draws its own bar of about that length.",
                     columns, "write", ["fwrite and fflush", "printf and fflush", "tqdm"], goals.REDRAW, with_tqdm)
    allocations = measured["redraw/null/kelplib"].allocations
    ratio = tqdm / seconds("null", KELPLIB)
    if ratio < goals.TQDM_TIMES:
        table.missed(goals.TQDM_WHY)
    table.remark(f"Goal: no allocation: {'reached' if allocations == 0 else f'**missed** ({allocations:g} a redraw)'}. "
                 f"Goal: {goals.TQDM_TIMES} times cheaper than tqdm: {'reached' if ratio >= goals.TQDM_TIMES else '**missed**'} ({ratio:.0f} times).")
    return [table]


def kit(measured, effort):
    """Compares the tool of start() with one that reads the same options strictly."""
    programs = {KELPLIB: "kelplib", "kit": "kit"}
    sources = {name: measuring.ROOT / f"benchmarks/start/tool_{program}.cpp" for name, program in programs.items()}
    compiled = measuring.compile_instructions(sources, effort)
    floor = callgrind.of_process(str(measuring.PROGRAMS / "start_nothing"))
    count = {name: callgrind.of_process(str(measuring.PROGRAMS / f"start_{program}"), *SHORT_WORDS) - floor
             for name, program in programs.items()}
    size = {name: measuring.stripped_size(f"start_{program}") for name, program in programs.items()}
    table = Table(
        "A tool with the kit",
        "The tool with ten options, written with the library alone and with the kit, whose code is part of the tool: start, "
        "instructions of the compiler and size as above.",
        ["", "start", "compiler", "program"])
    for name in programs:
        table.add("**with the kit**" if name == "kit" else "without the kit", f"{count[name]:,}", millions(compiled[name]),
                  f"{size[name]:,} bytes")
    table.add("goal", table.judge(count["kit"] / count[KELPLIB], goals.KIT_START, times),
              table.judge(compiled["kit"] / compiled[KELPLIB], goals.KIT_COMPILE, times),
              table.judge(size["kit"] - size[KELPLIB], goals.KIT_BYTES, "{:,} bytes more".format))
    return [table, kit_lines(measured), kit_progress(measured)]


def kit_lines(measured):
    """Compares the kit's strict reading with the library's, and with the libraries that refuse unknown options, too."""
    measured.run("kit_read_line", ["line"])
    columns = {f"{count} options, {count} tokens": count for count in (10, 100)}
    others = ["CLI11", "cxxopts", "Boost.Program_options", "TCLAP"]
    for count in columns.values():
        measured.run(f"parse_{count}", [f"parse/{count}"])

    def seconds(count, reader):
        name = f"line/{count}/{reader}" if reader in ("kit", KELPLIB) else f"parse/{count}/{count}/{reader}"
        return measured[name].per_item * count

    def cell(count, reader):
        return f"{time_text(seconds(count, reader))} ({times(seconds(count, reader) / seconds(count, KELPLIB))})"

    table = Table("Strict reading with the kit", "The lines of the parsing tables on which every option occurs once (the kit refuses "
                  "repeated ones), read by `Kelpkit::CommandLine`, which refuses what it does not know; ratios to the library.",
                  ["", *columns])
    table.add("the library", *(time_text(seconds(count, KELPLIB)) for count in columns.values()))
    table.add("**kit**", *(cell(count, "kit") for count in columns.values()))
    table.add("goal", *(table.judge(seconds(count, "kit") / seconds(count, KELPLIB), goals.KIT_LINE, times)
                        for count in columns.values()))
    for other in others:
        table.add(other, *(cell(count, other) for count in columns.values()))
    ahead = sorted({other for other in others for count in columns.values() if seconds(count, other) <= seconds(count, "kit")})
    if ahead:
        table.missed(goals.KIT_FIRST)
    table.remark("Goal: faster than every other library that refuses unknown options: "
                 + (f"**missed** ({', '.join(ahead)})." if ahead else "reached."))
    return table


def kit_progress(measured):
    measured.run("kit_advance", ["advance"])
    costs = Table("Progress that draws nothing", "One call of `Kelpkit::Progress::advance`; reading the clock, for comparison.",
                  ["", "into a file", "on a console, nothing due"])
    advance = [measured[f"advance/{place}"].seconds for place in ("file", "console")]
    costs.add("**advance**", *map(time_text, advance))
    costs.add("goal", *(costs.judge(cost, goals.ADVANCE, time_text) for cost in advance))
    costs.add("the clock", "", time_text(measured["advance/clock"].seconds))
    return costs
