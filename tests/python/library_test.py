#!/usr/bin/env python3
"""How the Python package finds its library, and what it says if it does not: library_test.py LIBRARY OTHER_LIBRARY

OTHER_LIBRARY has the library's names and settings of another layout.
"""

import importlib.util
import os
import shutil
import subprocess
import sys
import unittest

import folder
from package_programs import LIBRARY, PACKAGE, environment

OTHER_LIBRARY = sys.argv.pop(1)
NAME = "libkelplib.so.1"
ADVICE = ("Install it (on Debian: the package libkelplib1), or set KELPLIB_LIBRARY to the path of the library. To find a library "
          "that is installed elsewhere, add its folder to LD_LIBRARY_PATH.\n")
LOADED = "import kelplib\nprint(kelplib._library._library._name)"


class Library(folder.FolderTestCase):
    def setUp(self):
        super().setUp()
        shutil.copytree(PACKAGE / "kelplib", self.folder / "a package" / "kelplib",
                        ignore=shutil.ignore_patterns("__pycache__"))
        self.package = self.folder / "a package"

    def run_python(self, code, **changed):
        """Returns the output of a program, or the last line of its errors."""
        search = {"PYTHONPATH": str(self.package), "KELPLIB_LIBRARY": "", **changed}
        done = subprocess.run([sys.executable, "-B", "-c", code], env=environment(**search), stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, encoding="utf-8", timeout=60, check=False)
        return done.stdout if done.returncode == 0 else done.stderr.rpartition("ImportError: ")[2]

    def test_the_variable(self):
        self.assertEqual(self.run_python(LOADED, KELPLIB_LIBRARY=LIBRARY), f"{LIBRARY}\n")

    def test_the_folder_of_the_package(self):
        beside = self.package / "kelplib" / NAME
        os.symlink(LIBRARY, beside)
        self.assertEqual(self.run_python(LOADED), f"{beside}\n")
        # The variable takes precedence.
        self.assertEqual(self.run_python(LOADED, KELPLIB_LIBRARY=LIBRARY), f"{LIBRARY}\n")

    def test_the_loader(self):
        os.symlink(LIBRARY, self.folder / NAME)
        self.assertEqual(self.run_python(LOADED, LD_LIBRARY_PATH=str(self.folder)), f"{NAME}\n")

    def test_a_missing_file(self):
        missing = str(self.folder / NAME)
        self.assertEqual(
            self.run_python(LOADED, KELPLIB_LIBRARY=missing),
            f"kelplib: cannot load {missing} (the file that KELPLIB_LIBRARY names): {missing}: cannot open shared object file: "
            f"No such file or directory. {ADVICE}")

    def test_a_missing_library(self):
        # This machine may have one.
        code = "import ctypes\ndef load(name): raise OSError(f'{name}: cannot open')\nctypes.CDLL = load\nimport kelplib"
        self.assertEqual(
            self.run_python(code),
            f"kelplib: cannot load {NAME} (searched in the folder {self.package / 'kelplib'}, LD_LIBRARY_PATH and the system's "
            f"folders): {NAME}: cannot open. {ADVICE}")

    def test_a_file_of_another_kind(self):
        self.write(NAME, b"text")
        self.assertIn(f"{NAME} (the file that KELPLIB_LIBRARY names): ",
                      self.run_python(LOADED, KELPLIB_LIBRARY=str(self.folder / NAME)))

    def test_another_processor(self):
        with open(LIBRARY, "rb") as file:
            library = bytearray(file.read())
        library[18:20] = (0x1234).to_bytes(2, sys.byteorder)
        self.write(NAME, bytes(library))
        other = str(self.folder / NAME)
        self.assertEqual(
            self.run_python(LOADED, KELPLIB_LIBRARY=other),
            f"kelplib: cannot load {other} (the file that KELPLIB_LIBRARY names): {other}: made for another kind of processor. "
            f"{ADVICE}")

    def test_another_version(self):
        for other in (OTHER_LIBRARY, "libc.so.6"):
            self.assertEqual(
                self.run_python(LOADED, KELPLIB_LIBRARY=other),
                f"kelplib: {other} (the file that KELPLIB_LIBRARY names) is not version 1 of the library kelplib. {ADVICE}")

    def test_a_program_can_do_without(self):
        code = "try:\n    import kelplib\nexcept ImportError as error:\n    print(error.name, error.path)"
        self.assertEqual(self.run_python(code, KELPLIB_LIBRARY="/nowhere"), "kelplib /nowhere\n")

    def test_a_display_of_the_process_stays_as_it_is(self):
        code = ("import ctypes\nlibrary = ctypes.CDLL(%r)\nlibrary.KELP_progress_global_init(ctypes.c_double(5), 7, b'mine', 1)\n"
                "settings = (ctypes.c_char * 176).in_dll(library, 'KELP_GlobalProgress')\nbefore = settings.raw\n"
                "import kelplib\nprint(settings.raw == before, kelplib._library.settings.text)" % LIBRARY)
        self.assertEqual(self.run_python(code, KELPLIB_LIBRARY=LIBRARY), "True b'mine'\n")
        self.assertEqual(self.run_python(code, KELPLIB_LIBRARY=LIBRARY, MSYSTEM=""), "True b'mine'\n")

    @unittest.skipUnless(importlib.util.find_spec("pip") and importlib.util.find_spec("setuptools"),
                         "pip or setuptools is missing")
    def test_installation_with_pip(self):
        sources = self.folder / "sources"
        shutil.copytree(PACKAGE, sources, ignore=shutil.ignore_patterns("__pycache__"))
        target = self.folder / "target"
        subprocess.run([sys.executable, "-m", "pip", "install", "--quiet", "--no-index", "--no-build-isolation", "--no-deps",
                        "--root-user-action=ignore", "--disable-pip-version-check", "--target", target, sources],
                       stdin=subprocess.DEVNULL, check=True)
        installed = {path.name for path in (target / "kelplib").iterdir() if path.is_file()}
        self.assertEqual(installed, {path.name for path in (PACKAGE / "kelplib").iterdir() if path.is_file()})
        shown = self.run_python(LOADED + "\nprint(kelplib.__file__)\nimport importlib.metadata\n"
                                "print(importlib.metadata.version('kelplib'))", PYTHONPATH=str(target), KELPLIB_LIBRARY=LIBRARY)
        self.assertEqual(shown, f"{LIBRARY}\n{target / 'kelplib' / '__init__.py'}\n1.0.0\n")


if __name__ == "__main__":
    unittest.main()
