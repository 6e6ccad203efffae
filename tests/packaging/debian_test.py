#!/usr/bin/env python3
"""Installs, uses and purges the Debian packages: debian_test.py FOLDER_OF_PACKAGES

Needs root. dpkg installs the packages into a temporary folder and looks up their dependencies in this machine's list of
packages; the machine itself does not change.
"""

import pathlib
import re
import subprocess
import sys
import unittest

from consumers import FLAT_OUTPUT, HERE, NUMBERS, TOOL_OUTPUT, InOneFolder, built, output

PACKAGES = pathlib.Path(sys.argv.pop(1))
NAMES = ["libkelplib-dev", "libkelplib-doc", "libkelplib1"]


class DebianPackages(InOneFolder):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.root = cls.folder / "root"
        database = cls.root / "var" / "lib" / "dpkg"
        for folder in ("updates", "info", "triggers"):
            (database / folder).mkdir(parents=True)
        # This machine's packages count as installed, without their files. An older kelplib does not.
        known = pathlib.Path("/var/lib/dpkg/status").read_text(encoding="utf-8").split("\n\n")
        others = [entry for entry in known if not re.match(r"Package: libkelplib", entry)]
        (database / "status").write_text("\n\n".join(others), encoding="utf-8")

    def dpkg(self, *arguments):
        done = subprocess.run(["dpkg", f"--root={self.root}", *arguments], stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, check=False, encoding="utf-8")
        self.assertEqual(done.returncode, 0, done.stdout[-2000:])

    def files(self):
        return sorted(path.relative_to(self.root).as_posix() for path in self.root.rglob("*")
                      if not path.is_dir() and "var/lib/dpkg" not in path.as_posix())

    def test_install_use_purge(self):
        packages = sorted(PACKAGES.glob("*.deb"))
        self.assertEqual([path.name.split("_")[0] for path in packages], NAMES)
        # The development package depends on the library of the same version.
        refused = subprocess.run(["dpkg", f"--root={self.root}", "-i", packages[0]], stdout=subprocess.PIPE,
                                 stderr=subprocess.STDOUT, check=False, encoding="utf-8")
        self.assertIn("libkelplib-dev depends on libkelplib1 (= 1.0.0)", refused.stdout)
        self.dpkg("-i", *packages)
        self.use()
        self.dpkg("--purge", *NAMES)
        self.assertEqual(self.files(), [])

    def use(self):
        library_folder = next(self.root.rglob("libkelplib.so.1")).parent
        self.assertRegex(library_folder.as_posix(), r"/usr/lib/\w+-linux-gnu$")
        for name in NAMES:
            for file in ("copyright", "changelog.gz"):
                self.assertIn(f"usr/share/doc/{name}/{file}", self.files())
        self.assertIn("usr/share/doc/kelplib/README.md", self.files())
        search = {"LD_LIBRARY_PATH": str(library_folder)}
        folder = built("find_package", self.root.parent / "build", f"-DCMAKE_PREFIX_PATH={self.root / 'usr'}")
        self.assertEqual(output(folder / "tool", NUMBERS), TOOL_OUTPUT)
        flags = output("pkg-config", "--cflags", "--libs", "kelplib",
                       PKG_CONFIG_PATH=str(library_folder / "pkgconfig")).split()
        output("cc", HERE / "consumer" / "flat.c", "-o", self.root.parent / "flat", *flags)
        self.assertEqual(output(self.root.parent / "flat", **search), FLAT_OUTPUT)


if __name__ == "__main__":
    unittest.main()
