#!/usr/bin/env python3
"""Installs, uses and purges the Debian packages: debian_test.py FOLDER_OF_PACKAGES

Needs root. dpkg installs the packages into a temporary folder and looks up their dependencies in this machine's list of
packages; the machine itself does not change.
"""

import os
import pathlib
import re
import subprocess
import sys
import unittest
import unittest.mock

from consumers import (FLAT_OUTPUT, HERE, LIBRARY_HEADERS, NUMBERS, PROGRAMS, ROOT, TOOL_OUTPUT, InOneFolder, built, documents,
                       kit_files, output, prose, refusal)

sys.path += [str(ROOT / "tests" / "support"), str(ROOT / "tests" / "kit" / "programs" / "shells")]
import shell_sessions

PACKAGES = pathlib.Path(sys.argv.pop(1))
OVERRIDES = ROOT / "cmake" / "packages" / "lintian"
NAMES = ["kelplib-examples", "kelplib-kit", "libkelplib-dev", "libkelplib-doc", "libkelplib1", "python3-kelplib"]
DEBUGGED = ["kelplib-examples", "kelplib-kit", "libkelplib1"]
EXAMPLES = [f"kelplib-{name}" for name in ("checksum", "convert", "fragment", "histogram", "sequence", "tally")]
# What is typed before Tab, and the words that the tool then gets.
COMPLETED = (
    ("kelplib-convert --fr", ["--from="]),
    ("kelplib-convert -f=k", ["-f=km"]),
    ("kelplib-fragment -o=al", ["-o=alpha.txt"]),
    ("kelp-doc --inc", ["--include="]),
    ("kelp-check --stri", ["--strict"]),
)


def finding_completions(shell, usr):
    """Returns the class of sessions of a shell that finds the completions installed in a folder."""
    class Finding(shell_sessions.SHELLS[shell]):
        COMMAND = ("env", f"XDG_DATA_DIRS={usr / 'share'}", *shell_sessions.SHELLS[shell].COMMAND)
        START = (f"fpath=({usr / 'share' / 'zsh' / 'vendor-completions'} $fpath)\n" if shell == "zsh" else "") + (
            shell_sessions.SHELLS[shell].START)

    return Finding


class DebianPackages(InOneFolder):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.root = cls.folder / "root"
        database = cls.root / "var" / "lib" / "dpkg"
        for folder in ("updates", "info", "triggers"):
            (database / folder).mkdir(parents=True)
        # This machine's packages count as installed, without their files. An older kelplib does not.
        known = pathlib.Path("/var/lib/dpkg/status").read_text(encoding="utf-8").split("\n\n")
        others = [entry for entry in known if not re.match(r"Package: (lib|python3-)?kelplib", entry)]
        (database / "status").write_text("\n\n".join(others), encoding="utf-8")

    def dpkg(self, *arguments):
        # Small images of Debian have settings that leave out documents.
        # A package's script would need a shell in the temporary folder.
        done = subprocess.run(["dpkg", f"--root={self.root}", "--force-script-chrootless", "--path-include=*", *arguments],
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False, encoding="utf-8")
        self.assertEqual(done.returncode, 0, done.stdout[-2000:])

    def files(self):
        return sorted(path.relative_to(self.root).as_posix() for path in self.root.rglob("*")
                      if not path.is_dir() and "var/lib/dpkg" not in path.as_posix())

    def test_install_use_purge(self):
        packages = sorted(PACKAGES.glob("*.deb"))
        self.assertEqual(sorted(path.name.split("_")[0] for path in packages),
                         sorted([*NAMES, *(f"{name}-dbgsym" for name in DEBUGGED)]))
        packages = [path for path in packages if "-dbgsym" not in path.name]
        # Each package depends on the one below it of the same version.
        examples, kit, development, documentation, runtime, python = packages
        for package, reason in ((python, "python3-kelplib depends on libkelplib1 (>= 1.0.0)"),
                                (examples, "kelplib-examples depends on libkelplib1 (>= 1.0.0)"),
                                (kit, "kelplib-kit depends on libkelplib-dev (= 1.0.0)"),
                                (development, "libkelplib-dev depends on libkelplib1 (= 1.0.0)")):
            refused = subprocess.run(["dpkg", f"--root={self.root}", "-i", package], stdout=subprocess.PIPE,
                                     stderr=subprocess.STDOUT, check=False, encoding="utf-8")
            self.assertIn(reason, refused.stdout)
            self.dpkg("--purge", package.name.split("_")[0])
        self.dpkg("-i", runtime, development, documentation)
        self.use()
        self.assertIn("The component kit of kelplib is not installed:", refusal(
            "cmake", "-G", "Ninja", "-S", HERE / "find_package_kit", "-B", self.folder / "kit missing",
            f"-DCMAKE_PREFIX_PATH={self.root / 'usr'}"))
        self.dpkg("-i", python)
        self.use_python()
        self.dpkg("-i", kit)
        self.use_kit()
        self.dpkg("-i", examples)
        self.use_examples()
        self.read_manual_pages()
        self.complete()
        self.dpkg("--purge", *NAMES)
        self.assertEqual(self.files(), [])

    def contents(self, name):
        """Returns the names of a package's files below /usr."""
        package = next(PACKAGES.glob(f"{name}_*.deb"))
        lines = output("dpkg-deb", "--contents", package).splitlines()
        return sorted(line.split(" -> ")[0].split(" ./usr/")[1] for line in lines if not line.endswith("/"))

    def test_contents(self):
        library = next(name for name in self.contents("libkelplib1") if name.endswith("/libkelplib.so.1")).rsplit("/", 1)[0]
        self.assertRegex(library, r"^lib/\w+-linux-gnu$")
        for package, files in (
                ("libkelplib1", [f"{library}/libkelplib.so.1", f"{library}/libkelplib.so.1.0.0"]),
                ("libkelplib-dev", [*LIBRARY_HEADERS, f"{library}/libkelplib.so", f"{library}/pkgconfig/kelplib.pc", *(
                    f"{library}/cmake/kelplib/kelplib{name}.cmake"
                    for name in ("Config", "ConfigVersion", "Targets", "Targets-release"))]),
                ("kelplib-kit", [*kit_files(library, in_debian=True), f"{library}/cmake/kelplib/kelplibKitTargets-release.cmake",
                                 *(f"share/doc/kelplib-kit/examples/template/{path.name}"
                                   for path in (ROOT / "examples" / "template").iterdir())]),
                ("python3-kelplib", [f"lib/python3/dist-packages/kelplib/{path.name}"
                                     for path in (ROOT / "python/kelplib").iterdir() if path.is_file()]),
                ("kelplib-examples", [name for tool in EXAMPLES for name in (f"bin/{tool}", *documents(tool, True, ".gz"))])):
            texts = [f"share/doc/{package}/{name}" for name in ("changelog.gz", "copyright")]
            overrides = [f"share/lintian/overrides/{package}"] if (OVERRIDES / package).exists() else []
            self.assertEqual(self.contents(package), sorted([*files, *texts, *overrides]))
        documentation = self.contents("libkelplib-doc")
        for name in documentation:
            self.assertRegex(name, r"^share/(doc/(lib)?kelplib(-doc)?/|doc-base/|lintian/overrides/)")
        for name in ("libkelplib-doc/copyright", "libkelplib-doc/changelog.gz", "kelplib/README.md",
                     "kelplib/docs/cmake.md", "kelplib/html/index.html"):
            self.assertIn(f"share/doc/{name}", documentation)
        for name in ("CONTRIBUTING", "docs/tour", "docs/testing", "docs/deliberate"):
            self.assertNotIn(f"share/doc/kelplib/{name}.md", documentation)
        headers = [name for name in documentation if name.endswith(".h") and "/examples/" not in name]
        self.assertEqual(headers, [])

    def unpacked(self, *names):
        """Unpacks packages into one new folder and returns its folder usr."""
        folder = self.folder / " and ".join(names)
        for name in names:
            output("dpkg-deb", "--extract", next(PACKAGES.glob(f"{name}_*.deb")), folder)
        return folder / "usr"

    def test_links_of_the_pages(self):
        pages = self.unpacked("libkelplib-doc", "libkelplib-dev", "kelplib-kit") / "share" / "doc" / "kelplib"
        found = [page for page in pages.rglob("*.md") if "examples" not in page.parts]
        self.assertGreater(len(found), 10)
        self.assertEqual([folder for folder in pages.rglob("*/") if not any(folder.iterdir())], [])
        for page in found:
            for link in re.findall(r"\]\(([^)#:\s]+)[)#]", prose(page)):
                self.assertTrue((page.parent / link).exists(), f"{page.name}: {link}")
        registered = (pages.parent.parent / "doc-base" / "libkelplib-doc.kelplib").read_text(encoding="utf-8")
        for name in re.findall(r"^Index: /usr/share/doc/kelplib/(.*)$", registered, flags=re.MULTILINE):
            self.assertTrue((pages / name).exists(), name)

    def test_symbols(self):
        package = next(PACKAGES.glob("libkelplib1_*.deb"))
        first, *symbols = output("dpkg-deb", "--info", package, "symbols").splitlines()
        self.assertEqual(first, "libkelplib.so.1 libkelplib1 #MINVER#")
        self.assertEqual(symbols.pop(0), "* Build-Depends-Package: libkelplib-dev")
        library = next(self.unpacked("libkelplib1").rglob("libkelplib.so.1.0.0"))
        exported = [line.split()[-1] for line in output("nm", "-D", "--defined-only", library).splitlines()]
        self.assertEqual(sorted(line.split("@")[0].strip() for line in symbols), sorted(exported))
        for line in symbols:
            self.assertRegex(line, r"^ \w+@Base 1\.0\.0$")

    def test_changelog(self):
        folder = self.unpacked("libkelplib1") / "share" / "doc" / "libkelplib1"
        text = output("gzip", "-dc", folder / "changelog.gz")
        self.assertRegex(text, r"^kelplib \(1\.0\.0\) unstable; urgency=medium\n\n  \* `CommandLineTool`: banner, help screen")
        (self.folder / "changelog").write_text(text, encoding="utf-8")
        self.assertEqual(output("dpkg-parsechangelog", "-l", self.folder / "changelog", "-S", "Version"), "1.0.0\n")
        self.assertLessEqual(max(len(line) for line in text.splitlines() if not line.startswith(" -- ")), 80)
        self.assertEqual(text.count("\n  * "), (ROOT / "CHANGELOG.md").read_text(encoding="utf-8").count("\n- "))

    def test_debugging_information(self):
        for package in DEBUGGED:
            usr = self.unpacked(package, f"{package}-dbgsym")
            wanted = [path for path in usr.rglob("*") if path.is_file() and "debug" not in path.parts
                      and path.read_bytes()[:4] == b"\x7fELF"]
            self.assertGreater(len(wanted), 0)
            for path in wanted:
                found = re.search(r"Build ID: (\w\w)(\w+)", output("readelf", "-n", path))
                debug = usr / "lib" / "debug" / ".build-id" / found[1] / f"{found[2]}.debug"
                self.assertIn(".debug_info", output("readelf", "-WS", debug), path)
                self.assertNotIn(".debug_info", output("readelf", "-WS", path), path)
                self.assertNotIn(str(ROOT).encode(), debug.read_bytes(), path)

    def use(self):
        library_folder = next(self.root.rglob("libkelplib.so.1")).parent
        search = {"LD_LIBRARY_PATH": str(library_folder)}
        folder = built("find_package", self.root.parent / "build", f"-DCMAKE_PREFIX_PATH={self.root / 'usr'}")
        self.assertEqual(output(folder / "tool", NUMBERS), TOOL_OUTPUT)
        flags = output("pkg-config", "--cflags", "--libs", "kelplib",
                       PKG_CONFIG_PATH=str(library_folder / "pkgconfig")).split()
        output("cc", HERE / "consumer" / "flat.c", "-o", self.root.parent / "flat", *flags)
        self.assertEqual(output(self.root.parent / "flat", **search), FLAT_OUTPUT)

    def use_python(self):
        # Without -B: Python writes compiled files, which the purge has to remove.
        code = 'import kelplib\nprint(list(kelplib.progress("ab")), kelplib.__file__)'
        package = self.root / "usr/lib/python3/dist-packages"
        search = {"LD_LIBRARY_PATH": str(next(self.root.rglob("libkelplib.so.1")).parent), "PYTHONPATH": str(package),
                  "PYTHONDONTWRITEBYTECODE": "", "PYTHONPYCACHEPREFIX": ""}
        self.assertEqual(output("/usr/bin/python3", "-c", code, **search), f"['a', 'b'] {package}/kelplib/__init__.py\n")
        self.assertTrue((package / "kelplib/__pycache__").exists())

    def use_kit(self):
        library_folder = next(self.root.rglob("libkelpkit.a")).parent
        folder = built("find_package_kit", self.folder / "build kit", f"-DCMAKE_PREFIX_PATH={self.root / 'usr'}")
        self.check_kit_tool(folder / "kit_tool")
        flags = output("pkg-config", "--cflags", "--libs", "kelpkit",
                       PKG_CONFIG_PATH=str(library_folder / "pkgconfig")).split()
        output("c++", "-std=c++17", HERE / "consumer" / "kit_tool.cpp", "-o", self.folder / "kit tool", *flags)
        self.check_kit_tool(self.folder / "kit tool", LD_LIBRARY_PATH=str(library_folder))
        # kelp-doc and kelp-check, too, find the library only where the system does.
        with unittest.mock.patch.dict(os.environ, LD_LIBRARY_PATH=str(library_folder)):
            folder = built(self.root / "usr/share/doc/kelplib-kit/examples/template", self.folder / "build template",
                           f"-DCMAKE_PREFIX_PATH={self.root / 'usr'}")
            self.assertIn("100% tests passed, 0 tests failed out of 2", output("ctest", "--test-dir", folder))
        self.assertTrue((folder / "documents/share/man/man1/tally.1").exists())

    def use_examples(self):
        search = {"LD_LIBRARY_PATH": str(next(self.root.rglob("libkelplib.so.1")).parent), "PATH": str(self.root / "usr/bin")}
        (self.folder / "heights").write_text("10 20\n")
        self.assertEqual(output("kelplib-convert", "-f=ft", self.folder / "heights", **search), "3.048\n6.096\n")
        self.assertEqual(refusal("kelplib-convert", self.folder / "heights", **search), "kelplib-convert: -f: say which unit the "
                         "numbers have, as in -f=ft (see kelplib-convert --help)")
        for tool in EXAMPLES:
            self.assertIn(f"\n  {tool} ", output(tool, "--help", ".", **search))

    def read_manual_pages(self):
        search = {"MANPATH": str(self.root / "usr/share/man"), "MANWIDTH": "80", "LC_ALL": "C.UTF-8"}
        for tool in (*PROGRAMS, *EXAMPLES):
            self.assertRegex(" ".join(output("man", tool, **search).split()), f" NAME {tool} . [A-Z].* SYNOPSIS {tool} ")

    def complete(self):
        for shell, settings in (("bash", [". /usr/share/bash-completion/bash_completion"]), ("zsh", []), ("fish", [])):
            with finding_completions(shell, self.root / "usr")("/nonexistent", *settings) as session:
                (session.work / "alpha.txt").write_text("")
                for tool in {typed.split()[0] for typed, _ in COMPLETED}:
                    session.add_tool(tool)
                for typed, words in COMPLETED:
                    with self.subTest(shell=shell, typed=typed):
                        line, _ = session.press(f"{typed}\t")
                        self.assertEqual(session.enter(), words, line)


if __name__ == "__main__":
    unittest.main()
