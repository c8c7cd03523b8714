"""Converting whole files with the module, as one worker does, and what became of each."""
import collections
import os

import Cindrel

MATERIAL_EXTENSIONS = (".talmat", ".numat")
OPTIONS_EXTENSIONS = (".talopt", ".nuopt")
KNOWN_EXTENSIONS = MATERIAL_EXTENSIONS + OPTIONS_EXTENSIONS

CONVERTED = "converted"
TEXT = "text"
FAILED = "failed"


class FileResult(collections.namedtuple("FileResult", "path status output detail")):
    """One row of the result table: the path, its status, the XML file written (or None), and the
    reason of a failure."""

    __slots__ = ()

    def __new__(cls, path, status, output=None, detail=""):
        return super(FileResult, cls).__new__(cls, path, status, output, detail)


def command_for(path):
    """The module's command for the file's extension, or None for a file of no known kind."""
    extension = os.path.splitext(path)[1].lower()
    if extension in MATERIAL_EXTENSIONS:
        return Cindrel.getTalmatXml
    if extension in OPTIONS_EXTENSIONS:
        return Cindrel.getTaloptXml
    return None


def _file_text(path):
    """The file as the module reads a file that is XML already: up to its first zero byte,
    UTF-8 where the bytes allow, else Windows-1252."""
    with open(path, "rb") as stream:
        data = stream.read()
    zero = data.find(b"\0")
    if zero >= 0:
        data = data[:zero]
    try:
        return data.decode("utf-8")
    except UnicodeDecodeError:
        return data.decode("cp1252", "replace")


def output_path(path, base, output_root):
    """Where the XML of `path` goes: its place below `base`, under `output_root`, with ".xml"
    added to its whole name (so that a material and an options file of one name stay apart)."""
    relative = os.path.relpath(os.path.abspath(path), os.path.abspath(base))
    if relative == os.curdir or relative.startswith(os.pardir + os.sep) or relative == os.pardir:
        relative = os.path.basename(path)
    return os.path.join(output_root, relative + ".xml")


def convert_file(path, base, output_root):
    """Converts one file and writes its XML; never raises for a file's sake."""
    path = os.fspath(path)
    command = command_for(path)
    if command is None:
        return FileResult(path, FAILED, None, "not a material or options file")
    try:
        text = command(path)
    except Exception as error:  # the module's own refusal, or one from the interpreter
        return FileResult(path, FAILED, None, "%s: %s" % (type(error).__name__, error))
    if not text:
        if not os.access(path, os.R_OK):
            reason = "does not open"
        elif os.path.getsize(path) == 0:
            reason = "empty file"
        else:
            reason = "damaged: does not load"
        return FileResult(path, FAILED, None, reason)
    status = TEXT if text == _file_text(path) else CONVERTED
    target = output_path(path, base, output_root)
    try:
        folder = os.path.dirname(target)
        if folder:
            os.makedirs(folder, exist_ok=True)
        with open(target, "w", encoding="utf-8", newline="") as stream:
            stream.write(text)
    except OSError as error:
        return FileResult(path, FAILED, None, "cannot write %s: %s" % (target, error.strerror))
    return FileResult(path, status, target, "")


def convert_batch(paths, base, output_root):
    """One task's work: a batch of whole files, converted one after another."""
    return [convert_file(path, base, output_root) for path in paths]
