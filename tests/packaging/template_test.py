#!/usr/bin/env python3
"""Copies, renames, builds, tests and installs the template as its README says, with an installed kelplib:
template_test.py BUILD_FOLDER CXX_COMPILER --flags=CXX_FLAGS
"""

import os
import pathlib
import re
import shutil
import sys
import unittest

from consumers import ROOT, InOneFolder, documents, output, refusal

sys.path.insert(0, str(ROOT / "tests" / "kit" / "programs" / "shells"))
import shell_sessions

BUILD, CXX_COMPILER, CXX_FLAGS = sys.argv[1:]
CXX_FLAGS = CXX_FLAGS.removeprefix("--flags=")
del sys.argv[1:]

TOOL = "line-count"
# A second tool of the project. Shells could take the names of their functions for the same.
OTHER = "line_count"
PROGRAMS = [f"bin/{TOOL}", f"bin/{OTHER}"]


def installed(other, *in_debian):
    """Returns the names of the installed files of the tool and another one."""
    return sorted(f for name in (TOOL, other) for f in (f"bin/{name}", *documents(name, *in_debian)))


def files(folder):
    return sorted(path.relative_to(folder).as_posix() for path in folder.rglob("*") if path.is_file())


def installed_in_home(shell):
    """Returns the class of sessions of a shell whose users have installed the tool in ~/.local."""
    class Home(shell_sessions.SHELLS[shell]):
        COMMAND = ("env", "-u", "XDG_DATA_HOME", *shell_sessions.SHELLS[shell].COMMAND)
        START = (("fpath=(~/.local/share/zsh/site-functions $fpath)\n" if shell == "zsh" else "") +
                 shell_sessions.SHELLS[shell].START)

        def write_start_file(self, text):
            super().write_start_file(text)
            shutil.copytree(Template.home / ".local" / "share", self.home / ".local" / "share")

    return Home


class Template(InOneFolder):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        prefix = cls.folder / "kelplib (of $others)"
        output("cmake", "--install", BUILD, "--prefix", prefix)
        cls.prefix = prefix
        # CMake installs nothing from a folder with a double quote in its name. ninja always builds again below a folder with a
        # single quote (seen with 1.11), so only make uses one.
        odd = cls.folder / "a $tool (of mine)"
        shutil.copytree(ROOT / "examples" / "template", odd / "examples" / "template")
        cls.add_other_tool(odd / "examples" / "template")
        cls.home = odd / "home"
        cls.project = odd / TOOL
        cls.environment = {"HOME": str(cls.home), "CXX": CXX_COMPILER, "CXXFLAGS": CXX_FLAGS, "CMAKE_GENERATOR": "Ninja",
                           "CMAKE_PREFIX_PATH": str(prefix), "SOURCE_DATE_EPOCH": "1700000000"}
        cls.output("sh", "-ec", "cd \"$0\"\n" + cls.commands(odd / "examples" / "template")[0], odd)
        cls.printed = cls.output("sh", "-ec", "cd \"$0\"\n" + "".join(cls.commands(cls.project)), cls.project)
        cls.build = cls.project / "build"

    @staticmethod
    def commands(project):
        """Returns the blocks of commands in the README of a project."""
        return re.findall(r"^```sh\n(.*?)^```$", (project / "README.md").read_text(encoding="utf-8"), re.M | re.S)

    @staticmethod
    def add_other_tool(project):
        """Adds a tool that has the option -m, --most for -l, --least."""
        for suffix in (".cpp", ".screen"):
            text = (project / ("tally" + suffix)).read_text(encoding="utf-8")
            for old, new in (("tally", OTHER), ("least", "most"), ("-l", "-m")):
                text = text.replace(old, new)
            (project / (OTHER + suffix)).write_text(text, encoding="utf-8")
        with open(project / "CMakeLists.txt", "a", encoding="utf-8") as file:
            file.write(f"kelplib_add_tool({OTHER} {OTHER}.cpp VERSION 2.0.0 SCREEN {OTHER}.screen)\n")

    @classmethod
    def output(cls, *command, **environment):
        return output(*command, **cls.environment, **environment)

    def built(self, folder):
        return self.output("cmake", "--build", folder)

    def configured(self, folder, *settings):
        return self.output("cmake", "-S", self.project, "-B", folder, *settings)

    def contents(self, folder):
        return {name: (folder / name).read_bytes() for name in files(folder)}

    def change_help(self, project):
        """Changes a text of the tool's help."""
        source = project / f"{TOOL}.cpp"
        source.write_text(source.read_text(encoding="utf-8").replace('"the text"', '"the other text"'), encoding="utf-8")

    def test_readme(self):
        self.assertIn("100% tests passed", self.printed)
        self.assertIn(f"Test #1: {TOOL}-", self.printed)
        # The README of the copy does not describe how to copy it.
        self.assertIn("\n3\t```sh\n", self.printed)
        self.assertEqual(re.findall("^#+ .*", (self.project / "README.md").read_text(encoding="utf-8"), re.M),
                         [f"# {TOOL}", "## Build and install"])
        self.assertEqual((self.project / f"{TOOL}.screen").read_text(encoding="utf-8"),
                         (ROOT / "examples/template/tally.screen").read_text(encoding="utf-8").replace("tally", TOOL))
        self.assertNotIn("tally", "".join(path.read_text(encoding="utf-8") for path in self.project.iterdir() if path.is_file()))
        self.assertEqual(files(self.home / ".local"), installed(OTHER))
        # It finds kelplib, which is installed elsewhere.
        self.assertEqual(self.output(self.home / ".local" / "bin" / TOOL, "--version"), f"{TOOL} 1.0.0\n")
        self.assertEqual(self.output(self.home / ".local" / "bin" / OTHER, "--version"), f"{OTHER} 2.0.0\n")

    def test_no_warnings(self):
        # CMake 3.31 and later warn of a keyword without a value.
        printed = self.output("sh", "-c", 'exec "$@" 2>&1', "sh", "cmake", "-S", self.project, "-B", self.build)
        self.assertIn("Configuring done", printed)
        self.assertNotIn("Warning", printed)

    def test_second_build(self):
        self.assertIn("ninja: no work to do.", self.built(self.build))

    def test_changed_source(self):
        self.addCleanup(self.built, self.build)
        for name in (f"{TOOL}.cpp", f"{TOOL}.screen"):
            path = self.project / name
            self.addCleanup(path.write_text, path.read_text(encoding="utf-8"), encoding="utf-8")
        self.change_help(self.project)
        self.built(self.build)
        for name in (f"{TOOL}.screen", f"share/doc/{TOOL}/{TOOL}.md"):
            self.assertIn("the other text", (self.build / "documents" / name).read_text(encoding="utf-8"))
        self.assertIn("ninja: no work to do.", self.built(self.build))
        # The failure of the test says how the saved screen is renewed.
        printed = refusal("ctest", "--test-dir", self.build, "--output-on-failure", **self.environment)
        self.assertIn("Line 20 saved: \\e[34mFILE:\\e[0m the text$ now: \\e[34mFILE:\\e[0m the other text$ "
                      f'To renew it: cmake --build "{self.build}" --target {TOOL}-screen', printed)
        self.output("cmake", "--build", self.build, "--target", f"{TOOL}-screen")
        self.output("ctest", "--test-dir", self.build)

    def test_missing_document(self):
        missing = self.build / "documents" / documents(TOOL)[0]
        missing.unlink()
        self.built(self.build)
        self.assertTrue(missing.exists())

    def copy_with_odd_values(self, project):
        """Copies the project, with a name of the other tool that is like those of folders, and with values that CMake takes for
        false.
        """
        shutil.copytree(self.project, project, ignore=shutil.ignore_patterns("build"))
        for name, new_name in (("CMakeLists.txt", "CMakeLists.txt"), (f"{OTHER}.cpp", "manifest.cpp"), (f"{OTHER}.screen", "no")):
            text = (project / name).read_text(encoding="utf-8")
            (project / name).unlink()
            for old, new in ((f"VERSION 2.0.0 SCREEN {OTHER}.screen", "VERSION 0 TAKES n SCREEN no COMPONENT 0"),
                             (OTHER, "manifest"), ('{"-m"', '{"-n", "--number", "numbers the lines", Kelpkit::isSwitch}, {"-m"')):
                text = text.replace(old, new)
            (project / new_name).write_text(text, encoding="utf-8")

    def test_makefiles(self):
        project, staged = self.folder / "it's another tool", self.folder / "staged"
        self.copy_with_odd_values(project)
        folder = project / "its build"
        self.output("cmake", "-G", "Unix Makefiles", "-S", project, "-B", folder)
        self.output("cmake", folder, "-DCMAKE_INSTALL_PREFIX=/usr")
        self.built(folder)
        written = folder / "documents"
        self.assertEqual({name: text for name, text in self.contents(written).items() if "manifest" not in name},
                         {name: text for name, text in self.contents(self.build / "documents").items() if OTHER not in name})
        self.assertEqual(self.output(folder / "manifest", "--version"), "manifest 0\n")
        self.assertRegex(self.output("ctest", "--test-dir", folder, "-N", "-V"), r"kelp-check\S* .*-t=n\b")
        self.assertIn("manifest-screen", self.output("ctest", "--test-dir", folder, "-N"))
        self.output("cmake", "--install", folder, DESTDIR=str(staged))
        self.assertEqual(files(staged / "usr"), installed("manifest", os.path.exists("/etc/debian_version")))
        self.assertIn('components are: "0" "Unspecified"',
                      self.output("cmake", "--build", folder, "--target", "list_install_components"))
        # The documents follow a change of the folder.
        self.output("cmake", folder, "-DCMAKE_INSTALL_DATAROOTDIR=data", "-DCMAKE_INSTALL_PREFIX=/opt")
        self.output("cmake", "--install", folder, DESTDIR=str(staged))
        self.assertEqual(files(staged / "opt"), sorted(name.replace("share/", "data/") for name in installed("manifest")))
        before = {name: (written / name).stat().st_mtime_ns for name in files(written)}
        self.built(folder)
        self.assertEqual({name: (written / name).stat().st_mtime_ns for name in files(written)}, before)
        self.change_help(project)
        # A kelp-doc that was killed leaves such files.
        for name in (f"{TOOL}.screen", f"share/man/man1/{TOOL}.1"):
            for suffix in ("unfinished", "replaced"):
                (written / f"{name}.{suffix}").write_text("", encoding="utf-8")
        self.built(folder)
        for name in (f"{TOOL}.screen", f"share/doc/{TOOL}/{TOOL}.md"):
            self.assertIn("the other text", (written / name).read_text(encoding="utf-8"))

    def test_names(self):
        project, folder = self.folder / "names", self.folder / "build names"
        project.mkdir()
        for name, folders, problem in (
                ("off", "", ""),
                ("my tool", "", 'tool: "my tool" is not the name of a command; set another OUTPUT_NAME'),
                ("-tool", "", 'tool: "-tool" is not the name of a command; set another OUTPUT_NAME'),
                ("documents", "RUNTIME_OUTPUT_DIRECTORY bin", ""),
                ("documents", "", f"tool: the program and the folder of its documents would both be {folder}/documents; "
                                  "set another OUTPUT_NAME or RUNTIME_OUTPUT_DIRECTORY")):
            (project / "CMakeLists.txt").write_text(f"""cmake_minimum_required(VERSION 3.25)
project(names LANGUAGES CXX)
find_package(kelplib REQUIRED COMPONENTS kit)
enable_testing()
add_executable(tool tool.cpp)
set_target_properties(tool PROPERTIES OUTPUT_NAME "{name}" {folders})
kelplib_add_documents(tool)
kelplib_add_tool_tests(tool)
""", encoding="utf-8")
            (project / "tool.cpp").touch()
            with self.subTest(name, folders=folders):
                if problem:
                    self.assertIn(problem, refusal("cmake", "-S", project, "-B", folder, **self.environment))
                else:
                    self.output("cmake", "-S", project, "-B", folder)
                    self.assertRegex(self.output("ctest", "--test-dir", folder, "-N", "-V"), f'-n={name}"')

    def test_cross_builds(self):
        """A build is a cross build if CMAKE_SYSTEM_NAME is set."""
        folder, staged = self.folder / "cross", self.folder / "cross staged"
        expected = self.contents(self.build / "documents")
        printed = self.configured(folder, "-DCMAKE_SYSTEM_NAME=Linux", "-DKELPLIB_KELP_DOC=")
        self.assertIn(f"-- No documents for {TOOL}: kelp-doc not found; set KELPLIB_KELP_DOC\n", printed)
        self.built(folder)
        self.output("cmake", "--install", folder, "--prefix", staged)
        self.assertEqual(files(staged), PROGRAMS)
        self.configured(folder, f"-DKELPLIB_KELP_DOC={self.prefix}/bin/kelp-doc")
        self.built(folder)
        self.assertEqual(self.contents(folder / "documents"), expected)
        shutil.rmtree(folder / "documents")
        self.configured(folder, "-DKELPLIB_KELP_DOC=", "-DCMAKE_CROSSCOMPILING_EMULATOR=env;EMULATED=1")
        self.built(folder)
        for tool in (TOOL, OTHER):
            printed = folder / "documents" / f"{tool}.screen.printed"
            self.assertEqual(printed.read_bytes()[:1], b"\n")
            printed.unlink()
        self.assertEqual(self.contents(folder / "documents"), expected)
        self.output("ctest", "--test-dir", folder)
        # Without emulator and saved screen
        cmake = self.project / "CMakeLists.txt"
        text = cmake.read_text(encoding="utf-8")
        self.addCleanup(self.built, self.build)
        self.addCleanup(cmake.write_text, text, encoding="utf-8")
        cmake.write_text(text.replace(f" SCREEN {TOOL}.screen", ""), encoding="utf-8")
        printed = self.configured(folder, f"-DKELPLIB_KELP_DOC={self.prefix}/bin/kelp-doc", "-DCMAKE_CROSSCOMPILING_EMULATOR=")
        self.assertIn(f"-- No documents for {TOOL}: it cannot run here; set CMAKE_CROSSCOMPILING_EMULATOR or pass SCREEN\n", printed)
        self.built(folder)

    def copied(self, name, old, new, file="CMakeLists.txt"):
        """Copies the project and changes a text in one of its files. Returns the copy."""
        project = self.folder / name
        shutil.copytree(self.project, project, ignore=shutil.ignore_patterns("build"))
        text = (project / file).read_text(encoding="utf-8")
        self.assertIn(old, text)
        (project / file).write_text(text.replace(old, new), encoding="utf-8")
        return project

    def check_configuration(self, project, problem):
        self.assertIn(problem, refusal("cmake", "-S", project, "-B", project / "build", **self.environment))

    def test_warnings(self):
        """A warning of kelp-check is a failure that can be allowed."""
        project = self.copied("warned", '"the text"', '""', f"{TOOL}.cpp")
        folder = project / "build"
        self.output("cmake", "-S", project, "-B", folder)
        self.built(folder)
        test = ("ctest", "--test-dir", folder, "--output-on-failure", "-R", f"^{TOOL}-definition")
        self.assertIn("warning empty-text FILE: ", refusal(*test, **self.environment))
        cmake = project / "CMakeLists.txt"
        text = cmake.read_text(encoding="utf-8")
        cmake.write_text(text.replace(f"{TOOL}.screen)", f"{TOOL}.screen ALLOW_WARNINGS)"), encoding="utf-8")
        self.output("cmake", folder)
        self.assertIn("100% tests passed, 0 tests failed out of 1", self.output(*test))

    def test_output_name(self):
        project = self.copied("called", f"{TOOL}.screen)", f"{TOOL}.screen OUTPUT_NAME lines)")
        folder = project / "build"
        self.output("cmake", "-S", project, "-B", folder)
        self.built(folder)
        self.output("cmake", "--install", folder, "--prefix", project / "installed")
        self.assertEqual(files(project / "installed"),
                         sorted(["bin/lines", *documents("lines"), f"bin/{OTHER}", *documents(OTHER)]))
        self.assertIn("complete -F _kelp_lines -- 'lines'\n", (project / "installed" / documents("lines")[0]).read_text(encoding="utf-8"))
        # The documents of a name that changes afterwards would be those of another command.
        project = self.copied("called late", f"{TOOL}.screen)", f"{TOOL}.screen)\nset_target_properties({TOOL} PROPERTIES "
                              "OUTPUT_NAME lines)")
        self.check_configuration(project, f"{TOOL}: OUTPUT_NAME lines is set too late, the documents have the name {TOOL}; pass "
                                          "OUTPUT_NAME to kelplib_add_tool, or set it before the first of its pieces")

    def test_versions(self):
        for i, version in enumerate(("v1.2", "1.2.", "1.2-rc1", '""', "")):
            with self.subTest(version):
                project = self.copied(f"version {i}", "VERSION ${PROJECT_VERSION}", f"VERSION {version}")
                shown = version.strip('"')
                self.check_configuration(project, f'kelplib_add_tool({TOOL}): VERSION "{shown}": expected numbers with dots, as in '
                                                  "1.2.0")

    def test_man(self):
        folder = self.home / ".local"
        # man finds the pages beside the folders of PATH.
        search = f"{folder}/bin:{os.environ['PATH']}"
        for tool in (TOOL, OTHER):
            page = folder / "share" / "man" / "man1" / f"{tool}.1"
            self.assertEqual(self.output("man", "-w", tool, PATH=search, MANPATH="").strip(), str(page))
        shown = self.output("man", TOOL, PATH=search, MANPATH="", MANWIDTH="80", LC_ALL="C.UTF-8")
        self.assertRegex(" ".join(shown.split()), f"NAME {TOOL} . Counts how often each line of a text occurs SYNOPSIS")

    def check_shell(self, shell, *settings):
        with installed_in_home(shell)("/nonexistent", *settings) as session:
            session.add_tool(TOOL)
            session.add_tool(OTHER)
            (session.work / "alpha.txt").write_text("")
            for typed, word in ((f"{TOOL} --le", "--least="), (f"{OTHER} --mo", "--most="), (f"{TOOL} --le", "--least="),
                                (f"{TOOL} -o=al", "-o=alpha.txt"), (f"{TOOL} al", "alpha.txt")):
                line, _ = session.press(f"{typed}\t")
                self.assertEqual(session.enter(), [word], line)

    def test_bash(self):
        self.check_shell("bash", ". /usr/share/bash-completion/bash_completion")

    def test_zsh(self):
        self.check_shell("zsh")

    def test_fish(self):
        self.check_shell("fish")


if __name__ == "__main__":
    unittest.main()
