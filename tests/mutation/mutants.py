"""Finds the changes that can be made to the sources. Each change is one mutant. libclang reads the C++."""

import collections
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
FUNCTIONS = (Kind.FUNCTION_DECL, Kind.FUNCTION_TEMPLATE, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR,
             Kind.CONVERSION_FUNCTION)
VARIABLES = (Kind.VAR_DECL, Kind.FIELD_DECL)
CLASSES = (Kind.CLASS_DECL, Kind.STRUCT_DECL, Kind.CLASS_TEMPLATE)
LITERALS = (Kind.INTEGER_LITERAL, Kind.FLOATING_LITERAL, Kind.CHARACTER_LITERAL, Kind.STRING_LITERAL,
            Kind.CXX_BOOL_LITERAL_EXPR)
EXPRESSIONS = (Kind.CALL_EXPR, Kind.UNARY_OPERATOR, Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR,
               Kind.UNEXPOSED_EXPR, Kind.CXX_THROW_EXPR)
NUMBERS = (TypeKind.INT, TypeKind.UINT, TypeKind.LONG, TypeKind.ULONG, TypeKind.LONGLONG, TypeKind.ULONGLONG,
           TypeKind.DOUBLE, TypeKind.FLOAT)


@dataclasses.dataclass
class Mutant:
    """One change: `text` replaces the source from `start` to `end`."""
    file: str
    start: int
    end: int
    text: str
    line: int
    owner: tuple      # the function, or the variable outside of functions: its name without and with the parameters' types
    kind: str         # the kind of change, without names of variables
    statement: bool   # leaves a statement out
    constant: str     # the constant that contains it, the constexpr function with "()", or ""
    fixed: bool       # the compiler needs the value, so it cannot be chosen at run time
    array: bool       # the text of an array of characters
    number: int = 0   # identifies the mutant in the environment
    key: str = ""     # identifies the mutant in lists: the owner, the kind, and an ordinal where the owner has several


def changed_string(body):
    """Replaces one character in the middle, so that the length stays the same."""
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
    """The replacements for a literal."""
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

    def find(self, cursor, owner=None, fixed=False, constant=""):
        for child in cursor.get_children():
            if child.location.file is None or child.location.file.name.endswith(self.file):
                self.visit(child, cursor, owner, fixed, constant)

    def visit(self, cursor, parent, owner, fixed, constant):
        if cursor.kind == Kind.STATIC_ASSERT or self.is_template_argument(cursor, parent):
            return
        fixed = fixed or self.must_be_known(cursor, parent)
        if cursor.kind in (Kind.VAR_DECL, Kind.FUNCTION_DECL, Kind.CXX_METHOD) and self.is_constexpr(cursor):
            constant = cursor.spelling + ("()" if cursor.kind != Kind.VAR_DECL else "")
        if cursor.kind in FUNCTIONS or owner is None and cursor.kind in VARIABLES:
            owner = names(cursor)
        # libclang does not show variable templates, whose values the compiler needs.
        for start, end, text, kind in self.changes(cursor, parent) if owner else ():
            array = cursor.kind == Kind.STRING_LITERAL and parent.kind == Kind.VAR_DECL and "[" in parent.type.spelling
            self.found.setdefault((start, end, text), Mutant(
                self.file, start, end, text, self.source.count("\n", 0, start) + 1, owner, " ".join(kind.split()),
                text == NOTHING, constant, fixed, array))
        self.find(cursor, owner, fixed, constant)

    def is_constexpr(self, cursor):
        start = self.source.rfind("\n", 0, cursor.location.offset) + 1
        return re.match(r"\s*(static |inline )*constexpr ", self.source[start:cursor.location.offset]) is not None

    def is_template_argument(self, cursor, parent):
        return (parent.kind in (Kind.VAR_DECL, Kind.PARM_DECL, Kind.FIELD_DECL, Kind.FUNCTION_DECL, Kind.CXX_METHOD)
                and cursor.kind.is_expression() and cursor.extent.start.offset < parent.location.offset)

    def must_be_known(self, cursor, parent):
        """Whether it is the size of an array or the condition of "if constexpr"."""
        if parent.kind in VARIABLES and cursor.kind.is_expression():
            return self.source[:cursor.extent.start.offset].rstrip().endswith("[")
        return parent.kind == Kind.IF_STMT and re.match(
            r"if\s+constexpr", self.source[parent.extent.start.offset:]) is not None and cursor.kind.is_expression()

    def text(self, cursor):
        return self.source[cursor.extent.start.offset:cursor.extent.end.offset]

    def changes(self, cursor, parent):
        """Yields (start, end, new text, kind) for every change of one expression."""
        start, end, text = cursor.extent.start.offset, cursor.extent.end.offset, self.text(cursor)
        # The cursors of "= default" have no text of their own.
        if text in ("", ")", "noexcept"):
            return
        if parent.kind != Kind.COMPOUND_STMT:
            yield from ((start, end, *change) for change in self.values(cursor, text))
        yield from ((start, end, *change) for change in self.operators(cursor, start, end, text))
        if parent.kind == Kind.COMPOUND_STMT and cursor.kind in EXPRESSIONS:
            yield start, end, NOTHING, f"{self.label(cursor)} left out"
        if parent.kind == Kind.RETURN_STMT:
            yield from ((start, end, *change) for change in self.results(cursor, text))

    def values(self, cursor, text):
        if cursor.kind in LITERALS:
            for new in changed_literal(text):
                yield new, f"{text} changed" if cursor.kind == Kind.STRING_LITERAL else f"{text} -> {new}"
            return
        children = list(cursor.get_children())
        truth = cursor.type.get_canonical().kind == TypeKind.BOOL
        read = (cursor.kind == Kind.UNEXPOSED_EXPR and len(children) == 1
                and children[0].kind in (Kind.DECL_REF_EXPR, Kind.MEMBER_REF_EXPR) and not is_literal(children[0]))
        if truth and (read or cursor.kind == Kind.CALL_EXPR):
            for new in ("true", "false"):
                yield new, f"{self.label(cursor)} -> {new}".strip()

    def operators(self, cursor, start, end, text):
        children = list(cursor.get_children())
        if cursor.kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR) and len(children) == 2:
            left, right = children[0].extent.end.offset, children[1].extent.start.offset
            operator = self.source[left:right].strip()
            pointers = all(child.type.get_canonical().kind == TypeKind.POINTER for child in children)
            new = BOUNDARY.get(operator) or (not pointers and OPPOSITE.get(operator))
            if new:
                yield f"{self.source[start:left]} {new} {self.source[right:end]}", f"{operator} -> {new}"
            if operator in BOUNDARY or operator in EQUALITY:
                yield "true", f"{operator} -> true"
                yield "false", f"{operator} -> false"
        if cursor.kind == Kind.UNARY_OPERATOR:
            for old, new in (("++", "--"), ("--", "++"), ("-", "")):
                if text.startswith(old):
                    yield new + text[len(old):], f"{old} -> {new}" if new else "-x -> x"
                    return
                if text.endswith(old):
                    yield text[:-len(old)] + new, f"{old} -> {new}"
                    return

    def results(self, cursor, text):
        kind = cursor.type.get_canonical().kind
        if changed_literal(text) or text.startswith("{") or text.endswith("()") and "." not in text:
            return
        if kind in NUMBERS or kind == TypeKind.POINTER and text != "nullptr":
            yield f"({text}) + 1", "return value + 1"
        result = cursor.type.get_canonical().spelling
        if kind == TypeKind.RECORD and "(" not in result and not self.returns_reference(cursor):
            yield f"std::decay_t<{result}>()", "return value -> empty"

    def returns_reference(self, cursor):
        before = self.source[:cursor.extent.start.offset]
        signature = re.findall(r"^ *((?!(?:if|for|while|switch|else|do|try|\})\b)\w.*)\{$", before, re.M)
        return bool(signature) and "& " in signature[-1].split("(")[0]

    def label(self, cursor):
        """How a kind names an expression: "size()" for a call, "==" for an operator, nothing for a variable."""
        children = list(cursor.get_children())
        while cursor.kind == Kind.UNEXPOSED_EXPR and len(children) == 1:
            cursor, children = children[0], list(children[0].get_children())
        if cursor.kind == Kind.CXX_THROW_EXPR:
            return "throw"
        if cursor.kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR):
            return self.source[children[0].extent.end.offset:children[1].extent.start.offset].strip()
        if cursor.kind == Kind.UNARY_OPERATOR:
            return next((operator for operator in ("++", "--") if operator in self.text(cursor)), self.text(cursor)[0])
        if cursor.kind != Kind.CALL_EXPR:
            return ""
        # In a template libclang may not know the function yet.
        name = cursor.spelling or re.findall(r"\w+|$", self.text(cursor).split("(")[0])[-2]
        operator = re.fullmatch(r"operator(\W+)", name)
        return operator[1] if operator and operator[1] != "()" else f"{name}()"


def names(cursor):
    """The name of a function or a variable, within its classes but not its namespaces, without and with its parameters."""
    scope, parent = "", cursor.semantic_parent
    while parent is not None and parent.kind in CLASSES:
        scope, parent = f"{parent.spelling}::{scope}", parent.semantic_parent
    spelling = re.sub(r"<.*", "", cursor.spelling) if cursor.kind in (Kind.CONSTRUCTOR, Kind.DESTRUCTOR) else cursor.spelling
    types = ", ".join(re.sub(r"\bKelp::|\bKelpkit::|\bstd::", "", argument.type.spelling) for argument in cursor.get_arguments() or ())
    return scope + spelling, f"{scope}{spelling}({types})" if cursor.kind in FUNCTIONS else scope + spelling


def is_literal(reference):
    """Whether a name refers to a constant true or false: its own text is changed already."""
    definition = reference.referenced and reference.referenced.get_definition()
    children = list(definition.get_children()) if definition else []
    return bool(children) and children[-1].kind == Kind.CXX_BOOL_LITERAL_EXPR


def mutants_of(root, file):
    """All mutants of one file, in the order of the text. They have no keys yet."""
    source = (root / file).read_text(encoding="ascii")
    unit = Index.create().parse(str(root / file), args=[
        "-x", "c++", "-std=c++17", "-DKELPLIB_BUILDING", f"-I{root}/include", f"-I{root}/src",
        f"-I{root}/kit/include", f"-I{root}/kit/src"])
    errors = [str(problem) for problem in unit.diagnostics if problem.severity >= 3]
    if errors:
        raise SystemExit(f"libclang cannot read {file}: {errors[0]}")
    finder = Finder(file, source)
    finder.find(unit.cursor)
    return sorted(finder.found.values(), key=lambda mutant: (mutant.start, -mutant.end, mutant.text))


def set_keys(mutants):
    """Numbers the mutants and sets their keys. Parameters distinguish overloads; other functions need only their name."""
    overloads = collections.defaultdict(set)
    for mutant in mutants:
        overloads[mutant.owner[0]].add(mutant.owner[1])
    same = collections.defaultdict(list)
    for number, mutant in enumerate(mutants, 1):
        mutant.number = number
        name, signature = mutant.owner
        same[f"{signature if len(overloads[name]) > 1 else name}: `{mutant.kind}`"].append(mutant)
    for key, group in same.items():
        for place, mutant in enumerate(group, 1):
            mutant.key = f"{key} {place} of {len(group)}" if len(group) > 1 else key
