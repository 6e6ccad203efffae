#!/usr/bin/env python3
"""Checks name, binding and hardening of the library: library_test.py LIBRARY VERSION HARDENED STACK_GUARD START_FILE TOOL...

HARDENED is ON or OFF. STACK_GUARD is ON if the C library provides __stack_chk_fail. START_FILE is the C library's crti.o.
The TOOLs are readelf, nm and objdump, on Windows only objdump.
"""

import re
import subprocess
import sys
import unittest

LIBRARY, VERSION, HARDENED, STACK_GUARD, START_FILE, *TOOLS = sys.argv[1:]
del sys.argv[1:]
ON_WINDOWS = len(TOOLS) == 1
hardened_only = unittest.skipUnless(HARDENED == "ON", "built without hardening")


def output_of(tool, *arguments, file=LIBRARY):
    return subprocess.run([tool, *arguments, file], stdout=subprocess.PIPE, check=True, encoding="utf-8").stdout


@unittest.skipIf(ON_WINDOWS, "for ELF")
class OnElf(unittest.TestCase):
    def setUp(self):
        self.dynamic = output_of(TOOLS[0], "-dW")

    def undefined(self):
        return {line.split()[-1].split("@")[0] for line in output_of(TOOLS[1], "-D", "--undefined-only").splitlines()}

    def test_its_name_has_the_major_version(self):
        major = VERSION.split(".", maxsplit=1)[0]
        self.assertIn(f"Library soname: [libkelplib.so.{major}]", self.dynamic)

    def test_its_data_is_shared_with_the_tools(self):
        # With -Bsymbolic tool and library would each have their own KELP_GlobalProgress.
        self.assertNotIn("SYMBOLIC", self.dynamic)

    @hardened_only
    def test_it_imports_no_more_names_than_it_did(self):
        # The loader looks up each at the start of every tool. Stream classes and members of std::string bring many.
        compilers = output_of(TOOLS[0], "-p", ".comment")
        if "(Debian 12." not in compilers or "clang" in compilers or "X86-64" not in output_of(TOOLS[0], "-h"):
            self.skipTest("other compilers and processors need other names")
        names = self.undefined()
        self.assertLessEqual(len(names), 138, "\n".join(sorted(names)))

    @hardened_only
    def test_its_tables_are_bound_at_once_and_then_read_only(self):
        self.assertRegex(self.dynamic, r"\(FLAGS\).*\bBIND_NOW\b")
        self.assertRegex(self.dynamic, r"\(FLAGS_1\).*\bNOW\b")
        segments = output_of(TOOLS[0], "-lW")
        self.assertIn("GNU_RELRO", segments)
        self.assertRegex(segments, r"GNU_STACK .* RW +0x")

    @hardened_only
    def test_its_stacks_are_checked(self):
        self.assertIn("__stack_chk_fail", self.undefined())

    @hardened_only
    def test_its_calls_are_checked(self):
        if "clang" in output_of(TOOLS[0], "-p", ".comment"):
            self.skipTest("clang checks only buffers of known size, of which there are none here")
        undefined = self.undefined()
        self.assertIn("__snprintf_chk", undefined)
        self.assertNotIn("snprintf", undefined)

    @hardened_only
    def test_its_functions_are_marked_as_targets_of_jumps(self):
        if "X86-64" not in output_of(TOOLS[0], "-h"):
            self.skipTest("only x86-64 has these marks")
        code = output_of(TOOLS[2], "-d", "--no-show-raw-insn")
        for name in ("KELP_progress", "KELP_time_stamp", "KELP_sleep"):
            found = re.search(rf"<{name}>:\n.*", code)
            with self.subTest(name):
                self.assertTrue(found and found[0].endswith("endbr64"))

    @hardened_only
    def test_it_is_declared_guarded_exactly_where_the_start_files_are(self):
        if "X86-64" not in output_of(TOOLS[0], "-h"):
            self.skipTest("only x86-64 has this declaration")
        for guard in ("IBT", "SHSTK"):
            with self.subTest(guard):
                self.assertEqual(*(guard in output_of(TOOLS[0], "-nW", file=file) for file in (START_FILE, LIBRARY)))


@unittest.skipUnless(ON_WINDOWS, "for DLLs")
class OnWindows(unittest.TestCase):
    def setUp(self):
        self.headers = output_of(TOOLS[0], "-p")

    @hardened_only
    def test_it_can_be_loaded_anywhere_and_its_data_is_not_executable(self):
        for mark in ("HIGH_ENTROPY_VA", "DYNAMIC_BASE", "NX_COMPAT"):
            self.assertRegex(self.headers, rf"(?m)^\s+{mark}$")

    @unittest.skipUnless(HARDENED == "ON" and STACK_GUARD == "ON", "this mingw-w64 has no stack protector without a DLL")
    def test_its_stacks_are_checked(self):
        self.assertRegex(output_of(TOOLS[0], "-d"), r"call +\w+ <__stack_chk_fail>")

    def test_it_needs_the_runtime_of_the_compiler_and_the_system_only(self):
        needed = set(re.findall(r"DLL Name: (\S+)", self.headers))
        self.assertEqual(needed - {"libgcc_s_seh-1.dll", "libstdc++-6.dll", "libwinpthread-1.dll"},
                         {"KERNEL32.dll", "msvcrt.dll"})


if __name__ == "__main__":
    unittest.main()
