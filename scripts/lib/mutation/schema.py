"""Writes a source in which every mutant is there at once: the one whose number is in the environment takes effect."""

import re

NAMED = re.compile(r"^(?P<before>.*?)(?P<name>\w+)\[\] = (?P<text>\".*\");$")
CONSTANT = re.compile(r"(?<!if )constexpr (?P<rest>[^;{]*?\b(?P<name>\w+)(?:\[\w*\])?(?: = |\{))")

HEADER = """\
#pragma once
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <type_traits>

namespace kelplib_mutation {

struct State {
    int chosen = std::getenv("KELPLIB_MUTANT") == nullptr ? 0 : std::atoi(std::getenv("KELPLIB_MUTANT"));
    unsigned char* reached = map(std::getenv("KELPLIB_MUTANTS_REACHED"));

    // A file that several processes write into, so that what a child reaches counts, however it ends.
    static unsigned char* map(const char* name) {
        const int file = name == nullptr ? -1 : open(name, O_RDWR);
        void* bytes = mmap(nullptr, COUNT, PROT_READ | PROT_WRITE,
                           file == -1 ? MAP_PRIVATE | MAP_ANONYMOUS : MAP_SHARED, file, 0);
        if (file != -1) {
            close(file);
        }
        return static_cast<unsigned char*>(bytes);
    }
};

inline bool on(int number) {
    static const State state;
    state.reached[number] = 1;
    return number == state.chosen;
}

}  // namespace kelplib_mutation
"""


def header(count):
    """Room for whole pages of them: with a few more changes the text stays the same, and all that includes it need not be
    built anew."""
    return HEADER.replace("COUNT", str((count // 4096 + 1) * 4096))


def chosen(mutant):
    on = f"kelplib_mutation::on({mutant.number})"
    # What the compiler computes by itself keeps its value.
    return f"(!__builtin_is_constant_evaluated() && {on})" if mutant.constant.endswith("()") else on


def render(source, mutants, kept, compiled=None):
    """The text with all mutants that can be chosen while the program runs, and with the compiled one in its place.
    The kept constants stay known to the compiler. Lines keep their numbers."""
    switched = [mutant for mutant in mutants if not mutant.fixed]
    text = render_part(source, 0, len(source), [mutant for mutant in switched if not mutant.array], compiled)
    return relax_constants(text, kept, [mutant for mutant in switched if mutant.array])


def render_part(source, start, end, mutants, compiled):
    """What stands from start to end; the mutants lie within it."""
    result, position, index = "", start, 0
    extents = sorted({(m.start, m.end) for m in mutants} | ({(compiled.start, compiled.end)} if compiled else set()),
                     key=lambda extent: (extent[0], -extent[1]))
    extents = [extent for extent in extents if start <= extent[0] and extent[1] <= end]
    while index < len(extents):
        first, last = extents[index]
        result += source[position:first] + render_expression(source, first, last, mutants, compiled)
        position = last
        while index < len(extents) and extents[index][0] < last:
            index += 1
    return result + source[position:end]


def render_expression(source, start, end, mutants, compiled):
    if compiled and (compiled.start, compiled.end) == (start, end):
        return f"({compiled.text})" if not compiled.array else compiled.text
    own = [mutant for mutant in mutants if (mutant.start, mutant.end) == (start, end)]
    inner = [mutant for mutant in mutants
             if start <= mutant.start and mutant.end <= end and (mutant.start, mutant.end) != (start, end)]
    within = compiled if compiled and start <= compiled.start and compiled.end <= end else None
    text = render_part(source, start, end, inner, within)
    values = [mutant for mutant in own if not mutant.statement]
    if values:
        text = "(" + "".join(f"{chosen(m)} ? ({one_line(m.text)}) : " for m in values) + f"({text}))"
    for mutant in own:
        if mutant.statement:
            text = f"({chosen(mutant)} ? static_cast<void>(0) : static_cast<void>({text}))"
    return text


def one_line(text):
    return " ".join(text.split())


def relax_constants(text, kept, arrays):
    """Constants that the compiler need not know are computed when the program starts, so that their mutants can be chosen."""
    lines = text.split("\n")
    for mutant in arrays:
        match = NAMED.match(lines[mutant.line - 1])
        kind = match["before"].replace("constexpr", "static constexpr") if "inline" not in match["before"] else match["before"]
        size = f"sizeof({match['text']})"
        name = f"{match['name']}_texts"
        lines[mutant.line - 1] = (f"{kind}{name}[2][{size}] = {{{match['text']}, {mutant.text}}}; "
                                  f"{'inline ' if 'inline' in kind else 'static '}const char (&{match['name']})[{size}] = "
                                  f"{name}[{chosen(mutant)} ? 1 : 0];")
    done = {mutant.line - 1 for mutant in arrays}
    return "\n".join(line if index in done else CONSTANT.sub(lambda m: relaxed(m, kept), line)
                     for index, line in enumerate(lines))


def relaxed(match, kept):
    return match[0] if match["name"] in kept else f"const {match['rest']}"
