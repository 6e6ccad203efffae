#!/usr/bin/env python3
"""Uses an installed kelplib in every way: installed_test.py BUILD_FOLDER C_COMPILER CXX_COMPILER --flags=CXX_FLAGS"""

import pathlib
import re
import shlex
import shutil
import sys
import unittest

from consumers import (FLAT_OUTPUT, HERE, LIBRARY_HEADERS, NUMBERS, ROOT, TOOL_OUTPUT, InOneFolder, built, documents, kit_files,
                       output, refusal)

BUILD, C_COMPILER, CXX_COMPILER, CXX_FLAGS = sys.argv[1:]
CXX_FLAGS = CXX_FLAGS.removeprefix("--flags=")
del sys.argv[1:]


class Installed(InOneFolder):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.prefix = cls.folder / "prefix"
        output("cmake", "--install", BUILD, "--prefix", cls.prefix)
        # Everything has to work after a move, too, even to a path with blanks.
        cls.moved = cls.folder / "a moved" / "pre fix"
        shutil.copytree(cls.prefix, cls.moved, symlinks=True)
        cls.library_folder = next(cls.prefix.rglob("libkelplib.so.1")).parent.relative_to(cls.prefix)

    SETTINGS = (f"-DCMAKE_CXX_COMPILER={CXX_COMPILER}", f"-DCMAKE_CXX_FLAGS={CXX_FLAGS}")

    def flags(self, prefix, name="kelplib"):
        printed = output("pkg-config", "--cflags", "--libs", name,
                         PKG_CONFIG_PATH=str(prefix / self.library_folder / "pkgconfig"))
        return [*shlex.split(printed), f"-Wl,-rpath,{prefix / self.library_folder}"]

    def test_by_find_package(self):
        for name, prefix in (("installed", self.prefix), ("moved", self.moved)):
            with self.subTest(name):
                folder = built("find_package", self.folder / f"build {name}", f"-DCMAKE_PREFIX_PATH={prefix}",
                               *self.SETTINGS)
                self.assertEqual(output(folder / "tool", NUMBERS), TOOL_OUTPUT)

    def test_by_pkg_config(self):
        for name, prefix in (("installed", self.prefix), ("moved", self.moved)):
            with self.subTest(name):
                tool = self.folder / f"tool {name}"
                output(CXX_COMPILER, "-std=c++17", *shlex.split(CXX_FLAGS), HERE / "consumer" / "tool.cpp", "-o", tool,
                       *self.flags(prefix))
                self.assertEqual(output(tool, NUMBERS), TOOL_OUTPUT)

    def kit_built(self, name, prefix):
        """Builds the tool made with the kit by find_package; returns the folder."""
        return built("find_package_kit", self.folder / f"kit {name}", f"-DCMAKE_PREFIX_PATH={prefix}",
                     *self.SETTINGS)

    def test_the_kit_by_find_package(self):
        for name, prefix in (("installed", self.prefix), ("moved", self.moved)):
            with self.subTest(name):
                self.check_kit_tool(self.kit_built(name, prefix) / "kit_tool")

    def test_the_kit_by_pkg_config(self):
        for name, prefix in (("installed", self.prefix), ("moved", self.moved)):
            with self.subTest(name):
                tool = self.folder / f"kit tool {name}"
                flags = self.flags(prefix, "kelpkit")
                self.assertEqual([word for word in flags if word.startswith("-l")], ["-lkelpkit", "-lkelplib"])
                output(CXX_COMPILER, "-std=c++17", *shlex.split(CXX_FLAGS), HERE / "consumer" / "kit_tool.cpp", "-o", tool, *flags)
                self.check_kit_tool(tool)

    def test_the_library_without_the_kit(self):
        prefix = self.folder / "without kit"
        for component in ("runtime", "development"):
            output("cmake", "--install", BUILD, "--prefix", prefix, "--component", component)
        self.assertEqual(self.plain_files(prefix), sorted(self.library_files()))
        built("find_package", self.folder / "build without kit", f"-DCMAKE_PREFIX_PATH={prefix}", *self.SETTINGS)
        printed = refusal("cmake", "-G", "Ninja", "-S", HERE / "find_package_kit", "-B", self.folder / "kit missing",
                          f"-DCMAKE_PREFIX_PATH={prefix}", *self.SETTINGS)
        self.assertIn("The component kit of kelplib is not installed:", printed)
        self.assertIn("The kit is Debian's package kelplib-kit, or part of an installation built with KELPLIB_BUILD_KIT=ON.",
                      printed)
        output("cmake", "--install", BUILD, "--prefix", prefix, "--component", "kit")
        self.check_kit_tool(self.kit_built("added", prefix) / "kit_tool")
        self.assertTrue((prefix / "share/doc/kelplib-kit/examples/template/tally.cpp").exists())

    def test_by_a_c_compiler_alone(self):
        # A program at a fixed address contains a copy of the library's object, which both must use.
        for name, words in (("any address", []), ("fixed address", ["-fno-pie", "-no-pie"])):
            with self.subTest(name):
                program = self.folder / f"flat {name}"
                output(C_COMPILER, "-std=c99", "-Wall", "-Wextra", "-Werror", *words, HERE / "consumer" / "flat.c", "-o",
                       program, *self.flags(self.moved))
                self.assertEqual(output(program), FLAT_OUTPUT)

    def test_by_python(self):
        code = ("import ctypes, sys\nlibrary = ctypes.CDLL(sys.argv[1])\n"
                "library.KELP_progress.argtypes = [ctypes.c_double, ctypes.c_double, ctypes.c_int, ctypes.c_char_p,"
                " ctypes.c_double]\nlibrary.KELP_progress(5, 10, 4, b'from Python ', 0)\n")
        library = self.moved / self.library_folder / "libkelplib.so.1"
        self.assertEqual(output(sys.executable, "-c", code, library), "from Python  50.0% ## |\r")

    def test_the_installed_examples_can_be_built(self):
        folder = self.folder / "examples"
        output("cmake", "-G", "Ninja", "-S", self.moved / "share/doc/kelplib/examples", "-B", folder,
               f"-Dkelplib_DIR={self.moved / self.library_folder / 'cmake/kelplib'}",
               f"-DCMAKE_C_COMPILER={C_COMPILER}", f"-DCMAKE_CXX_COMPILER={CXX_COMPILER}", f"-DCMAKE_CXX_FLAGS={CXX_FLAGS}")
        output("cmake", "--build", folder, "--parallel", "2", "--target", "flat_progress", "slice")
        self.assertTrue((folder / "slice").exists())

    def test_the_example_tools(self):
        if not (pathlib.Path(BUILD) / "examples").exists():
            self.skipTest("the build has no examples")
        prefix = self.folder / "examples' prefix"
        for component in ("runtime", "examples"):
            output("cmake", "--install", BUILD, "--prefix", prefix, "--component", component)
        output(prefix / "bin" / "checksum", "--help")
        for name in documents("checksum"):
            self.assertTrue((prefix / name).exists(), name)

    def test_no_file_contains_a_path_of_this_machine(self):
        for path in sorted(self.prefix.rglob("*")):
            if path.suffix in (".cmake", ".pc", ".h"):
                text = path.read_text(encoding="utf-8")
                for known in (str(self.folder), str(ROOT), BUILD):
                    self.assertNotIn(known, text, path)

    def library_files(self):
        library = self.library_folder.as_posix()
        return [*LIBRARY_HEADERS, *(f"{library}/{name}" for name in (
            "cmake/kelplib/kelplibConfig.cmake", "cmake/kelplib/kelplibConfigVersion.cmake",
            "cmake/kelplib/kelplibTargets.cmake", "libkelplib.so", "libkelplib.so.1", "libkelplib.so.1.0.0",
            "pkgconfig/kelplib.pc"))]

    def plain_files(self, prefix):
        """Returns the names of the installed files without the documentation and the settings of one build type."""
        files = [path.relative_to(prefix).as_posix() for path in prefix.rglob("*") if not path.is_dir()]
        beside = re.compile(rf"share/doc/|{self.library_folder.as_posix()}/cmake/kelplib/kelplib(Kit)?Targets-\w+\.cmake")
        return sorted(name for name in files if not beside.match(name))

    def test_exactly_the_public_files_are_installed(self):
        files = [*self.library_files(), *kit_files(self.library_folder.as_posix())]
        self.assertEqual(self.plain_files(self.prefix), sorted(files))
        for name in ("README.md", "LICENSE", "docs/cmake.md", "examples/template/tally.cpp"):
            self.assertTrue((self.prefix / "share/doc/kelplib" / name).exists(), name)

    def test_the_library_and_its_headers_do_not_depend_on_the_kit(self):
        for name in LIBRARY_HEADERS:
            self.assertEqual((self.prefix / name).read_bytes(), (ROOT / name).read_bytes(), name)
            self.assertNotIn("kelpkit", (ROOT / name).read_text(encoding="utf-8"), name)


if __name__ == "__main__":
    unittest.main()
