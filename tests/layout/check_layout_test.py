#!/usr/bin/env python3
"""Tests that check_layout.py finds exactly the violations it describes."""

import unittest

import check_layout

LISTED = "a.cpp b.cpp main.c a_posix.cpp a_windows.c"


def found(path, text, listed=LISTED, **others):
    return list(check_layout.findings({path: text, **others}, listed))


class LayoutCheck(unittest.TestCase):
    def test_accepts_what_is_allowed(self):
        for path, text in [
                ("src/command_line/a.cpp", '#include "command_line/flag_key.h"\n#include "util/b.h"\n#include "platform/platform.h"\n'),
                ("src/tool/a.cpp", '#include "command_line/flag_check.h"\n'),
                ("src/util/a.cpp", '#include <kelplib/Kelp.h>\n#include "util/b.h"\n#include "platform/platform.h"\n'),
                ("src/platform/a.cpp", "#include <windows.h>\n#ifdef _WIN32\n#endif\n"),
                ("src/convert/a.cpp", "// calls strcpy( only in this comment\nstd::snprintf(text, size, format);\n"),
                ("include/kelplib/Export.h", "#elif !defined(_WIN32)\n"),
                ("tests/contract/a.cpp", "#include <unistd.h>\n"),
                ("benchmarks/redraw/a.cpp", "#include <unistd.h>\n"),
                ("kit/src/a.cpp", "#include <kelpkit/Tool.h>\n#include <kelplib/Kelp.h>\n#include <filesystem>\n"),
                ("kit/include/kelpkit/Tool.h", "#include <kelpkit/Progress.h>\n#include <string>\n" + "\n" * 199),
                ("kit/src/a_posix.cpp", "#include <sys/stat.h>\n#include <termios.h>\n"),
                ("kit/programs/a_posix.cpp", "#include <unistd.h>\n"),
                ("examples/a.cpp", "#include <kelpkit/Tool.h>\n"),
                ("examples/main.c", "#include <kelplib/KelpProgress.h>\n" + "\n" * 199),
        ]:
            self.assertEqual(found(path, text), [], path)

    def test_finds_wrong_includes(self):
        for path, header in [("src/command_line/a.cpp", "convert/number_reading.h"), ("src/tool/a.cpp", "console/bar.h"),
                             ("src/command_line/a.cpp", "tool/b.h"), ("src/console/a.cpp", "command_line/flag_key.h"),
                             ("src/util/a.cpp", "command_line/flag_key.h"), ("src/platform/a.cpp", "util/ascii_fold.h"),
                             ("src/path/a.cpp", "console/bar.h")]:
            self.assertEqual(found(path, f'#include "{header}"\n'), [f'{path}: "{header}" is private to its folder'])
        self.assertEqual(found("include/kelplib/Kelp.h", '#include "util/b.h"\n'),
                         ["include/kelplib/Kelp.h: a public header includes only public ones"])
        self.assertEqual(found("examples/a.cpp", '#include "util/b.h"\n'),
                         ['examples/a.cpp: "util/b.h" is private to the library'])
        self.assertEqual(found("benchmarks/parse/a.cpp", '#include "util/b.h"\n'),
                         ['benchmarks/parse/a.cpp: "util/b.h" is private to the library'])

    def test_finds_wrong_includes_of_the_kit(self):
        only_public = "the kit includes only public and standard headers"
        for path, header, problem in [
                ("kit/src/a.cpp", "<time.h>", only_public), ("kit/src/a.cpp", "<sys/stat.h>", only_public),
                ("kit/src/a_posix.h", "<unistd.h>", only_public), ("kit/src/posix.cpp", "<unistd.h>", only_public),
                ("kit/include/kelpkit/Tool.h", "<windows.h>", only_public), ("kit/src/a.cpp", "<util/b.h>", only_public),
                ("kit/src/a.cpp", "<termios.h>", only_public),
                ("kit/include/kelpkit/Tool.h", '"b.h"', "a public header includes only public ones"),
                ("kit/src/a.cpp", '"util/pieces.h"', "is no private header of the kit"),
                ("kit/src/a.cpp", '"../../src/util/pieces.h"', "is no private header of the kit"),
                ("src/path/a.cpp", "<kelpkit/Values.h>", "the library knows nothing of the kit"),
                ("include/kelplib/Kelp.h", "<kelpkit/Values.h>", "the library knows nothing of the kit")]:
            self.assertEqual(found(path, f"#include {header}\n", listed="a.cpp a_posix.cpp posix.cpp", **{"kit/src/b.h": ""}),
                             [f"{path}: {header}: {problem}"])
        self.assertEqual(found("kit/programs/a.cpp", '#include "b.h"\n#include "c.h"\n',
                               **{"kit/src/b.h": "", "kit/programs/c.h": ""}), [])
        self.assertEqual(found("kit/src/a.cpp", '#include "c.h"\n', **{"kit/programs/c.h": ""}),
                         ['kit/src/a.cpp: "c.h": is no private header of the kit'])
        self.assertEqual(found("kit/src/a.cpp", '#include "b.h"\n#include "files/c.h"\n',
                               **{"kit/src/b.h": "", "kit/src/files/c.h": ""}), [])
        for header in ("kit/src/b.h", "../kit/src/b.h"):
            self.assertEqual(found("examples/a.cpp", f'#include "{header}"\n'),
                             [f'examples/a.cpp: "{header}" is private to the kit'])

    def test_finds_system_code_outside_the_platform_layer(self):
        self.assertEqual(found("src/util/a.cpp", "#include <windows.h>\n"),
                         ["src/util/a.cpp: <windows.h> belongs in src/platform"])
        self.assertEqual(found("examples/a.cpp", "#include <unistd.h>\n"),
                         ["examples/a.cpp: <unistd.h> belongs in src/platform"])
        self.assertEqual(found("examples/slice/a_posix.cpp", "#include <unistd.h>\n"),
                         ["examples/slice/a_posix.cpp: <unistd.h> belongs in src/platform"])
        self.assertEqual(found("kit/src/a_posix.cpp", "#ifdef _WIN32\n"),
                         ["kit/src/a_posix.cpp: tests for a system outside src/platform"])
        for line in ("#ifdef _WIN32", "#if defined(__linux__)", "# elif defined(X) || defined(_WIN64)"):
            self.assertEqual(found("tests/unit/a.cpp", line + "\n"),
                             ["tests/unit/a.cpp: tests for a system outside src/platform"])

    def test_finds_forbidden_functions(self):
        for call in ("sprintf(text, format)", "std::strcpy (a, b)", "x = rand()", "gets(line)"):
            name = call.split("(")[0].split("=")[-1].replace("std::", "").strip()
            self.assertEqual(found("src/util/a.cpp", f"    {call};\n"), [f"src/util/a.cpp: calls {name}"])
        self.assertEqual(found("kit/src/a.cpp", "system(command);\n"), ["kit/src/a.cpp: calls system"])
        self.assertEqual(found("src/util/a.cpp", "snprintf(a); targets(b); file.gets(c);\n"), [])

    def test_finds_cycles(self):
        self.assertEqual(found("src/util/x.h", '#include "util/y.h"\n', **{"src/util/y.h": '#include "util/x.h"\n'}),
                         ["src/util/x.h: includes itself through others",
                          "src/util/y.h: includes itself through others"])

    def test_finds_cycles_in_the_kit(self):
        self.assertEqual(found("kit/include/kelpkit/X.h", "#include <kelpkit/Y.h>\n",
                               **{"kit/include/kelpkit/Y.h": "#include <kelpkit/X.h>\n"}),
                         ["kit/include/kelpkit/X.h: includes itself through others",
                          "kit/include/kelpkit/Y.h: includes itself through others"])
        self.assertEqual(found("kit/src/x.h", '#include "x.h"\n'), ["kit/src/x.h: includes itself through others"])

    def test_finds_unlisted_sources(self):
        for path in ("src/util/c.cpp", "kit/src/c.cpp"):
            self.assertEqual(found(path, ""), [f"{path}: is not built"])
        self.assertEqual(found("src/util/a.cpp", "", "a.cpp file(GLOB x)"), ["CMake: sources must be listed by name"])

    def test_finds_sources_outside_the_rooms(self):
        for path in ("src/frame/a.cpp", "src/a.cpp"):
            self.assertEqual(found(path, ""), [f"{path}: is in no room"])

    def test_finds_long_sources(self):
        self.assertEqual(found("kit/src/a.cpp", "\n" * 201), ["kit/src/a.cpp: more than 200 lines"])
        self.assertEqual(found("src/util/a.cpp", "\n" * 200), [])
        self.assertEqual(found("src/util/a.cpp", "\n" * 201), ["src/util/a.cpp: more than 200 lines"])
        self.assertEqual(found("include/kelplib/Kelp.h", "\n" * 201), [])
        self.assertEqual(found("tests/unit/a.cpp", "\n" * 201), [])


if __name__ == "__main__":
    unittest.main()
