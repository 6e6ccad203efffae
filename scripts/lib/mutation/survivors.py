"""The list of the mutants that no test can notice, each with the reason: tests/mutation/survivors.txt."""


def read(path):
    """The entries: (file, line, change) to reason."""
    entries = {}
    if not path.exists():
        return entries
    for number, block in enumerate(path.read_text(encoding="utf-8").split("\n\n")):
        fields = {}
        name = ""
        for line in block.splitlines():
            if line.startswith("#") or not line.strip():
                continue
            if line.startswith("    "):
                fields[name] += " " + line.strip()
                continue
            name, _, value = line.partition(": ")
            fields[name] = value
        if fields and sorted(fields) != ["change", "file", "line", "reason"]:
            raise SystemExit(f"{path.name}: entry {number + 1} needs file, line, change and reason")
        if fields:
            entries[(fields["file"], fields["line"], fields["change"])] = fields["reason"]
    return entries


def entry(mutant):
    """What to write into the list, but for the reason."""
    file, line, change = mutant.key
    return f"file: {file}\nline: {line}\nchange: {change}"
