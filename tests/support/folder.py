"""Tests in a temporary folder."""

import os
import pathlib
import tempfile
import unittest


class FolderTestCase(unittest.TestCase):
    """Has a new folder for every test."""

    maxDiff = None

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name).resolve()

    def write(self, name, data):
        (self.folder / name).write_bytes(data)

    def contents(self):
        """Everything in the folder by name: the bytes of a file, the target of a link, None for a folder."""
        found = {}
        for path in sorted(self.folder.rglob("*")):
            name = path.relative_to(self.folder).as_posix()
            if path.is_symlink():
                found[name] = os.readlink(path)
            else:
                found[name] = None if path.is_dir() else path.read_bytes()
        return found
