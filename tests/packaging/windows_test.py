#!/usr/bin/env python3
"""Uses the zip for Windows in another project: windows_test.py BUILD_FOLDER TOOLCHAIN_FILE C_COMPILER PARTS_PROBE

cpack makes the zip. The programs of consumer/ are cross-compiled with its contents and run under wine.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import unittest
import zipfile

import programs
from consumers import (FLAT_OUTPUT, HERE, KIT_OUTPUT, KIT_REFUSAL, NUMBERS, ROOT, TOOL_OUTPUT, InOneFolder, built, documents,
                       kit_files, output, prose)

BUILD, TOOLCHAIN, C_COMPILER, PARTS_PROBE = sys.argv[1:]
del sys.argv[1:]
EXAMPLES = ("checksum", "convert", "fragment", "histogram", "sequence", "tally")
RUNTIME = ("libgcc_s_seh-1.dll", "libstdc++-6.dll", "libwinpthread-1.dll")


def alone(program, *arguments, folder=None):
    """Runs a program under wine, which finds no DLLs but those beside the program and in its folder; returns what it prints."""
    wine = ROOT / "cmake" / "run-under-wine"
    # Starts wine's server as other tests do, because a program that starts while it ends fails.
    output(wine, "cmd", "/c", "exit")
    prefix = os.environ.get("KELPLIB_WINEPREFIX") or (
        os.environ.get("XDG_CACHE_HOME") or f"{pathlib.Path.home()}/.cache") + "/kelplib-wine"
    environment = {**os.environ, "WINEPREFIX": prefix, "WINEDEBUG": "-all", "WINEDLLOVERRIDES": "mscoree,mshtml="}
    del environment["WINEPATH"]
    for _ in range(2):
        done = subprocess.run(["wine", program, *arguments], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, cwd=folder,
                              stderr=subprocess.DEVNULL, env=environment, timeout=300, check=False)
        # As in programs.run(): some starts of wine end silently with status 1 on a busy machine.
        if (done.returncode, done.stdout) != (1, b""):
            break
    return done.returncode, done.stdout.decode().replace("\r\n", "\n")


class WindowsZip(InOneFolder):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        output("cpack", "-G", "ZIP", "-B", cls.folder, "--config", f"{BUILD}/CPackConfig.cmake")
        with zipfile.ZipFile(next(cls.folder.glob("*.zip"))) as archive:
            cls.names = archive.namelist()
            archive.extractall(cls.folder)
        cls.prefix = cls.folder / "kelplib-1.0.0-windows-x86_64"
        os.environ["WINEPATH"] = "Z:" + str(cls.prefix / "bin").replace("/", "\\")

    def outcome(self, program, *arguments):
        status, text, _ = programs.run(program, *arguments)
        return status, text.decode().replace("\r\r\n", "\r\n")

    def test_everything_is_in_it(self):
        for name in ("bin/kelplib.dll", "lib/libkelplib.dll.a", "lib/cmake/kelplib/kelplibConfig.cmake",
                     "lib/pkgconfig/kelplib.pc", "include/kelplib/Kelp.h", "README.md", "LICENSE",
                     *(f"licences/{text}.txt" for text in ("README", "GPL-3", "gcc-runtime", "winpthreads")),
                     "share/doc/kelplib/docs/cmake.md", "share/doc/kelplib/examples/template/CMakeLists.txt",
                     "lib/cmake/kelplib/windows_tool.manifest", "lib/cmake/kelplib/windows_tool.rc.in",
                     *kit_files("lib", suffix=".exe")):
            self.assertIn(f"{self.prefix.name}/{name}", self.names)
        self.assertEqual(sorted(path.name for path in (self.prefix / "bin").iterdir()), sorted([
            "kelplib.dll", "kelp-check.exe", "kelp-doc.exe", *RUNTIME, *(f"{tool}.exe" for tool in EXAMPLES)]))
        self.assertEqual({name.split("/")[1] for name in self.names},
                         {"LICENSE", "README.md", "bin", "include", "lib", "licences", "share"})
        pages = sorted(path.relative_to(self.prefix).as_posix() for path in self.prefix.rglob("*.md")
                       if "examples" not in path.parts)
        self.assertEqual(pages, sorted(["README.md", *(f"share/doc/kelplib/{name}" for name in (
            "CHANGELOG.md", "README.md", *(f"docs/{page.name}" for page in (ROOT / "docs").glob("*.md") if page.stem not in (
                "deliberate", "testing", "tour"))))]))

    def test_links_of_the_pages(self):
        for page in self.prefix.rglob("*.md"):
            for link in re.findall(r"\]\(([^)#:\s]+)[)#]", prose(page)):
                self.assertTrue((page.parent / link).exists(), f"{page}: {link}")

    def test_origin_of_the_runtime(self):
        text = (self.prefix / "licences" / "README.txt").read_text(encoding="utf-8")
        for name in RUNTIME:
            self.assertIn(name, text)
        self.assertEqual(len(re.findall(r"^    \S*mingw\S+ \d\S+$", text, flags=re.MULTILINE)), 2, text)
        licences = [(self.prefix / "licences" / f"{name}.txt").read_text(encoding="utf-8")
                    for name in ("GPL-3", "gcc-runtime", "winpthreads")]
        for licence, words in zip(licences, ("GNU GENERAL PUBLIC LICENSE", "GCC RUNTIME LIBRARY EXCEPTION",
                                             "mingw-w64-libraries/winpthreads")):
            self.assertIn(words, licence)

    def test_examples_alone(self):
        moved = self.folder / "a moved" / "zip's folder"
        shutil.copytree(self.prefix, moved)
        for tool in EXAMPLES:
            status, text = alone(moved / "bin" / f"{tool}.exe", "--help")
            self.assertEqual((status, f"\n  {tool} " in text), (0, True), (tool, text))
        self.assertEqual(alone(moved / "bin" / "sequence.exe", "-r=1:3"), (0, "1\n2\n3\n"))
        self.assertEqual(alone(moved / "bin" / "kelp-doc.exe", "--help")[0], 0)

    def test_the_readme(self):
        readme = (self.prefix / "README.md").read_text(encoding="utf-8")
        self.assertRegex(readme, r"tested with\ng\+\+ \d+")
        folder = self.folder / "a newcomer's tool"
        folder.mkdir()
        files = re.findall(r"`([\w.]+)`:\n\n```\w+\n(.*?)```", readme, flags=re.DOTALL)
        self.assertEqual([name for name, _ in files], ["hello.cpp", "CMakeLists.txt"])
        for name, text in files:
            (folder / name).write_text(text, encoding="utf-8")
        commands = re.findall(r"^    (.*)$", readme, flags=re.MULTILINE)
        compilation = next(words.split()[1:] for words in commands if words.startswith("g++"))
        copies = [words for words in commands if words.startswith("copy ")]
        self.assertEqual(copies, [r"copy KELPLIB\bin\*.dll .", r"copy KELPLIB\bin\*.dll build"])
        compiler = re.sub("gcc(?=-posix$|$)", "g++", C_COMPILER)
        subprocess.run([compiler, *(word.replace("KELPLIB", str(self.prefix)) for word in compilation)], cwd=folder, check=True)
        configuration = next(words.split()[1:] for words in commands if words.startswith("cmake -G"))
        subprocess.run(["cmake", *(word.replace("KELPLIB", str(self.prefix)) for word in configuration if "CXX_COMPILER" not in word),
                        f"-DCMAKE_TOOLCHAIN_FILE={TOOLCHAIN}", f"-Dkelplib_DIR={self.prefix}/lib/cmake/kelplib"],
                       cwd=folder, check=True, stdout=subprocess.DEVNULL)
        output("cmake", "--build", folder / "build")
        for place in (folder, folder / "build"):
            for dll in (self.prefix / "bin").glob("*.dll"):
                shutil.copy(dll, place)
            self.assertEqual(alone(place / "hello.exe", "-n=2", folder=folder), (0, "Hello\nHello\n"))

    def test_by_find_package(self):
        folder = built("find_package", self.folder / "build", f"-DCMAKE_TOOLCHAIN_FILE={TOOLCHAIN}",
                       f"-Dkelplib_DIR={self.prefix}/lib/cmake/kelplib")
        self.assertEqual(self.outcome(folder / "tool.exe", NUMBERS), (0, TOOL_OUTPUT))

    def test_the_kit_by_find_package(self):
        folder = built("find_package_kit", self.folder / "build kit", f"-DCMAKE_TOOLCHAIN_FILE={TOOLCHAIN}",
                       f"-Dkelplib_DIR={self.prefix}/lib/cmake/kelplib")
        self.assertEqual(self.outcome(folder / "kit_tool.exe", "-n=5"), (0, KIT_OUTPUT))
        status, text, problem = programs.run(folder / "kit_tool.exe", "-n=3x")
        self.assertEqual(status, 2)
        self.assertTrue(" ".join((text + problem).decode().split()).startswith(KIT_REFUSAL), problem)

    def test_windows_parts(self):
        for generator in ("Ninja", "Unix Makefiles"):
            with self.subTest(generator=generator):
                folder = self.folder / f"é's parts $(touch executed) {generator}"
                output("cmake", "-G", generator, "-S", HERE / "windows_parts", "-B", folder,
                       f"-DCMAKE_TOOLCHAIN_FILE={TOOLCHAIN}", f"-Dkelplib_DIR={self.prefix}/lib/cmake/kelplib")
                output("cmake", "--build", folder)
                self.assertEqual(self.outcome(folder / "kit tool.exe", "-n=5"), (0, KIT_OUTPUT))
                self.assertEqual(self.outcome(folder / "flat.exe"), (0, FLAT_OUTPUT))
                self.assertEqual(self.resources(folder / "kit tool.exe"), [
                    "20005.0 20005.0 40004 1", 'A "tool" & more', "2.5", "kit_tool", "kit tool.exe", "kit_tool", "2.5"])
                self.assertEqual(self.resources(folder / "flat.exe"), [
                    "0.0 0.0 40004 1", "flat", "70000.1", "flat", "flat.exe", "flat", "70000.1"])
                self.assertEqual(list(folder.rglob("executed")), [])

    def resources(self, program):
        return self.outcome(PARTS_PROBE, "resources", "Z:" + str(program).replace("/", "\\"))[1].splitlines()[:7]

    def test_the_template(self):
        folder = built(ROOT / "examples" / "template", self.folder / "build template", f"-DCMAKE_TOOLCHAIN_FILE={TOOLCHAIN}",
                       f"-Dkelplib_DIR={self.prefix}/lib/cmake/kelplib", "-DCMAKE_INSTALL_PREFIX=/usr")
        # The tool runs in its folder, without that of the library in WINEPATH.
        self.assertIn("100% tests passed", output("ctest", "--test-dir", folder, WINEPATH=""))
        self.assertEqual(programs.run(folder / "tally.exe", "--version", env={**os.environ, "WINEPATH": ""})[:2],
                         (0, b"tally 1.0.0\n"))
        self.assertIn("ninja: no work to do.", output("cmake", "--build", folder))
        installed = self.folder / "installed template"
        output("cmake", "--install", folder, "--prefix", installed)
        self.assertEqual(sorted(path.relative_to(installed).as_posix() for path in installed.rglob("*") if path.is_file()),
                         sorted(["bin/kelplib.dll", "bin/tally.exe", *documents("tally")]))

    def test_by_a_c_compiler_alone(self):
        program = self.folder / "flat.exe"
        output(C_COMPILER, "-std=c99", "-Wall", "-Wextra", "-Werror", HERE / "consumer" / "flat.c", "-o", program,
               f"-I{self.prefix}/include", f"-L{self.prefix}/lib", "-lkelplib")
        self.assertEqual(self.outcome(program), (0, FLAT_OUTPUT))


if __name__ == "__main__":
    unittest.main()
