"""The Cindrel module as a Python host sees it: its commands, routing, and the plain-text path."""
import os
import shutil
import struct
import tempfile
import unittest

import Cindrel


class ModuleTest(unittest.TestCase):
    def setUp(self):
        self.dir = tempfile.mkdtemp(prefix="cindrel_module_test_")

    def tearDown(self):
        shutil.rmtree(self.dir)

    def path(self, name, data=None):
        full = os.path.join(self.dir, name)
        if data is not None:
            os.makedirs(os.path.dirname(full), exist_ok=True)
            with open(full, "wb") as f:
                f.write(data)
        return full

    def test_module_surface(self):
        self.assertTrue(isinstance(Cindrel.error, type) and issubclass(Cindrel.error, Exception))
        self.assertEqual(Cindrel.error.__name__, "error")
        self.assertEqual(Cindrel.error.__module__, "Cindrel")
        self.assertEqual(Cindrel.getTalmatXml.__doc__, "Gets the xml from a talmat file.")
        self.assertEqual(Cindrel.getTaloptXml.__doc__, "Gets the xml from a talopt file.")

    def test_extensions_route_each_command(self):
        text = b"<x/>"
        material_paths = ["a.talmat", "b.TALMAT", "c.NuMat", "dir.v2/d.talmat", "e.f.numat"]
        options_paths = ["a.talopt", "b.NUOPT", "c.TalOpt", "dir.v2/d.nuopt"]
        for name in material_paths:
            with self.subTest(name=name):
                self.assertEqual(Cindrel.getTalmatXml(self.path(name, text)), "<x/>")
                with self.assertRaises(SystemError):
                    Cindrel.getTaloptXml(self.path(name))
        for name in options_paths:
            with self.subTest(name=name):
                self.assertEqual(Cindrel.getTaloptXml(self.path(name, text)), "<x/>")
                with self.assertRaises(SystemError):
                    Cindrel.getTalmatXml(self.path(name))

    def test_wrong_extension_is_a_null_result_without_an_exception(self):
        # The last dot of the whole path counts, even inside a folder's name.
        for name in ["lib.talmat/wood", "wood.", "wood", "wood.talmat.bak", "wood.xml"]:
            for command in (Cindrel.getTalmatXml, Cindrel.getTaloptXml):
                with self.subTest(name=name, command=command.__name__):
                    with self.assertRaises(SystemError) as caught:
                        command(self.path(name, b"<x/>"))
                    self.assertNotIsInstance(caught.exception, Cindrel.error)

    def test_path_ends_at_its_first_zero_character(self):
        full = self.path("cut.talmat", b"<cut/>")
        self.assertEqual(Cindrel.getTalmatXml(full + "\0.talopt"), "<cut/>")
        with self.assertRaises(SystemError):
            Cindrel.getTaloptXml(full + "\0.talopt")

    def test_arguments_must_be_one_str(self):
        for args in [(b"a.talmat",), (None,), (3,), (), ("a.talmat", "b.talmat")]:
            for command in (Cindrel.getTalmatXml, Cindrel.getTaloptXml):
                with self.subTest(args=args, command=command.__name__):
                    with self.assertRaises(TypeError):
                        command(*args)

    def test_text_files_come_back_as_text(self):
        cases = [
            ("missing file", None, ""),
            ("empty file", b"", ""),
            ("xml with its line ends", b'<talmat>\r\n  <Assets/>\n</talmat>\r\n', '<talmat>\r\n  <Assets/>\n</talmat>\r\n'),
            ("byte order mark", b"\xef\xbb\xbf<a/>", "\ufeff<a/>"),
            ("zero byte", b"<a>\x00</a>", "<a>"),
            ("windows-1252", b"<a>caf\xe9 \x80</a>", "<a>caf\u00e9 \u20ac</a>"),
            ("utf-8 outside the basic plane", "<a>\U0001F600</a>".encode(), "<a>\U0001F600</a>"),
            ("header without a readable material", struct.pack("<III", 0x30000, 1, 1), ""),
        ]
        for i, (what, data, expected) in enumerate(cases):
            for ext, command in (("talmat", Cindrel.getTalmatXml), ("talopt", Cindrel.getTaloptXml)):
                with self.subTest(what=what, command=command.__name__):
                    result = command(self.path("f%d.%s" % (i, ext), data))
                    self.assertIs(type(result), str)
                    self.assertEqual(result, expected)

    def test_folder_and_unusual_names(self):
        os.makedirs(self.path("folder.talmat"))
        self.assertEqual(Cindrel.getTalmatXml(self.path("folder.talmat")), "")
        self.assertEqual(Cindrel.getTalmatXml(self.path("\u00e9t\u00e9 \U0001F600.talmat", b"<b/>")), "<b/>")

    def test_options_files_take_the_text_path(self):
        self.assertEqual(Cindrel.getTaloptXml(self.path("scene.talopt", bytes(16))), "")
        self.assertEqual(Cindrel.getTaloptXml(self.path("scene.nuopt", b"<talopt/>")), "<talopt/>")


if __name__ == "__main__":
    unittest.main()
