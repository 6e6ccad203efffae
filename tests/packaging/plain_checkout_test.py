#!/usr/bin/env python3
"""Checks which targets and flags a plain checkout gives its users: plain_checkout_test.py CXX_COMPILER"""

import json
import sys
import unittest

from consumers import ROOT, InOneFolder, output, refusal

CXX_COMPILER = sys.argv.pop()
NO_GOOGLETEST = "-DKELPLIB_GOOGLETEST_DIR=/no/such/folder"


class Checkout(InOneFolder):
    def configured(self, *settings, build="build"):
        """Configures a build for this test; returns the output of cmake, the targets and the compile commands."""
        build = self.folder / self.id() / build
        printed = output("cmake", "-G", "Ninja", "-S", ROOT, "-B", build, f"-DCMAKE_CXX_COMPILER={CXX_COMPILER}", *settings)
        targets = output("cmake", "--build", build, "--target", "help")
        commands = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
        return printed, targets, [entry["command"] for entry in commands]

    def compiler_of_version(self, major):
        """Returns the compiler, disguised as another version."""
        compiler = self.folder / f"version-{major}"
        compiler.write_text(f'#!/bin/sh\nexec "{CXX_COMPILER}" -U__GNUC__ -D__GNUC__={major} "$@"\n', encoding="utf-8")
        compiler.chmod(0o755)
        return compiler

    def check_errors(self, expected, commands):
        """Checks whether warnings are errors in the library's own code."""
        library = [command for command in commands if "/src/console/" in command]
        self.assertTrue(library)
        self.assertEqual({expected}, {" -Werror " in command for command in library})

    def test_it_has_no_tests_without_googletest(self):
        printed, targets, commands = self.configured(NO_GOOGLETEST)
        self.assertEqual(1, printed.count("\n-- Without tests, which need GoogleTest's sources in KELPLIB_GOOGLETEST_DIR "
                                          "(Debian's package googletest)\n"))
        self.assertNotIn("CMake Warning", printed)
        for target in ("libkelplib.so", "fragment"):
            self.assertIn(target, targets)
        self.assertNotIn("unit_tests", targets)
        self.check_errors(False, commands)
        # The next run looks again.
        self.assertIn("unit_tests", self.configured("-UKELPLIB_GOOGLETEST_DIR")[1])

    def test_it_has_no_tests_if_testing_is_switched_off(self):
        printed, targets, _ = self.configured("-DBUILD_TESTING=OFF", NO_GOOGLETEST)
        self.assertNotIn("Without tests", printed)
        self.assertIn("libkelplib.so", targets)
        self.assertNotIn("unit_tests", targets)

    def test_requested_tests_need_googletest(self):
        self.assertIn("The tests need GoogleTest's sources in KELPLIB_GOOGLETEST_DIR (Debian's package googletest)",
                      refusal("cmake", "-G", "Ninja", "-S", ROOT, "-B", self.folder / self.id(), NO_GOOGLETEST,
                              f"-DCMAKE_CXX_COMPILER={CXX_COMPILER}", "-DKELPLIB_BUILD_TESTS=ON"))

    def test_warnings_are_errors_only_in_presets_with_known_compilers(self):
        for version, errors in ((12, True), (11, False)):
            with self.subTest(version):
                compiler = self.compiler_of_version(version)
                self.check_errors(errors, self.configured("--preset", "dev", f"-DCMAKE_CXX_COMPILER={compiler}",
                                                          "-DKELPLIB_BUILD_TESTS=OFF", build=f"build-{version}")[2])


if __name__ == "__main__":
    unittest.main()
