"""Finds what can be changed in a source: each change is one mutant. Reads C++ with libclang."""

import dataclasses
import re

from clang.cindex import CursorKind as Kind, Index, TypeKind

BOUNDARY = {"<": "<=", "<=": "<", ">": ">=", ">=": ">"}
EQUALITY = ("==", "!=")
OPPOSITE = {"&&": "||", "||": "&&", "+": "-", "-": "+", "*": "/", "/": "*", "%": "*",
            "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*="}
STRING = re.compile(r'"((?:[^"\\\n]|\\.)*)"')
INTEGER = re.compile(r"(\d+)([uUlL]*)")
REAL = re.compile(r"\d+\.\d*(?:e[-+]?\d+)?|\d+e[-+]?\d+")
CHARACTER = re.compile(r"'(\\?.[0-9A-F]*)'")
ESCAPED = {"\\n": "\\t", "\\t": "\\n", "\\r": "\\n", "\\0": "0", "\\\\": "/", "\\'": '"', "\\xED": "\\xEE"}
NOTHING = "static_cast<void>(0)"
EXPRESSIONS = (Kind.CALL_EXPR, Kind.UNARY_OPERATOR, Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR,
               Kind.UNEXPOSED_EXPR, Kind.CXX_THROW_EXPR)
NUMBERS = (TypeKind.INT, TypeKind.UINT, TypeKind.LONG, TypeKind.ULONG, TypeKind.LONGLONG, TypeKind.ULONGLONG,
           TypeKind.DOUBLE, TypeKind.FLOAT)


@dataclasses.dataclass
class Mutant:
    """One change: `text` in the place of what stands from `start` to `end`."""
    file: str
    start: int
    end: int
    text: str
    change: str       # as people read it
    line: int
    line_text: str
    statement: bool   # the change leaves a statement out
    constant: str     # the constant that it lies in, the constexpr function with "()", or ""
    fixed: bool       # the compiler has to know the value: cannot be chosen while the program runs
    array: bool       # the text of an array of characters
    number: int = 0   # its place among all; the chosen one is in the environment
    again: int = 1    # 2 for the second one with the same change in a line of the same text, and so on

    @property
    def key(self):
        return (self.file, self.line_text, self.change + (f" ({self.again})" if self.again > 1 else ""))


def changed_string(body):
    """The same number of characters, one of them in the middle another one."""
    pieces = re.findall(r"\\x[0-9A-F]{2}|\\[0-7]{3}|\\.|.", body)
    middle = next((i for i in range(len(pieces) // 2, len(pieces)) if len(pieces[i]) == 1), None)
    if middle is None:
        middle = next((i for i, piece in enumerate(pieces) if len(piece) == 1), None)
    if middle is None:
        pieces[len(pieces) // 2] = "x"
    else:
        pieces[middle] = "y" if pieces[middle] == "x" else "x"
    return "".join(pieces)


def changed_literal(text):
    """What a literal is changed into."""
    if text in ("true", "false"):
        return ["false" if text == "true" else "true"]
    if match := STRING.match(text):
        return [f'"{changed_string(match[1])}"' + text[match.end():] if match[1] else '"x"']
    if match := CHARACTER.fullmatch(text):
        body = match[1]
        return [f"'{ESCAPED[body] if body in ESCAPED else chr(ord(body) + 1)}'"]
    if match := INTEGER.fullmatch(text):
        value, suffix = int(match[1]), match[2]
        return [f"{value + 1}{suffix}"] + ([f"{value - 1}{suffix}"] if value > 0 else [])
    if REAL.fullmatch(text):
        value = float(text)
        return [repr(value * 1.01), repr(value * 0.99)] if value else ["0.01", "-0.01"]
    return []


class Finder:
    def __init__(self, file, source):
        self.file, self.source, self.found = file, source, {}

    def find(self, cursor, fixed=False, constant=""):
        for child in cursor.get_children():
            if child.location.file is None or child.location.file.name.endswith(self.file):
                self.visit(child, cursor, fixed, constant)

    def visit(self, cursor, parent, fixed, constant):
        if cursor.kind == Kind.STATIC_ASSERT or self.is_template_argument(cursor, parent):
            return
        fixed = fixed or self.must_be_known(cursor, parent)
        if cursor.kind in (Kind.VAR_DECL, Kind.FUNCTION_DECL, Kind.CXX_METHOD) and self.is_constexpr(cursor):
            constant = cursor.spelling + ("()" if cursor.kind != Kind.VAR_DECL else "")
        for start, end, text, change, statement in self.changes(cursor, parent):
            self.add(start, end, text, change, statement, constant, fixed, cursor, parent)
        self.find(cursor, fixed, constant)

    def add(self, start, end, text, change, statement, constant, fixed, cursor, parent):
        line_start = self.source.rfind("\n", 0, start) + 1
        line_text = self.source[line_start:(self.source + "\n").index("\n", start)].strip()
        array = cursor.kind == Kind.STRING_LITERAL and parent.kind == Kind.VAR_DECL and "[" in parent.type.spelling
        line = self.source.count("\n", 0, start) + 1
        self.found.setdefault((start, end, text), Mutant(
            self.file, start, end, text, " ".join(change.split()), line, line_text, statement, constant, fixed, array))

    def is_constexpr(self, cursor):
        start = self.source.rfind("\n", 0, cursor.location.offset) + 1
        return re.match(r"\s*(static |inline )*constexpr ", self.source[start:cursor.location.offset]) is not None

    def is_template_argument(self, cursor, parent):
        return (parent.kind in (Kind.VAR_DECL, Kind.PARM_DECL, Kind.FIELD_DECL, Kind.FUNCTION_DECL, Kind.CXX_METHOD)
                and cursor.kind.is_expression() and cursor.extent.start.offset < parent.location.offset)

    def must_be_known(self, cursor, parent):
        """The size of an array, the condition of "if constexpr"."""
        if parent.kind in (Kind.VAR_DECL, Kind.FIELD_DECL) and cursor.kind.is_expression():
            return self.source[:cursor.extent.start.offset].rstrip().endswith("[")
        return parent.kind == Kind.IF_STMT and re.match(
            r"if\s+constexpr", self.source[parent.extent.start.offset:]) is not None and cursor.kind.is_expression()

    def text(self, cursor):
        return self.source[cursor.extent.start.offset:cursor.extent.end.offset]

    def changes(self, cursor, parent):
        """Everything that is changed in one expression: (start, end, new text, description, whether left out)."""
        start, end, text = cursor.extent.start.offset, cursor.extent.end.offset, self.text(cursor)
        # What "= default" stands for has no text of its own.
        if text in ("", ")", "noexcept"):
            return
        for new in self.values(cursor, text) if parent.kind != Kind.COMPOUND_STMT else ():
            yield start, end, new, f"{text} -> {new}", False
        yield from self.operators(cursor, start, end, text)
        if parent.kind == Kind.COMPOUND_STMT and cursor.kind in EXPRESSIONS:
            yield start, end, NOTHING, f"{text} left out", True
        if parent.kind == Kind.RETURN_STMT:
            for new in self.results(cursor, text):
                yield start, end, new, f"return {text} -> {new}", False

    def values(self, cursor, text):
        if cursor.kind in (Kind.INTEGER_LITERAL, Kind.FLOATING_LITERAL, Kind.CHARACTER_LITERAL, Kind.STRING_LITERAL,
                           Kind.CXX_BOOL_LITERAL_EXPR):
            return changed_literal(text)
        children = list(cursor.get_children())
        truth = cursor.type.get_canonical().kind == TypeKind.BOOL
        read = (cursor.kind == Kind.UNEXPOSED_EXPR and len(children) == 1
                and children[0].kind in (Kind.DECL_REF_EXPR, Kind.MEMBER_REF_EXPR) and not is_literal(children[0]))
        if truth and (read or cursor.kind == Kind.CALL_EXPR):
            return ["true", "false"]
        return []

    def operators(self, cursor, start, end, text):
        children = list(cursor.get_children())
        if cursor.kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR) and len(children) == 2:
            left, right = children[0].extent.end.offset, children[1].extent.start.offset
            operator = self.source[left:right].strip()
            pointers = all(child.type.get_canonical().kind == TypeKind.POINTER for child in children)
            news = [BOUNDARY[operator]] if operator in BOUNDARY else []
            if operator in OPPOSITE and not pointers:
                news = [OPPOSITE[operator]]
            for new in news:
                yield start, end, f"{self.source[start:left]} {new} {self.source[right:end]}", \
                    f"{text}: {operator} -> {new}", False
            if operator in BOUNDARY or operator in EQUALITY:
                yield start, end, "true", f"{text} -> true", False
                yield start, end, "false", f"{text} -> false", False
        if cursor.kind == Kind.UNARY_OPERATOR:
            for old, new in (("++", "--"), ("--", "++"), ("-", "")):
                if text.startswith(old):
                    yield start, end, new + text[len(old):], f"{text} -> {new + text[len(old):]}", False
                    return
                if text.endswith(old):
                    yield start, end, text[:-len(old)] + new, f"{text} -> {text[:-len(old)] + new}", False
                    return

    def results(self, cursor, text):
        kind = cursor.type.get_canonical().kind
        if changed_literal(text) or text.startswith("{") or text.endswith("()") and "." not in text:
            return []
        if kind in NUMBERS or kind == TypeKind.POINTER and text != "nullptr":
            return [f"({text}) + 1"]
        if kind == TypeKind.RECORD and "(" not in cursor.type.get_canonical().spelling and not self.returns_reference(cursor):
            return [f"std::decay_t<{cursor.type.get_canonical().spelling}>()"]
        return []

    def returns_reference(self, cursor):
        before = self.source[:cursor.extent.start.offset]
        signature = re.findall(r"^(\S.*)\{$", before, re.M)
        return bool(signature) and "& " in signature[-1].split("(")[0]


def is_literal(reference):
    """Whether a name stands for a constant true or false: its own text is changed already."""
    definition = reference.referenced and reference.referenced.get_definition()
    children = list(definition.get_children()) if definition else []
    return bool(children) and children[-1].kind == Kind.CXX_BOOL_LITERAL_EXPR


def mutants_of(root, file):
    """All mutants of one file, in the order of the text."""
    source = (root / file).read_text(encoding="ascii")
    unit = Index.create().parse(str(root / file), args=[
        "-x", "c++", "-std=c++17", "-DKELPLIB_BUILDING", f"-I{root}/include", f"-I{root}/src"])
    errors = [str(problem) for problem in unit.diagnostics if problem.severity >= 3]
    if errors:
        raise SystemExit(f"libclang cannot read {file}: {errors[0]}")
    finder = Finder(file, source)
    finder.find(unit.cursor)
    found = sorted(finder.found.values(), key=lambda mutant: (mutant.start, -mutant.end, mutant.text))
    seen = {}
    for mutant in found:
        key = mutant.key
        mutant.again = seen[key] = seen.get(key, 0) + 1
    return found
