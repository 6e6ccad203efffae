#!/usr/bin/env python3
"""The compiler explains in one sentence that getValue cannot read a type: unreadable_type_test.py INCLUDE COMPILER [FLAG...]"""

import re
import subprocess
import sys
import unittest

INCLUDE, *COMPILER = sys.argv[1:]
del sys.argv[1:]

SENTENCE = (
    "getValue has no conversion to this type: use std::string, bool, char, int, unsigned short, unsigned int, unsigned long long, "
    "double, float, std::filesystem::path, Kelp::StringDouble, a std::vector or std::set of int, double or std::string, "
    "a std::tuple of two double, float or unsigned int or of three unsigned int, or declare stringToValue(YourType&, std::string) "
    "in the namespace of your type")

TYPES = ("long", "long long", "short", "signed char", "long double", "wchar_t", "const int", "char*", "Own", "Ambiguous",
         "std::vector<long>", "std::vector<float>", "std::tuple<int, int>")
PROGRAM = """
#include <kelplib/Kelp.h>
struct Own {};
struct Ambiguous : std::vector<int>, std::set<int> {};
"""
CALL = "int f(Kelp::OptionReader& reader, %s& value) { return reader.getValue(%s, value, 1); }\n"


def errors(types, names):
    """Compiles calls of getValue. Returns the compiler's errors without their places."""
    done = subprocess.run([*COMPILER, "-std=c++17", "-fsyntax-only", f"-I{INCLUDE}", "-x", "c++", "-"], text=True, check=False,
                          input=PROGRAM + "".join(CALL % (name, names) for name in types), stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT)
    found = [line.split("error: ", 1)[1] for line in done.stdout.splitlines() if "error: " in line]
    assert bool(found) == bool(done.returncode), done.stdout
    return found


class UnreadableTypes(unittest.TestCase):
    def test_one_sentence_is_the_only_error(self):
        for names in ('"-n", "--number"', 'std::string("-n"), std::string()'):
            with self.subTest(names):
                found = errors(TYPES, names)
                self.assertEqual(len(found), len(TYPES), found)
                for error in found:
                    # gcc: static assertion failed: TEXT; clang 14: static_assert failed due to ... "TEXT"
                    self.assertRegex(error, f'^static.assert.*failed.*[ "]{re.escape(SENTENCE)}"?$')

    def test_the_types_of_the_sentence_compile(self):
        plain = re.search("use (.*), a std::vector", SENTENCE)[1].split(", ")
        elements = ("int", "double", "std::string")
        self.assertEqual(errors([*plain, *(f"std::vector<{element}>" for element in elements),
                                 *(f"std::set<{element}>" for element in elements),
                                 *(f"std::tuple<{element}, {element}>" for element in ("double", "float", "unsigned")),
                                 "std::tuple<unsigned, unsigned, unsigned>"], '"-n", "--number"'), [])


if __name__ == "__main__":
    unittest.main()
