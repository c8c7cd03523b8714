"""What the command's suites share: where the command and the example library are, a runner, and a
temporary folder per test."""
import os
import pathlib
import resource
import shutil
import signal
import subprocess
import tempfile
import unittest

TOOL = os.environ.get("CINDREL_TOOL", "cindrel")
SOURCE = pathlib.Path(os.environ.get("CINDREL_SOURCE_DIR", pathlib.Path(__file__).resolve().parents[2]))
EXAMPLES = SOURCE / "examples"
GOLDEN = SOURCE / "tests" / "golden"


def run(*args, env=None, limit_file_size=None, timeout=60):
    """The command on the arguments (paths as their bytes), with extra environment or a file size limit."""
    def limits():
        if limit_file_size is not None:
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)  # a write past the limit fails instead
            resource.setrlimit(resource.RLIMIT_FSIZE, (limit_file_size, limit_file_size))
    return subprocess.run([TOOL, *map(os.fsencode, map(str, args))], capture_output=True, timeout=timeout,
                          env=None if env is None else {**os.environ, **env},
                          preexec_fn=limits if limit_file_size is not None else None)


def header(path):
    return b"==> " + bytes(path) + b" <==\n"


def golden(name):
    """The golden document of an example file."""
    return (GOLDEN / (name + ".xml")).read_bytes()


def files_below(folder):
    folder = pathlib.Path(folder)
    return sorted(str(p.relative_to(folder)) for p in folder.rglob("*") if p.is_file()) if folder.exists() else []


class InTemporaryFolder(unittest.TestCase):
    def setUp(self):
        self.tmp = tempfile.TemporaryDirectory()
        self.addCleanup(self.tmp.cleanup)
        self.dir = pathlib.Path(self.tmp.name)

    def write(self, name, data):
        path = self.dir / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)
        return path

    def copy(self, name, to=None):
        """An example file copied into the folder, under its own name or another."""
        path = self.dir / (to or name)
        path.parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(EXAMPLES / name, path)
        return path

    def cut(self, name="cut.talmat", example="car_paint_v2.talmat", length=250):
        """An example file cut short: by default one whose first material fails at offset 255."""
        return self.write(name, (EXAMPLES / example).read_bytes()[:length])
