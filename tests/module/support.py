"""What the module's tests share, written to run unchanged under Python 2.7 and every Python 3."""
import contextlib
import os
import shutil
import sys
import tempfile
import unittest

TEXT = type(u"")  # the interpreter's Unicode type: unicode under 2.7, str under 3


def as_text(path):
    """A path as the interpreter's Unicode text, which is what the commands take."""
    return path if isinstance(path, TEXT) else path.decode(sys.getfilesystemencoding() or "utf-8")


SOURCE = as_text(os.environ.get("CINDREL_SOURCE_DIR") or os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__)))))
EXAMPLES = os.path.join(SOURCE, "examples")
GOLDEN = os.path.join(SOURCE, "tests", "golden")
MATERIAL_EXTENSIONS = (".talmat", ".numat")
OPTIONS_EXTENSIONS = (".talopt", ".nuopt")


def case(test, **params):
    """A subtest where the interpreter has them; under 2.7 a failure names its case in the message."""
    if hasattr(test, "subTest"):
        return test.subTest(**params)
    return _named_case(params)


@contextlib.contextmanager
def _named_case(params):
    try:
        yield
    except AssertionError as failure:
        raise AssertionError("%s (%s)" % (failure, ", ".join("%s=%r" % item for item in sorted(params.items()))))


def file_system_path(path):
    """A path as bytes in UTF-8, so that any name can be made whatever the locale's encoding."""
    return path.encode("utf-8") if isinstance(path, TEXT) else path


def write_file(path, data):
    folder = os.path.dirname(file_system_path(path))
    if not os.path.isdir(folder):
        os.makedirs(folder)
    with open(file_system_path(path), "wb") as f:
        f.write(data)


def read_bytes(path):
    with open(path, "rb") as f:
        return f.read()


def example_files():
    """Every material and options file of the example library, as (path relative to it, full path)."""
    found = []
    for folder, _, names in os.walk(EXAMPLES):
        for name in names:
            if name.lower().endswith(MATERIAL_EXTENSIONS + OPTIONS_EXTENSIONS):
                full = os.path.join(folder, name)
                found.append((os.path.relpath(full, EXAMPLES), full))
    return sorted(found)


def convert(path):
    """The command that the path's extension names, on the path."""
    import Cindrel
    command = Cindrel.getTalmatXml if path.lower().endswith(MATERIAL_EXTENSIONS) else Cindrel.getTaloptXml
    return command(path)


class InTemporaryFolder(unittest.TestCase):
    """A test with a folder of its own, removed after it."""

    def setUp(self):
        self.dir = tempfile.mkdtemp(prefix="cindrel_module_test_")
        self.addCleanup(shutil.rmtree, self.dir)

    def path(self, name, data=None):
        """A path in the folder as text, holding the data if given."""
        full = os.path.join(as_text(self.dir), name)
        if data is not None:
            write_file(full, data)
        return full
