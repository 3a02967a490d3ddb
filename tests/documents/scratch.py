"""The folder in which the commands of a document run: a copy of the tree, with the build
tree as `build`, so that nothing they do comes back. Sources, which are many files and which
no command of a document changes, are links to those of the tree."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "olt_host/sessions"))

from host_process import environment

LINKED = ("src", "tests", "bench")


def belongs(path):
    """Whether a top entry of the tree is none of what builds and gates leave there."""
    return not path.name.startswith((".", "build")) and path.suffix != ".log"


class Scratch:
    def __init__(self, tree, build, host):
        self._folder = tempfile.TemporaryDirectory(prefix="olt_document_",
                                                   ignore_cleanup_errors=True)
        self.root = pathlib.Path(self._folder.name) / "tree"
        self.outputs = pathlib.Path(self._folder.name) / "outputs"
        home = pathlib.Path(self._folder.name) / "home"
        for folder in (self.root, self.outputs, home):
            folder.mkdir()
        for path in filter(belongs, tree.iterdir()):
            if path.name in LINKED:
                (self.root / path.name).symlink_to(path)
            elif path.is_dir():
                shutil.copytree(path, self.root / path.name, symlinks=True)
            else:
                shutil.copy(path, self.root)
        self.environment = environment(home)
        self.environment["PYTHONDONTWRITEBYTECODE"] = "1"
        if build is not None:
            (self.root / "build").symlink_to(build)
        if host is not None:
            self.environment["PATH"] = f"{host.parent}{os.pathsep}{self.environment['PATH']}"

    def close(self):
        self._folder.cleanup()
