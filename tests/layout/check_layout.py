#!/usr/bin/env python3
"""Checks the structure of the source tree: check_layout.py FOLDER. Prints violations; exits with status 1 if there are any.

- A private header is included only from its own folder, unless it is in src/util or src/platform. Besides, tool may include
  the headers of command_line. util includes only itself and platform, platform only itself.
- The kit includes the public headers of the library and of the kit, its own private headers and C++'s standard headers. Its
  library knows nothing of its programs. The library includes nothing of the kit.
- Examples, their tests and benchmarks include only public headers, those of the library and of the kit.
- Headers do not include each other in a cycle.
- Only src/platform uses system headers and macros (besides the export macro in Export.h). The kit's *_posix.cpp and
  *_windows.cpp may include system headers, too, and so may tests and benchmarks.
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
SYSTEM_SOURCES = re.compile(r"(src/platform|tests|benchmarks)/.*|kit/(src|programs)/(\w+/)*\w+_(posix|windows)\.cpp")
SYSTEM_CHECKS = re.compile(r"^\s*#\s*(?:el)?if.*\b(_WIN32|_WIN64|__linux__|__unix__|__APPLE__|__MINGW\w*)\b", re.M)
FORBIDDEN = re.compile(r"(?<![\w.>])(?:std::)?(sprintf|vsprintf|strcpy|strncpy|strcat|strncat|gets|strtok|system|scanf|"
                       r"sscanf|alloca|rand)\s*\(")
# C++'s standard headers are the only ones without an extension.
KIT_HEADERS = re.compile(r"<((kelplib|kelpkit)/\w+\.h|\w+)>")
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


def wrong_kit_include(path, quoted, files):
    """Returns what is wrong with an include in the kit, or with an include of the kit in the library; otherwise nothing."""
    name = quoted[1:-1]
    if path.startswith(("src/", "include/")):
        return "the library knows nothing of the kit" if name.startswith(("kelpkit/", "kit/")) else None
    if not path.startswith("kit/"):
        return None
    if quoted[0] == "<":
        known = KIT_HEADERS.fullmatch(quoted) or SYSTEM_SOURCES.fullmatch(path)
        return None if known else "the kit includes only public and standard headers"
    if path.startswith("kit/include/"):
        return "a public header includes only public ones"
    own = {f"kit/src/{name}"} | ({f"kit/programs/{name}"} if path.startswith("kit/programs/") else set())
    return None if own & files.keys() else "is no private header of the kit"


def wrong_includes(path, text, files):
    for quoted in INCLUDE.findall(text):
        name = quoted[1:-1]
        if SYSTEM_HEADERS.fullmatch(quoted) and not path.startswith("kit/") and not SYSTEM_SOURCES.fullmatch(path):
            yield f"{path}: {quoted} belongs in src/platform"
        if quoted[0] == '"' and path.startswith("src/") and not may_include(path, name):
            yield f"{path}: {quoted} is private to its folder"
        if quoted[0] == '"' and path.startswith("include/"):
            yield f"{path}: a public header includes only public ones"
        if problem := wrong_kit_include(path, quoted, files):
            yield f"{path}: {quoted}: {problem}"
        if path.startswith(PUBLIC_ONLY) and "kit/" in name and not name.startswith("kelpkit/"):
            yield f"{path}: {quoted} is private to the kit"
        if path.startswith(PUBLIC_ONLY) and room(name) in ROOMS:
            yield f"{path}: {quoted} is private to the library"


def wrong_text(path, text):
    if SYSTEM_CHECKS.search(text) and not path.startswith("src/platform/") and path != "include/kelplib/Export.h":
        yield f"{path}: tests for a system outside src/platform"
    if path.startswith(("src/", "include/", "kit/", "examples/")):
        for name in FORBIDDEN.findall(text):
            yield f"{path}: calls {name}"


def cycles(files):
    """Yields headers of the library and of the kit that include themselves through others."""
    headers = {path: re.fullmatch(r"(?:src|include|kit/src|kit/include|kit/programs)/(.*\.h)", path) for path in files}
    names = {match[1]: path for path, match in headers.items() if match}
    edges = {name: [quoted[1:-1] for quoted in INCLUDE.findall(files[path])] for name, path in names.items()}
    for start in edges:
        seen, rest = set(), list(edges[start])
        while rest:
            name = rest.pop()
            if name not in seen:
                seen.add(name)
                rest.extend(edges.get(name, []))
        if start in seen:
            yield f"{names[start]}: includes itself through others"


def findings(files, listed):
    """Yields the violations in the files, a dictionary from path to text. `listed` is the text of all CMake files."""
    for path, whole in files.items():
        text = without_comments(whole)
        yield from wrong_includes(path, text, files)
        yield from wrong_text(path, text)
        if path.startswith("src/") and room(path) not in ROOMS:
            yield f"{path}: is in no room"
        if whole.count("\n") > MOST_LINES and not path.startswith(("include/", "kit/include/", "tests/")):
            yield f"{path}: more than {MOST_LINES} lines"
        if path.endswith((".cpp", ".c")) and path.rsplit("/", 1)[1] not in listed:
            yield f"{path}: is not built"
    yield from cycles(files)
    if re.search(r"file\s*\(\s*GLOB", listed):
        yield "CMake: sources must be listed by name"


def main():
    root = pathlib.Path(sys.argv[1])
    folders = ("include", "src", "kit", "examples", "tests", "benchmarks")
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
