"""Builds and runs the programs of consumer/ as another project would; used by the tests in this folder."""

import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
NUMBERS = "-n=1:2.5"
TOOL_OUTPUT = "1, 2.5\ncaught\nfrom the tool  50.0% ## |\r\n"
FLAT_OUTPUT = "from C  50.0% ## |\r\n"
# What the tool made with the kit prints for "-n=5", and how the lines begin that it prints for "-n=3x".
KIT_OUTPUT = "5\n"
KIT_REFUSAL = "caught kit_tool: -n=3x: "
PROGRAMS = ("kelp-doc", "kelp-check")
LIBRARY_HEADERS = [f"include/kelplib/{name}.h" for name in ("CommandLineTool", "Export", "FilePath", "Kelp", "KelpProgress")]
# Files that a build of the library without tests needs.
SOURCES = ("CMakeLists.txt", "cmake", "include", "src", "kit", "README.md", "CHANGELOG.md", "CONTRIBUTING.md", "LICENSE", "docs",
           "examples")


def output(*command, **environment):
    """Runs a command and returns its standard output; if it fails, the error contains all of its output."""
    done = subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, env={**os.environ, **environment}, timeout=600, check=False)
    if done.returncode != 0:
        raise AssertionError(f"{command} ended with {done.returncode}\n{(done.stdout + done.stderr).decode()}")
    return done.stdout.decode()


def refusal(*command, **environment):
    """Runs a command that has to fail and returns its output with all white space reduced to single blanks."""
    done = subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, env={**os.environ, **environment}, timeout=600, check=False)
    if done.returncode == 0:
        raise AssertionError(f"{command} did not fail\n{done.stdout.decode()}")
    return " ".join(done.stdout.decode().split())


def prose(page):
    """Returns the text of a page without its code."""
    return re.sub(r"```.*?```|`[^`\n]*`", "", page.read_text(encoding="utf-8"), flags=re.DOTALL)


def built(project, folder, *settings):
    """Configures and builds one of the projects in a new folder without network access; returns the folder."""
    output("cmake", "-G", "Ninja", "-S", HERE / project, "-B", folder, "-DFETCHCONTENT_FULLY_DISCONNECTED=ON",
           *settings, http_proxy="http://127.0.0.1:9", https_proxy="http://127.0.0.1:9")
    output("cmake", "--build", folder, "--parallel", "2")
    return folder


def copy_of_sources(folder):
    """Copies the library's sources to another folder and returns it."""
    folder.mkdir(parents=True)
    for name in SOURCES:
        if (ROOT / name).is_dir():
            shutil.copytree(ROOT / name, folder / name)
        else:
            shutil.copy(ROOT / name, folder / name)
    return folder


def kit_files(library_folder, in_debian=False, suffix=""):
    """Returns the names of the installed files of the kit, besides those with the settings of one build type."""
    headers = sorted(path.name for path in (ROOT / "kit" / "include" / "kelpkit").iterdir())
    return [*(f"include/kelpkit/{name}" for name in headers),
            *(f"{library_folder}/{name}" for name in (
                "cmake/kelplib/CompareScreens.cmake", "cmake/kelplib/KelplibTool.cmake",
                "cmake/kelplib/KelplibWindowsParts.cmake", "cmake/kelplib/kelplibKitTargets.cmake",
                "libkelpkit.a", "pkgconfig/kelpkit.pc", *(() if suffix else ("kelplib/kelp_observer.so",)))),
            *(name for program in PROGRAMS
              for name in (f"bin/{program}{suffix}", *documents(program, in_debian, ".gz" if in_debian else "")))]


def documents(tool, in_debian=False, man_suffix=""):
    """Returns the names of a tool's installed documents, in Debian's folders below /usr or in others."""
    zsh_folder = "vendor-completions" if in_debian else "site-functions"
    return [f"share/bash-completion/completions/{tool}", f"share/fish/vendor_completions.d/{tool}.fish",
            f"share/man/man1/{tool}.1{man_suffix}", f"share/zsh/{zsh_folder}/_{tool}"]


class InOneFolder(unittest.TestCase):
    """Tests that share a temporary folder."""

    def check_kit_tool(self, program, **environment):
        self.assertEqual(output(program, "-n=5", **environment), KIT_OUTPUT)
        self.assertTrue(refusal(program, "-n=3x", **environment).startswith(KIT_REFUSAL))

    @classmethod
    def setUpClass(cls):
        holder = tempfile.TemporaryDirectory(prefix="kelplib.")
        cls.addClassCleanup(holder.cleanup)
        cls.folder = pathlib.Path(holder.name)
