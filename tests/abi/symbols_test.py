#!/usr/bin/env python3
"""Checks the names that the shared library exports: symbols_test.py [--renew] NM LIBRARY LIST INCLUDE_FOLDER

LIBRARY is the library that programs are linked with, on Windows the import library. LIST contains its exported names, one
per line, spelled the same for every standard library. The public headers declare each of them.

  --renew  updates LIST
"""

import pathlib
import re
import subprocess
import sys
import unittest

HEADER = """\
# The names that the shared library exports. Constructors and destructors are listed once for each of their variants.
# Only OptionReader::findValue is private; getValue, a template in the header, calls it.
# scripts/abi --renew writes this file, and a test compares the library with it.
"""


def in_plain_words(symbol):
    """Returns the name as it is spelled without the namespaces and tags of libstdc++ and libc++."""
    symbol = re.sub(r"\[abi:\w+\]", "", symbol)
    symbol = symbol.replace("std::__1::__fs::filesystem::", "std::filesystem::").replace("::__cxx11::", "::")
    symbol = symbol.replace("std::__1::", "std::").replace(" >", ">")
    text = "std::basic_string<char, std::char_traits<char>, std::allocator<char>>"
    return symbol.replace(text, "std::string")


def defined_symbols(nm, *options):
    listing = subprocess.run([nm, "--defined-only", *options], stdout=subprocess.PIPE, check=True, encoding="utf-8").stdout
    lines = [line.split(" ", 2) for line in listing.splitlines() if re.match(r"[0-9a-f]+ [A-Zu] ", line)]
    return [(kind, symbol) for _, kind, symbol in lines]


def exported_symbols(nm, library):
    if not library.endswith(".a"):
        return sorted(in_plain_words(symbol) for _, symbol in defined_symbols(nm, "--dynamic", "--demangle", library))
    # An import library also contains tables, which do not count. For data it has a pointer but no name.
    functions = {symbol for kind, symbol in defined_symbols(nm, library) if kind == "T"}
    pointers = {symbol.removeprefix("__imp_") for _, symbol in defined_symbols(nm, library) if symbol.startswith("__imp_")}
    names = [symbol for kind, symbol in defined_symbols(nm, "--demangle", library) if kind == "T"]
    return sorted(in_plain_words(name) for name in [*names, *(pointers - functions)])


def listed_symbols(path):
    return [line for line in path.read_text(encoding="utf-8").splitlines() if not line.startswith("#")]


def public_words(folder):
    words = set()
    for header in sorted(pathlib.Path(folder).rglob("*.h")):
        code = re.sub(r"//.*|/\*.*?\*/", "", header.read_text(encoding="utf-8"))
        words.update(re.findall(r"\w+", code))
    return words


def qualified_name(symbol):
    """Returns the name in a symbol, without return type, parameters and template arguments."""
    text = symbol.replace("operator()", "operator_call")
    while (shorter := re.sub(r"<[^<>]*>", "", text)) != text:
        text = shorter
    return text.split("(")[0].split(" ")[-1]


def is_public(symbol, words):
    """Returns whether the headers declare the symbol; they declare no instances of standard library templates."""
    parts = [part.lstrip("~") for part in qualified_name(symbol).split("::")]
    if parts[0] == "std":
        return parts == ["std", "to_string"]
    return all(part in words or part.startswith("operator") for part in parts)


class Exports(unittest.TestCase):
    maxDiff = None

    def test_names_are_the_same_for_both_standard_libraries(self):
        for symbol in ("Kelp::f[abi:cxx11](std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >)",
                       "Kelp::f(std::__1::basic_string<char, std::__1::char_traits<char>, std::__1::allocator<char> >)"):
            self.assertEqual(in_plain_words(symbol), "Kelp::f(std::string)")
        for symbol in ("g(std::filesystem::__cxx11::path&)", "g(std::__1::__fs::filesystem::path&)"):
            self.assertEqual(in_plain_words(symbol), "g(std::filesystem::path&)")

    def test_internal_names_are_recognised(self):
        words = public_words(INCLUDE_FOLDER)
        for symbol in ("Kelp::platform::sleepMilliseconds(unsigned int)", "sleepMilliseconds", "Kelp::escape::red",
                       "Kelp::flagKey(std::string const&)", "(anonymous namespace)::copyrightLine", "std_like::name()",
                       "int collectArguments<std::vector<std::pair<int, int>>>(Kelp::OptionReader const&)",
                       "std::vector<Kelp::Option>::reserve(unsigned long)", "std::to_string_of(int)"):
            with self.subTest(symbol):
                self.assertFalse(is_public(symbol, words))
        for symbol in ("Kelp::Option::~Option()", "Kelp::Option::operator=(Kelp::Option&&)", "std::to_string(Kelp::Option)",
                       "ci_less::operator()(std::string const&) const", "KELP_GlobalProgress",
                       "int Kelp::OptionReader::getValue<std::vector<std::pair<int, int>>>(int)"):
            with self.subTest(symbol):
                self.assertTrue(is_public(symbol, words))

    def test_the_headers_declare_what_is_listed(self):
        words = public_words(INCLUDE_FOLDER)
        self.assertEqual([symbol for symbol in listed_symbols(LIST) if not is_public(symbol, words)], [])

    def test_exactly_the_listed_names_are_exported(self):
        self.assertEqual(exported_symbols(NM, LIBRARY), listed_symbols(LIST))


if __name__ == "__main__":
    RENEW = sys.argv[1] == "--renew"
    NM, LIBRARY, LIST, INCLUDE_FOLDER = sys.argv[-4:]
    LIST = pathlib.Path(LIST)
    del sys.argv[1:]
    if RENEW:
        LIST.write_text(HEADER + "\n".join(exported_symbols(NM, LIBRARY)) + "\n", encoding="utf-8")
    else:
        unittest.main()
