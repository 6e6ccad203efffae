#!/usr/bin/env python3
"""What the shared library exports: symbols_test.py NM LIBRARY INCLUDE_FOLDER

LIBRARY is the library that programs are linked with: on Windows the import library. A name is public when the public
headers declare it; instances of the standard library's templates may stand beside them.
"""

import pathlib
import re
import subprocess
import sys
import unittest

NM, LIBRARY, INCLUDE_FOLDER = sys.argv[1:4]
del sys.argv[1:4]

# One of every kind, to show that this script sees the exports at all.
CERTAINLY_EXPORTED = {
    "CommandLineTool::CommandLineTool",
    "CommandLineTool::help",
    "Kelp::Option::Option",
    "Kelp::OptionReader::getValue",
    "Kelp::stringToValue",
    "KELP_progress",
    "ci_less::operator()",
    "getColoredString",
    "std::to_string",
}
PUT_IN_BY_THE_LINKER = {"__bss_start", "_edata", "_end"}
# AddressSanitizer marks every exported object so.
PUT_IN_BY_A_SANITIZER = "__odr_asan."


def exported_symbols():
    dynamic = [] if LIBRARY.endswith(".a") else ["--dynamic"]
    listing = subprocess.run([NM, *dynamic, "--defined-only", "--demangle", LIBRARY], stdout=subprocess.PIPE,
                             check=True, encoding="utf-8").stdout
    lines = [line.split(" ", 2) for line in listing.splitlines() if re.match(r"[0-9a-f]+ [A-Zu] ", line)]
    # Of an import library only the names themselves, not its tables.
    return [symbol for _, kind, symbol in lines if dynamic or kind == "T"]


def without_brackets(text):
    """The text without template arguments and ABI tags, however deep they are nested."""
    text = text.replace("operator<<", "operator").replace("operator<", "operator").replace("operator->", "operator")
    text = re.sub(r"\[abi:\w+\]", "", text)
    while (shorter := re.sub(r"<[^<>]*>", "", text)) != text:
        text = shorter
    return text


def qualified_name(symbol):
    """The name in a symbol, without result, parameters and template arguments."""
    text = without_brackets(symbol)
    text = re.sub(r"^(vtable|typeinfo name|typeinfo|VTT|guard variable) for ", "", text)
    if "operator()" in text:
        return text[:text.index("operator()")].split(" ")[-1] + "operator()"
    return text.split("(")[0].split(" ")[-1]


def public_words():
    words = set()
    for header in sorted(pathlib.Path(INCLUDE_FOLDER).rglob("*.h")):
        code = re.sub(r"//.*", "", header.read_text(encoding="utf-8"))
        words.update(re.findall(r"\w+", code))
    return words


def is_public(symbol, words):
    name = qualified_name(symbol)
    parts = [part.lstrip("~") for part in name.split("::")]
    return parts[0] == "std" or all(part in words or part.startswith("operator") for part in parts)


class Exports(unittest.TestCase):
    def test_internal_names_are_told_apart(self):
        words = public_words()
        for symbol in ("Kelp::platform::sleepMilliseconds(unsigned int)", "sleepMilliseconds", "Kelp::escape::red",
                       "Kelp::flagKey[abi:cxx11](std::basic_string<char> const&)",
                       "(anonymous namespace)::copyrightLine",
                       "int collectArguments<std::vector<std::pair<int, int> > >(Kelp::OptionReader const&)",
                       "typeinfo for Kelp::Internal", "std_like::name()"):
            with self.subTest(symbol):
                self.assertFalse(is_public(symbol, words))
        for symbol in ("Kelp::Option::~Option()", "Kelp::Option::operator=(Kelp::Option&&)",
                       "typeinfo for Kelp::Option",
                       "int Kelp::OptionReader::getValue<std::vector<std::pair<int, int> > >(int)",
                       "std::_Rb_tree<int, Kelp::Option>::_M_erase(int)"):
            with self.subTest(symbol):
                self.assertTrue(is_public(symbol, words))

    def test_only_public_names_are_exported(self):
        symbols = exported_symbols()
        self.assertEqual(CERTAINLY_EXPORTED - {qualified_name(symbol) for symbol in symbols}, set())
        words = public_words()
        internal = [symbol for symbol in symbols
                    if not is_public(symbol, words) and symbol not in PUT_IN_BY_THE_LINKER
                    and not symbol.startswith(PUT_IN_BY_A_SANITIZER)]
        self.assertEqual(internal, [])


if __name__ == "__main__":
    unittest.main()
