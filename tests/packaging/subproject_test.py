#!/usr/bin/env python3
"""Builds kelplib inside another project: subproject_test.py WAY CXX_COMPILER BUILD_TYPE [LIBRARY]

WAY is add_subdirectory or fetch_content. The project uses a copy of kelplib in a folder with a blank in its name. LIBRARY
comes from kelplib's own build of the same type; the project has to build an identical file.
"""

import pathlib
import sys
import unittest

from consumers import NUMBERS, TOOL_OUTPUT, InOneFolder, built, copy_of_sources, output

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
        for name in ("unit_tests", "fragment", "guard_operations", "package:"):
            self.assertNotIn(f"\n{name}", targets)

    def test_the_project_installs_kelplib_only_when_asked(self):
        if WAY == "add_subdirectory":
            self.assertEqual(self.installed(self.folder / "alone"), ["bin/tool"])
            output("cmake", "-DKELPLIB_INSTALL=ON", self.build)
            files = self.installed(self.folder / "together")
            self.assertIn("bin/tool", files)
            self.assertEqual(len([name for name in files if name.endswith("/libkelplib.so.1.0.0")]), 1)
            self.assertIn("include/kelplib/Kelp.h", files)


if __name__ == "__main__":
    unittest.main()
