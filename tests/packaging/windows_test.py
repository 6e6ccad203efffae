#!/usr/bin/env python3
"""Uses the zip for Windows in another project: windows_test.py BUILD_FOLDER TOOLCHAIN_FILE C_COMPILER

cpack makes the zip. The programs of consumer/ are cross-compiled with its contents and run under wine.
"""

import os
import sys
import unittest
import zipfile

import programs
from consumers import FLAT_OUTPUT, HERE, KIT_OUTPUT, KIT_REFUSAL, NUMBERS, TOOL_OUTPUT, InOneFolder, built, kit_files, output

BUILD, TOOLCHAIN, C_COMPILER = sys.argv[1:]
del sys.argv[1:]


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
                     "lib/pkgconfig/kelplib.pc", "include/kelplib/Kelp.h", "share/doc/kelplib/LICENSE", *kit_files("lib")):
            self.assertIn(f"{self.prefix.name}/{name}", self.names)

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

    def test_by_a_c_compiler_alone(self):
        program = self.folder / "flat.exe"
        output(C_COMPILER, "-std=c99", "-Wall", "-Wextra", "-Werror", HERE / "consumer" / "flat.c", "-o", program,
               f"-I{self.prefix}/include", f"-L{self.prefix}/lib", "-lkelplib")
        self.assertEqual(self.outcome(program), (0, FLAT_OUTPUT))


if __name__ == "__main__":
    unittest.main()
