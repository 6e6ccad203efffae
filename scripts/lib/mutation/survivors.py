"""The list of the changes that no test can notice, each with the reason: tests/mutation/survivors.txt."""

FIELDS = ("reason", "file", "line", "change")


def read(path):
    """The entries: (file, line, change) to reason. A field counts until it is given again."""
    entries, fields = {}, {}
    lines = path.read_text(encoding="utf-8").splitlines() if path.exists() else []
    for number, line in enumerate(lines, 1):
        if not line.strip() or line.startswith("#"):
            continue
        if line.startswith("    ") and fields:
            fields["reason"] += " " + line.strip()
            continue
        name, _, value = line.partition(": ")
        if name not in FIELDS or not value:
            raise SystemExit(f"{path}:{number}: neither reason, file, line nor change")
        fields = {} if name == "reason" else fields
        fields[name] = value
        if name == "change":
            if set(fields) != set(FIELDS):
                raise SystemExit(f"{path}:{number}: this change needs a reason, a file and a line before it")
            entries[fields["file"], fields["line"], value] = fields["reason"]
    return entries


def entry(mutant):
    """What to write into the list, under a reason."""
    file, line, change = mutant.key
    return f"file: {file}\nline: {line}\nchange: {change}"
