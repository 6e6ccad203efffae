#!/usr/bin/env python3
"""Builds kelplib inside another project: subproject_test.py WAY CXX_COMPILER BUILD_TYPE [LIBRARY]

WAY is add_subdirectory or fetch_content. The project uses a copy of kelplib in a folder with a blank in its name. LIBRARY
comes from kelplib's own build of the same type, with the kit; the project has to build an identical file, without the kit.
"""

import pathlib
import re
import sys
import unittest

from consumers import LIBRARY_HEADERS, NUMBERS, ROOT, TOOL_OUTPUT, InOneFolder, built, copy_of_sources, documents, kit_files, output

WAY, CXX_COMPILER, BUILD_TYPE, *LIBRARY = sys.argv[1:]
del sys.argv[1:]


class Subproject(InOneFolder):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.build = built(WAY, cls.folder / "its build", f"-DCMAKE_CXX_COMPILER={CXX_COMPILER}",
                          f"-DCMAKE_BUILD_TYPE={BUILD_TYPE}",
                          f"-DKELPLIB_FOLDER={copy_of_sources(cls.folder / 'its kelplib')}")

    def installed(self, prefix):
        output("cmake", "--install", self.build, "--prefix", prefix)
        return sorted(path.relative_to(prefix).as_posix() for path in prefix.rglob("*") if not path.is_dir())

    def test_the_tool_runs(self):
        self.assertEqual(output(self.build / "tool", NUMBERS), TOOL_OUTPUT)

    @unittest.skipUnless(LIBRARY, "no library to compare with")
    def test_the_library_is_the_same_as_from_another_folder(self):
        own = next(self.build.rglob("libkelplib.so.1.0.0"))
        self.assertTrue(own.read_bytes() == pathlib.Path(LIBRARY[0]).read_bytes(), f"{own} differs from {LIBRARY[0]}")

    def test_the_project_gets_no_tests_of_kelplib(self):
        if WAY == "add_subdirectory":
            self.assertIn("Total Tests: 0", output("ctest", "--test-dir", self.build, "--show-only"))
        targets = output("cmake", "--build", self.build, "--target", "help")
        for name in ("unit_tests", "fragment", "guard_operations", "kelplib_kit", "package:"):
            self.assertNotIn(f"\n{name}", targets)

    def test_the_project_installs_kelplib_only_when_asked(self):
        if WAY == "add_subdirectory":
            self.assertEqual(self.installed(self.folder / "alone"), ["bin/tool"])
            output("cmake", "-DKELPLIB_INSTALL=ON", self.build)
            files = self.installed(self.folder / "together")
            self.assertIn("bin/tool", files)
            self.assertEqual(len([name for name in files if name.endswith("/libkelplib.so.1.0.0")]), 1)
            self.assertIn("include/kelplib/Kelp.h", files)
            self.assertEqual([name for name in files if "kit" in name.lower() and "share/doc" not in name], [])

    def test_the_project_gets_the_kit_only_when_asked(self):
        self.addCleanup(output, "cmake", "-DKELPLIB_BUILD_KIT=OFF", "-DKELPLIB_INSTALL=OFF", self.build)
        library = next(self.build.rglob("libkelplib.so.1.0.0"))
        names_without_kit, without_kit = output("nm", "-D", "--defined-only", library), library.read_bytes()
        self.assertIn("-- Installs tally without kelplib, which needs KELPLIB_INSTALL=ON\n",
                      output("cmake", "-DKELPLIB_BUILD_KIT=ON", self.build))
        self.assertNotIn("without kelplib", output("cmake", "-DKELPLIB_INSTALL=ON", self.build))
        output("cmake", "--build", self.build, "--parallel", "2")
        self.check_kit_tool(self.build / "kit_tool")
        self.assertEqual(output("nm", "-D", "--defined-only", library), names_without_kit)
        self.assertTrue(library.read_bytes() == without_kit, f"the kit changes {library}")
        prefix = self.folder / "with kit"
        files = self.installed(prefix)
        library_folder = next(prefix.rglob("libkelpkit.a")).parent.relative_to(prefix).as_posix()
        expected = [*kit_files(library_folder), "bin/tally", *documents("tally")]
        self.assertEqual([name for name in expected if name not in files], [])
        self.assertEqual(output(prefix / "bin" / "tally", "--version"), "tally 1.0.0\n")
        self.assertIn("ninja: no work to do.", output("cmake", "--build", self.build))
        if WAY == "add_subdirectory":
            printed = output("ctest", "--test-dir", self.build)
            self.assertIn("100% tests passed", printed)
            self.assertEqual({name.split("-")[0] for name in re.findall(r"Test +#\d+: (\S+)", printed)}, {"tally"})
        for name in LIBRARY_HEADERS:
            self.assertEqual((prefix / name).read_bytes(), (ROOT / name).read_bytes(), name)


if __name__ == "__main__":
    unittest.main()
