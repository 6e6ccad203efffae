"""Tables of measurements: the limit, kelplib with its goals, and other libraries."""

KELPLIB = "kelplib"


def time_text(seconds):
    for unit, name in ((1, "s"), (1e-3, "ms"), (1e-6, "µs")):
        if seconds >= unit:
            return f"{seconds / unit:.3g} {name}"
    return f"{seconds * 1e9:.3g} ns"


def times(ratio):
    """Formats a ratio: x0.97, x5.20, x52."""
    return f"x{ratio:.2f}" if ratio < 10 else f"x{ratio:,.0f}"


class Table:
    """Rows of cells below a head, with a title, a text before and remarks after them."""

    def __init__(self, title, text, head):
        self.title, self.text, self.head = title, text, head
        self.lines, self.remarks, self.reasons = [], [], []

    def add(self, *cells):
        self.lines.append([str(cell) for cell in cells])

    def remark(self, text):
        self.remarks.append(text)

    def judge(self, value, goal, write):
        """Returns the cell that judged() writes, and remarks why the goal is missed if it is."""
        if value > goal.most:
            self.missed(goal.why)
        return judged(value, goal.most, write)

    def missed(self, why):
        if why not in self.reasons:
            self.reasons.append(why)

    def all_remarks(self):
        return self.remarks + (["Why goals are missed: " + " ".join(self.reasons)] if self.reasons else [])

    def markdown(self):
        alignment = ["---"] + ["---:"] * (len(self.head) - 1)
        rows = [self.head, alignment, *self.lines]
        table = "\n".join("| " + " | ".join(row) + " |" for row in rows)
        return "\n\n".join([f"## {self.title}", self.text, table, *self.all_remarks()])

    def plain(self):
        rows = [[cell.replace("**", "") for cell in row] for row in [self.head, *self.lines]]
        widths = [max(len(row[i]) for row in rows) for i in range(len(self.head))]
        table = "\n".join("  ".join([row[0].ljust(widths[0]), *(cell.rjust(width) for cell, width in zip(row[1:], widths[1:]))])
                          for row in rows)
        return "\n".join([f"\n{self.title}", table, *self.all_remarks()]).replace("**", "")


def judged(value, goal, write):
    """Returns the goal and whether the value reaches it."""
    return f"at most {write(goal)}: {'reached' if value <= goal else '**missed**'}"


def compared(title, text, columns, limit, others, goals, seconds):
    """Returns a table of times with their ratios to the limit. `columns` maps a head to the key of its figures, `goals` a head
    to the Goal of the ratio. seconds(key, library) returns None if the library cannot do the work."""

    def cell(key, library):
        value = seconds(key, library)
        return "–" if value is None else f"{time_text(value)} ({times(value / seconds(key, limit))})"

    table = Table(title, text, ["", *columns])
    table.add(f"limit: {limit}", *(time_text(seconds(key, limit)) for key in columns.values()))
    table.add(f"**{KELPLIB}**", *(cell(key, KELPLIB) for key in columns.values()))
    table.add("goal", *(table.judge(seconds(key, KELPLIB) / seconds(key, limit), goals[head], times) if head in goals else ""
                        for head, key in columns.items()))
    for other in others:
        table.add(other, *(cell(key, other) for key in columns.values()))
    return table


def fastest(table, heads, keys, others, seconds, name, why):
    """Adds a remark whether kelplib is faster than the others in these columns. `name` describes the others."""
    ahead = {head: [other for other in others
                    if seconds(key, other) is not None and seconds(key, other) <= seconds(key, KELPLIB)]
             for head, key in zip(heads, keys)}
    missed = "; ".join(f"{', '.join(names)} at {head}" for head, names in ahead.items() if names)
    if missed:
        table.missed(why)
    table.remark(f"Goal: faster than {name} at {', '.join(heads)}: "
                 + (f"**missed** ({missed})." if missed else "reached."))
