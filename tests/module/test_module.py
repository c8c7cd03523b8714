"""The Cindrel module as a Python host sees it: its commands, routing, and the plain-text path."""
from __future__ import unicode_literals

import os
import sys
import unittest

import Cindrel
from support import SOURCE, TEXT, InTemporaryFolder, case

COMMANDS = (Cindrel.getTalmatXml, Cindrel.getTaloptXml)


class ModuleTest(InTemporaryFolder):
    def test_module_surface(self):
        self.assertTrue(issubclass(Cindrel.error, Exception))
        self.assertEqual((Cindrel.error.__module__, Cindrel.error.__name__), ("Cindrel", "error"))
        self.assertEqual([command.__doc__ for command in COMMANDS],
                         ["Gets the xml from a talmat file.", "Gets the xml from a talopt file."])
        # A narrow string is refused by the interpreter's own parser, like any other wrong argument.
        for command in COMMANDS:
            for args in [(b"a.talmat",), (None,), (), ("a.talmat", "b.talmat")]:
                with case(self, command=command.__name__, args=args), self.assertRaises(TypeError):
                    command(*args)

    def test_keywords_path_like_objects_and_version(self):
        full = self.path("habits.talmat", b"<habits/>")
        self.assertEqual(Cindrel.getTalmatXml(path=full), "<habits/>")
        for arguments in [dict(file=full), dict(path=full, extra=1)]:
            with case(self, arguments=arguments), self.assertRaises(TypeError):
                Cindrel.getTalmatXml(**arguments)
        with self.assertRaises(TypeError):
            Cindrel.getTalmatXml(full, path=full)
        if sys.version_info >= (3, 6):
            import pathlib

            class BytesPath(object):
                def __fspath__(self):
                    return full.encode("utf-8")

            self.assertEqual(Cindrel.getTalmatXml(pathlib.Path(full)), "<habits/>")
            self.assertEqual(Cindrel.getTalmatXml(path=pathlib.PurePath(full)), "<habits/>")
            with self.assertRaises(TypeError):
                Cindrel.getTalmatXml(BytesPath())
            # A path-like object of the wrong kind still answers null, as a str does.
            with self.assertRaises(SystemError):
                Cindrel.getTaloptXml(pathlib.Path(full))
        self.assertIn("getTalmatXml", Cindrel.__doc__)
        with open(os.path.join(SOURCE, "CMakeLists.txt")) as project:
            self.assertIn("project(Cindrel VERSION %s " % Cindrel.__version__, project.read())

    def test_extension_routes_each_command(self):
        # Each path is taken by one command and refused by the other with a null result, which the
        # interpreter reports as SystemError: never the module's own error.
        routes = [(Cindrel.getTalmatXml, Cindrel.getTaloptXml, ["a.TALMAT", "dir.v2/b.NuMat", "\u00e9t\u00e9 \U0001F600.talmat"]),
                  (Cindrel.getTaloptXml, Cindrel.getTalmatXml, ["a.talopt", "dir.v2/b.NUOPT"])]
        for takes, refuses, names in routes:
            for name in names:
                with case(self, name=name):
                    self.assertEqual(takes(self.path(name, b"<x/>")), "<x/>")
                    with self.assertRaises(SystemError) as caught:
                        refuses(self.path(name))
                    self.assertNotIsInstance(caught.exception, Cindrel.error)
        # The last dot of the whole path counts, even inside a folder's name.
        for name in ["lib.talmat/wood", "wood.", "wood.talmat.bak"]:
            for command in COMMANDS:
                with case(self, name=name, command=command.__name__), self.assertRaises(SystemError):
                    command(self.path(name, b"<x/>"))
        # A path ends at its first zero character; the parser of 2.7 refuses such a path itself.
        full = self.path("cut.talmat", b"<cut/>")
        if sys.version_info[0] < 3:
            for command in COMMANDS:
                with self.assertRaises(TypeError):
                    command(full + "\0.talopt")
        else:
            self.assertEqual(Cindrel.getTalmatXml(full + "\0.talopt"), "<cut/>")
            with self.assertRaises(SystemError):
                Cindrel.getTaloptXml(full + "\0.talopt")

    def test_text_files_come_back_as_text(self):
        cases = [
            ("missing file", None, ""),
            ("empty file", b"", ""),
            ("byte order mark", b"\xef\xbb\xbf<a/>", "\ufeff<a/>"),
            ("zero byte", b"<a>\x00</a>", "<a>"),
            ("line ends as stored", b"<a>\r\n<b/>\r</a>\n", "<a>\r\n<b/>\r</a>\n"),
            # UTF-16 is not recognised: its bytes decode one by one, up to the first zero byte.
            ("utf-16 with its mark", b"\xff\xfe<\x00a\x00/\x00>\x00", "\u00ff\u00fe<"),
            ("windows-1252", b"<a>caf\xe9 \x80</a>", "<a>caf\u00e9 \u20ac</a>"),
            ("beyond the basic plane", b"<a>\xf0\x9f\x98\x80\xf4\x8f\xbf\xbf</a>", "<a>\U0001F600\U0010FFFF</a>"),
        ]
        for i, (what, data, expected) in enumerate(cases):
            for ext, command in zip(("talmat", "talopt"), COMMANDS):
                with case(self, what=what, command=command.__name__):
                    result = command(self.path("f%d.%s" % (i, ext), data))
                    self.assertEqual((type(result), result), (TEXT, expected))

    def test_files_are_found_by_their_bytes_and_only_regular_files_are_read(self):
        # A name that is not valid UTF-8 reaches Python 3 with its stray bytes escaped; it opens.
        # (Python 2.7 passes a path as text only, in which such a name cannot be spelled.)
        if sys.version_info[0] >= 3:
            odd = os.path.join(self.dir, os.fsdecode(b"caf\xe9 \xff.talmat"))
            with open(odd, "wb") as f:
                f.write(b"<odd/>")
            self.assertEqual(Cindrel.getTalmatXml(odd), "<odd/>")
        # A FIFO would block the call for good with the interpreter's lock held: it is unreadable.
        for ext, command in zip(("talmat", "talopt"), COMMANDS):
            with case(self, command=command.__name__):
                fifo = self.path("pipe." + ext)
                os.mkfifo(fifo)
                self.assertEqual(command(fifo), "")


if __name__ == "__main__":
    unittest.main()
