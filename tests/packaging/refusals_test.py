#!/usr/bin/env python3
"""Checks the errors when kelplib cannot be built or used: refusals_test.py BUILD_FOLDER CXX_COMPILER"""

import os
import pathlib
import shutil
import sys
import tempfile
import unittest

from consumers import HERE, ROOT, output, refusal

BUILD, CXX_COMPILER = sys.argv[1:]
del sys.argv[1:]


class Refusals(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory(prefix="kelplib.")
        self.addCleanup(holder.cleanup)
        self.folder = pathlib.Path(holder.name)

    def file(self, name, text, mode=0o644):
        path = self.folder / name
        path.parent.mkdir(exist_ok=True)
        path.write_text(text, encoding="utf-8")
        path.chmod(mode)
        return path

    def commands(self, *names):
        """Creates a folder with only these commands of the system."""
        folder = self.folder / "commands"
        folder.mkdir()
        for name in names:
            (folder / name).symlink_to(shutil.which(name))
        return folder

    def test_an_old_cmake_does_not_find_it(self):
        output("cmake", "--install", BUILD, "--prefix", self.folder / "prefix")
        script = self.file("find.cmake", "set(CMAKE_VERSION 3.22.9)\nfind_package(kelplib REQUIRED CONFIG)\n")
        # find_package cannot search by itself, because a script has no compiler that determines the library folder.
        package = next(self.folder.rglob("kelplibConfig.cmake")).parent
        printed = refusal("cmake", f"-Dkelplib_DIR={package}", "-P", script)
        self.assertIn("kelplib needs CMake 3.23 or newer; this is 3.22.9.", printed)

    def test_an_unknown_component_is_named(self):
        output("cmake", "--install", BUILD, "--prefix", self.folder / "prefix")
        self.file("project/CMakeLists.txt", "cmake_minimum_required(VERSION 3.25)\nproject(consumer LANGUAGES CXX)\n"
                                            "find_package(kelplib OPTIONAL_COMPONENTS forest)\n"
                                            "message(STATUS \"found=${kelplib_FOUND},${kelplib_forest_FOUND}.\")\n"
                                            "find_package(kelplib REQUIRED COMPONENTS kit kelp)\n")
        printed = refusal("cmake", "-G", "Ninja", "-S", self.folder / "project", "-B", self.folder / "build",
                          f"-DCMAKE_PREFIX_PATH={self.folder / 'prefix'}", f"-DCMAKE_CXX_COMPILER={CXX_COMPILER}")
        self.assertRegex(printed, "found=(1|TRUE),FALSE[.]")
        self.assertIn("kelplib has no component kelp; its only component is kit.", printed)

    def test_an_old_compiler_does_not_build_it(self):
        self.file("old/filesystem", '#error "not in this library"\n')
        for way in ("add_subdirectory", "fetch_content"):
            with self.subTest(way):
                printed = refusal("cmake", "-G", "Ninja", "-S", HERE / way, "-B", self.folder / way,
                               f"-DKELPLIB_FOLDER={ROOT}", f"-DCMAKE_CXX_COMPILER={CXX_COMPILER}",
                               f"-DCMAKE_CXX_FLAGS=-isystem {self.folder / 'old'}")
                self.assertIn("kelplib needs a C++17 compiler and standard library with <filesystem>", printed)

    def test_an_old_language_does_not_include_it(self):
        for header, language, allowed in (("CommandLineTool.h", "c++14", False), ("CommandLineTool.h", "c++17", True),
                                          ("KelpProgress.h", "c++11", False), ("Kelp.h", "c++20", True)):
            source = self.file("source.cpp", f"#include <kelplib/{header}>\n")
            command = [CXX_COMPILER, f"-std={language}", "-fsyntax-only", f"-I{ROOT / 'include'}", source]
            with self.subTest(header, language=language):
                if allowed:
                    output(*command)
                else:
                    self.assertIn('#error "kelplib needs C++17: compile with -std=c++17 or newer"', refusal(*command))

    def test_a_missing_cross_compiler_is_named(self):
        folder = self.commands("cmake")
        printed = refusal("cmake", "-G", "Ninja", "-S", HERE / "add_subdirectory", "-B", self.folder / "build",
                       f"-DKELPLIB_FOLDER={ROOT}", f"-DCMAKE_TOOLCHAIN_FILE={ROOT / 'cmake' / 'windows-toolchain.cmake'}",
                       PATH=str(folder))
        # Nothing is printed before.
        self.assertRegex(printed, r"^CMake Error at \S+/windows-toolchain.cmake:\d+ \(message\): The cross-compiler "
                               r"x86_64-w64-mingw32-g\+\+-posix is missing \(Debian's package "
                               r"g\+\+-mingw-w64-x86-64-posix\)\.")

    def test_a_package_that_cannot_be_installed_is_named(self):
        tools = self.file("tools/apt-get", "#!/bin/sh\necho E: no network\nexit 100\n", 0o755).parent
        self.file("tools/sudo", '#!/bin/sh\nwhile [ "$1" != apt-get ]; do shift; done\nexec "$@"\n', 0o755)
        script = self.file("scripts/try", f"source {ROOT}/scripts/lib/setup.sh\n"
                                          "needs+=('no-such-command no-such-package')\ninstall_missing\n")
        printed = refusal("bash", script, PATH=f"{tools}:{os.environ['PATH']}")
        self.assertTrue(printed.endswith("scripts/try: missing and could not be installed: no-such-package"), printed)


if __name__ == "__main__":
    unittest.main()
