"""How the cost grows with the command line, the lists and the texts."""

import goals
import measuring
from rows import PARSERS
from tables import Table, time_text, times

SIZES = (1000, 10000, 100000, 1000000)
# What grows, and the name of its figures; "{}" is the number of items.
KINDS = {
    "tokens, 10 options": "parse/10/{}/kelplib",
    "tokens, 100 options": "parse/100/{}/kelplib",
    "list of int": "growth/list int/{}/kelplib",
    "list of 17 digits": "growth/list 17 digits/{}/kelplib",
    "numbers to text": "growth/text 17 digits/{}/kelplib",
    "bytes of one value": "growth/value/{}/kelplib",
}


def growth(measured, _):
    for options in (10, 100):
        measured.run(f"parse_{options}", [f"parse/{options}"])
    measured.run("parse_10", ["growth"])
    measured.run("read_list", ["growth"])
    measured.run("write_text", ["growth"])
    table = Table("Growth", "kelplib's time per token, value or byte of a text. It stays the same where the cost is linear "
                  "and grows where caches no longer hold the data.",
                  ["", *(f"{size:,}" for size in SIZES), "last to first"])
    for kind, name in KINDS.items():
        figures = [measured.get(name.format(size)) for size in SIZES]
        known = [figure.per_item for figure in figures if figure]
        table.add(kind, *(time_text(figure.per_item) if figure else "" for figure in figures), times(known[-1] / known[0]))
    further = {options: (total(measured, options, 100000) - total(measured, options, 10000)) / 90000 for options in (10, 100)}
    table.remark("A further token costs, from 10,000 to 100,000 tokens and so without the registration of the options, "
                 f"{time_text(further[10])} with 10 options and {time_text(further[100])} with 100. Goal for "
                 f"their ratio: {table.judge(further[100] / further[10], goals.FURTHER_TOKEN, times)}.")
    return [table]


def total(measured, options, tokens):
    return measured[f"parse/{options}/{tokens}/kelplib"].seconds


def curves(measured):
    """Returns file name, title, axis labels and the points of each curve for both plots."""
    tokens = (10, 100, 1000, 10000, 100000)

    def points(name, sizes):
        return [(size, measured[name.format(size)].per_item * 1e9) for size in sizes if name.format(size) in measured]

    libraries = {library: points(f"parse/10/{{}}/{library}", tokens) for library in ("pass", "kelplib", *PARSERS)}
    own = {kind: points(name, SIZES) for kind, name in KINDS.items()}
    return [("benchmarks-parse.svg", "Parsing with 10 options", "tokens", "nanoseconds per token", libraries),
            ("benchmarks-growth.svg", "Cost of one item in kelplib", "items", "nanoseconds per item", own)]


def plot(measured):
    """Draws the plots into docs. Returns their file names."""
    names = []
    for name, title, items, unit, lines in curves(measured):
        measuring.log(f"  docs/{name}")
        measuring.draw(name, title, items, unit, lines)
        names.append(name)
    return names
