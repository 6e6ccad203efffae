#!/usr/bin/env python3
"""Uses the zip for Windows in another project: windows_test.py BUILD_FOLDER TOOLCHAIN_FILE C_COMPILER PARTS_PROBE

cpack makes the zip. The programs of consumer/ are cross-compiled with its contents and run under wine.
"""

import os
import sys
import unittest
import zipfile

import programs
from consumers import (FLAT_OUTPUT, HERE, KIT_OUTPUT, KIT_REFUSAL, NUMBERS, ROOT, TOOL_OUTPUT, InOneFolder, built, documents,
                       kit_files, output)

BUILD, TOOLCHAIN, C_COMPILER, PARTS_PROBE = sys.argv[1:]
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
                     "lib/pkgconfig/kelplib.pc", "include/kelplib/Kelp.h", "share/doc/kelplib/LICENSE",
                     "share/doc/kelplib/docs/cmake.md", "share/doc/kelplib/examples/template/CMakeLists.txt",
                     "lib/cmake/kelplib/windows_tool.manifest", "lib/cmake/kelplib/windows_tool.rc.in",
                     *kit_files("lib", suffix=".exe")):
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
