"""Writes a source that contains all of its mutants. The environment chooses the one that takes effect; see switch.h."""

import re

NAMED = re.compile(r"^(?P<before>.*?)(?P<name>\w+)\[\] = (?P<text>\".*\");$")
CONSTANT = re.compile(r"(?<!if )constexpr (?P<rest>[^;{]*?\b(?P<name>\w+)(?:\[\w*\])?(?: = |\{))")


def chosen(mutant):
    on = f"kelplib_mutation::on({mutant.number})"
    # A value that the compiler computes keeps its value.
    return f"(!__builtin_is_constant_evaluated() && {on})" if mutant.constant.endswith("()") else on


def render(source, mutants, kept, compiled=None):
    """Returns the source with every mutant that can be chosen at run time, and with `compiled` applied. The constants in
    `kept` stay known to the compiler. Line numbers do not change."""
    switched = [mutant for mutant in mutants if not mutant.fixed]
    text = render_part(source, 0, len(source), [mutant for mutant in switched if not mutant.array], compiled)
    return relax_constants(text, kept, [mutant for mutant in switched if mutant.array])


def render_part(source, start, end, mutants, compiled):
    """Renders the source from start to end with the mutants within it."""
    result, position = "", start
    extents = {(mutant.start, mutant.end) for mutant in (*mutants, *([compiled] if compiled else []))}
    for first, last in sorted(extents, key=lambda extent: (extent[0], -extent[1])):
        if position <= first and last <= end:
            result += source[position:first] + render_expression(source, first, last, mutants, compiled)
            position = last
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
        text = "(" + "".join(f"{chosen(m)} ? ({' '.join(m.text.split())}) : " for m in values) + f"({text}))"
    for mutant in own:
        if mutant.statement:
            text = f"({chosen(mutant)} ? static_cast<void>(0) : static_cast<void>({text}))"
    return text


def relax_constants(text, kept, arrays):
    """Makes constants that the compiler need not know run-time values, so that their mutants can be chosen."""
    lines = text.split("\n")
    for mutant in arrays:
        match = NAMED.match(lines[mutant.line - 1])
        kind = match["before"]
        kind = kind if "inline" in kind else kind.replace("constexpr", "static constexpr")
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
