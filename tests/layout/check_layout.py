#!/usr/bin/env python3
"""Checks the structure of the source tree: check_layout.py FOLDER. Prints violations; exits with status 1 if there are any.

- A private header is included only from its own folder, unless it is in src/util or src/platform. Besides, tool may include
  the headers of command_line. util includes only itself and platform, platform only itself.
- Examples, their tests and benchmarks include only the library's public headers.
- Headers do not include each other in a cycle.
- Only src/platform uses system headers and macros (besides the export macro in Export.h). The examples' common/*_posix and
  common/*_windows may include system headers, too, and so may tests and benchmarks.
- Functions that write without a bound, or that no library should call, are not used.
- Every source is listed in the build by name, without file(GLOB). A source has at most 200 lines, except for tests and for
  public headers, which are mostly documentation.
"""

import pathlib
import re
import sys

MOST_LINES = 200
ROOMS = ("tool", "command_line", "convert", "path", "console", "util", "platform")
PUBLIC_ONLY = ("examples/", "tests/examples/", "benchmarks/")
SYSTEM_HEADERS = re.compile(r"<(windows\.h|direct\.h|io\.h|conio\.h|unistd\.h|fcntl\.h|time\.h|pthread\.h|sys/[^>]*)>")
SYSTEM_SOURCES = re.compile(r"(src/platform|tests|benchmarks)/.*|examples/common/\w+_(posix|windows)\.(c|cpp)")
SYSTEM_CHECKS = re.compile(r"^\s*#\s*(?:el)?if.*\b(_WIN32|_WIN64|__linux__|__unix__|__APPLE__|__MINGW\w*)\b", re.M)
FORBIDDEN = re.compile(r"(?<![\w.>])(?:std::)?(sprintf|vsprintf|strcpy|strncpy|strcat|strncat|gets|strtok|system|scanf|"
                       r"sscanf|alloca|rand)\s*\(")
INCLUDE = re.compile(r'^\s*#\s*include\s+(["<][^">]+[">])', re.M)


def without_comments(text):
    return re.sub(r"//[^\n]*|/\*.*?\*/", "", text, flags=re.S)


def room(path):
    """Returns the folder of src that contains a path (or an included name)."""
    parts = path.removeprefix("src/").split("/")
    return parts[0] if len(parts) > 1 else ""


def may_include(path, header):
    """Returns whether a file of src may include a private header."""
    own, other = room(path), room(header)
    if own == other or other == "platform" or (own, other) == ("tool", "command_line"):
        return True
    return other == "util" and own != "platform"


def wrong_includes(path, text):
    for quoted in INCLUDE.findall(text):
        name = quoted[1:-1]
        if SYSTEM_HEADERS.fullmatch(quoted) and not SYSTEM_SOURCES.fullmatch(path):
            yield f"{path}: {quoted} belongs in src/platform"
        if quoted[0] == '"' and path.startswith("src/") and not may_include(path, name):
            yield f"{path}: {quoted} is private to its folder"
        if quoted[0] == '"' and path.startswith("include/"):
            yield f"{path}: a public header includes only public ones"
        if path.startswith(PUBLIC_ONLY) and room(name) in ROOMS:
            yield f"{path}: {quoted} is private to the library"


def wrong_text(path, text):
    if SYSTEM_CHECKS.search(text) and not path.startswith("src/platform/") and path != "include/kelplib/Export.h":
        yield f"{path}: tests for a system outside src/platform"
    if path.startswith(("src/", "include/", "examples/")):
        for name in FORBIDDEN.findall(text):
            yield f"{path}: calls {name}"


def cycles(files):
    """Yields headers of src that include themselves through others."""
    edges = {path.removeprefix("src/"): [name[1:-1] for name in INCLUDE.findall(text)]
             for path, text in files.items() if path.startswith("src/") and path.endswith(".h")}
    for start in edges:
        seen, rest = set(), list(edges[start])
        while rest:
            name = rest.pop()
            if name not in seen:
                seen.add(name)
                rest.extend(edges.get(name, []))
        if start in seen:
            yield f"src/{start}: includes itself through others"


def findings(files, listed):
    """Yields the violations in the files, a dictionary from path to text. `listed` is the text of all CMake files."""
    for path, whole in files.items():
        text = without_comments(whole)
        yield from wrong_includes(path, text)
        yield from wrong_text(path, text)
        if path.startswith("src/") and room(path) not in ROOMS:
            yield f"{path}: is in no room"
        if whole.count("\n") > MOST_LINES and not path.startswith(("include/", "tests/")):
            yield f"{path}: more than {MOST_LINES} lines"
        if path.endswith((".cpp", ".c")) and path.rsplit("/", 1)[1] not in listed:
            yield f"{path}: is not built"
    yield from cycles(files)
    if re.search(r"file\s*\(\s*GLOB", listed):
        yield "CMake: sources must be listed by name"


def main():
    root = pathlib.Path(sys.argv[1])
    folders = ("include", "src", "examples", "tests", "benchmarks")
    files = {path.relative_to(root).as_posix(): path.read_text(encoding="utf-8")
             for folder in folders for path in sorted((root / folder).rglob("*")) if path.suffix in (".cpp", ".h", ".c")}
    cmake_files = [root / "CMakeLists.txt", *root.glob("cmake/*.cmake"),
                   *(path for folder in folders for path in (root / folder).rglob("CMakeLists.txt"))]
    listed = "\n".join(path.read_text(encoding="utf-8") for path in cmake_files)
    wrong = list(findings(files, listed))
    print("\n".join(wrong) if wrong else f"{len(files)} files: no violations")
    return 1 if wrong or not files else 0


if __name__ == "__main__":
    sys.exit(main())
