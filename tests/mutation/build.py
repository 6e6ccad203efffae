"""Builds a copy of the project whose sources contain their mutants."""

import json
import os
import re
import shutil
import subprocess

import schema

OPTIONS = ("-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_C_COMPILER=gcc", "-DCMAKE_CXX_COMPILER=g++", "-DKELPLIB_BUILD_EXAMPLES=OFF",
           "-DKELPLIB_INSTALL=OFF", "-DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON")
# Undefined behaviour ends the program, so that it cannot hide a change: a missing return, an index out of bounds, a number
# that does not fit. Uninitialised variables are not zero.
FLAGS = ("-O1 -w -D_GLIBCXX_ASSERTIONS -ftrivial-auto-var-init=pattern -fsanitize-undefined-trap-on-error "
         "-fsanitize=unreachable,return,bounds,float-cast-overflow,signed-integer-overflow,integer-divide-by-zero")
TARGETS = ("unit_tests", "tests/golden/all", "tests/contract/all", "tests/kit/all")
SOURCES = ("include/", "src/", "kit/include/", "kit/src/")
CAPACITY = 8192  # of switch.h
ERROR = re.compile(r"^(?P<path>/[^:\n]+):(?P<line>\d+):\d+: error: ", re.M)


def write_if_changed(path, text):
    """Leaves the modification time of an unchanged file alone, so that nothing is rebuilt for it."""
    if not path.exists() or path.read_text(encoding="utf-8") != text:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")


class Build:
    def __init__(self, root, folder, mutants, jobs):
        self.root, self.tree, self.out, self.jobs = root, folder / "tree", folder / "out", jobs
        self.notes = folder / "kept.json"
        self.mutants = mutants
        self.sources = {}
        kept = json.loads(self.notes.read_text(encoding="utf-8")) if self.notes.exists() else [[], []]
        self.kept, self.fixed_lines = set(kept[0]), {tuple(line) for line in kept[1]}

    def prepare(self):
        """Builds the copy. Compiler errors show which values the compiler needs; their mutants are compiled one by one."""
        if len(self.mutants) >= CAPACITY:
            raise SystemExit("more mutants than switch.h has room for")
        self.copy()
        self.write_sources()
        header = self.tree / "tests/mutation/switch.h"
        subprocess.run(["cmake", "-S", self.tree, "-B", self.out, "-G", "Ninja", *OPTIONS,
                        f"-DCMAKE_CXX_FLAGS_DEBUG={FLAGS} -include {header}"],
                       check=True, stdout=subprocess.DEVNULL)
        while True:
            log = self.build("-k", "0")
            if log is None:
                self.notes.write_text(json.dumps([sorted(self.kept), sorted(self.fixed_lines)]), encoding="utf-8")
                return
            if not self.keep_constants(log):
                raise SystemExit(f"the sources with all mutants do not compile:\n{log[-3000:]}")
            self.write_sources()

    def copy(self):
        for name in ("cmake", "tests", "include", "src", "kit"):
            present = set()
            for path in sorted((self.root / name).rglob("*")):
                relative = path.relative_to(self.root)
                if not path.is_file() or "__pycache__" in relative.parts:
                    continue
                target = self.tree / relative
                present.add(target)
                if relative.as_posix().startswith(SOURCES) and path.suffix in (".h", ".cpp"):
                    self.sources[relative.as_posix()] = path.read_text(encoding="utf-8")
                elif not target.exists() or target.read_bytes() != path.read_bytes():
                    target.parent.mkdir(parents=True, exist_ok=True)
                    shutil.copy(path, target)
            for old in {path for path in (self.tree / name).rglob("*") if path.is_file()} - present:
                if "__pycache__" not in old.parts:
                    old.unlink()
        for name in ("CMakeLists.txt", "docs/kit-rules.md"):
            write_if_changed(self.tree / name, (self.root / name).read_text(encoding="utf-8"))

    def write_sources(self):
        for mutant in self.mutants:
            if mutant.constant in self.kept or (mutant.file, mutant.line) in self.fixed_lines:
                mutant.fixed = True
        for file in self.sources:
            self.write(file)

    def write(self, file, compiled=None):
        own = [mutant for mutant in self.mutants if mutant.file == file]
        write_if_changed(self.tree / file, schema.render(self.sources[file], own, self.kept, compiled))

    def build(self, *options):
        """Returns None, or the output of a failed build."""
        # ccache makes the paths in error messages relative to this folder.
        environment = {**os.environ, "CCACHE_BASEDIR": ""}
        done = subprocess.run(["ninja", "-C", self.out, f"-j{self.jobs}", *options, *TARGETS], check=False, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, env=environment)
        return None if done.returncode == 0 else done.stdout

    def keep_constants(self, log):
        """Marks the constants and lines that the compiler complains about as fixed. Returns whether there were new ones."""
        before = len(self.kept), len(self.fixed_lines)
        constants = {match["name"] for text in self.sources.values() for match in schema.CONSTANT.finditer(text)}
        for block in re.split(r"(?m)(?=^FAILED: )", log):
            if not ERROR.search(block):
                continue
            names = constants & set(re.findall(r"\w+", " ".join(re.findall(r"‘[^’]*’", block)))) - self.kept
            self.kept |= names
            if not names:
                self.fixed_lines |= {(match["path"].removeprefix(f"{self.tree}/"), int(match["line"]))
                                     for match in ERROR.finditer(block)}
        return before != (len(self.kept), len(self.fixed_lines))
