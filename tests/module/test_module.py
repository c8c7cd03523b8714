"""The Cindrel module as a Python host sees it: its commands, routing, and the plain-text path."""
import os
import shutil
import tempfile
import unittest

import Cindrel

COMMANDS = (Cindrel.getTalmatXml, Cindrel.getTaloptXml)


class ModuleTest(unittest.TestCase):
    def setUp(self):
        self.dir = tempfile.mkdtemp(prefix="cindrel_module_test_")
        self.addCleanup(shutil.rmtree, self.dir)

    def path(self, name, data=None):
        full = os.path.join(self.dir, name)
        if data is not None:
            os.makedirs(os.path.dirname(full), exist_ok=True)
            with open(full, "wb") as f:
                f.write(data)
        return full

    def test_module_surface(self):
        self.assertTrue(issubclass(Cindrel.error, Exception))
        self.assertEqual((Cindrel.error.__module__, Cindrel.error.__name__), ("Cindrel", "error"))
        self.assertEqual([command.__doc__ for command in COMMANDS],
                         ["Gets the xml from a talmat file.", "Gets the xml from a talopt file."])
        for command in COMMANDS:
            for args in [(b"a.talmat",), (None,), (), ("a.talmat", "b.talmat")]:
                with self.subTest(command=command.__name__, args=args), self.assertRaises(TypeError):
                    command(*args)

    def test_extension_routes_each_command(self):
        # Each path is taken by one command and refused by the other with a null result, which the
        # interpreter reports as SystemError: never the module's own error.
        routes = [(Cindrel.getTalmatXml, Cindrel.getTaloptXml, ["a.TALMAT", "dir.v2/b.NuMat", "\u00e9t\u00e9 \U0001F600.talmat"]),
                  (Cindrel.getTaloptXml, Cindrel.getTalmatXml, ["a.talopt", "dir.v2/b.NUOPT"])]
        for takes, refuses, names in routes:
            for name in names:
                with self.subTest(name=name):
                    self.assertEqual(takes(self.path(name, b"<x/>")), "<x/>")
                    with self.assertRaises(SystemError) as caught:
                        refuses(self.path(name))
                    self.assertNotIsInstance(caught.exception, Cindrel.error)
        # The last dot of the whole path counts, even inside a folder's name.
        for name in ["lib.talmat/wood", "wood.", "wood.talmat.bak"]:
            for command in COMMANDS:
                with self.subTest(name=name, command=command.__name__), self.assertRaises(SystemError):
                    command(self.path(name, b"<x/>"))
        # A path ends at its first zero character.
        full = self.path("cut.talmat", b"<cut/>")
        self.assertEqual(Cindrel.getTalmatXml(full + "\0.talopt"), "<cut/>")
        with self.assertRaises(SystemError):
            Cindrel.getTaloptXml(full + "\0.talopt")

    def test_text_files_come_back_as_text(self):
        cases = [
            ("missing file", None, ""),
            ("empty file", b"", ""),
            ("byte order mark", b"\xef\xbb\xbf<a/>", "\ufeff<a/>"),
            ("zero byte", b"<a>\x00</a>", "<a>"),
            ("windows-1252", b"<a>caf\xe9 \x80</a>", "<a>caf\u00e9 \u20ac</a>"),
        ]
        for i, (what, data, expected) in enumerate(cases):
            for ext, command in zip(("talmat", "talopt"), COMMANDS):
                with self.subTest(what=what, command=command.__name__):
                    result = command(self.path("f%d.%s" % (i, ext), data))
                    self.assertEqual((type(result), result), (str, expected))

    def test_files_are_found_by_their_bytes_and_only_regular_files_are_read(self):
        # A name that is not valid UTF-8 reaches Python with its stray bytes escaped; it opens.
        odd = os.path.join(self.dir, os.fsdecode(b"caf\xe9 \xff.talmat"))
        with open(odd, "wb") as f:
            f.write(b"<odd/>")
        self.assertEqual(Cindrel.getTalmatXml(odd), "<odd/>")
        # A FIFO would block the call for good with the interpreter's lock held: it is unreadable.
        for ext, command in zip(("talmat", "talopt"), COMMANDS):
            with self.subTest(command=command.__name__):
                fifo = self.path("pipe." + ext)
                os.mkfifo(fifo)
                self.assertEqual(command(fifo), "")

if __name__ == "__main__":
    unittest.main()
