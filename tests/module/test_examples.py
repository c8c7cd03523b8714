"""The Python commands give every example file exactly its golden document, and the cindrel
command's text."""
from __future__ import unicode_literals

import os
import shutil
import subprocess
import tempfile
import unittest

import Cindrel
from support import EXAMPLES, GOLDEN, MATERIAL_EXTENSIONS, case, example_files, read_bytes

TOOL = os.environ.get("CINDREL_TOOL")


def convert(path):
    command = Cindrel.getTalmatXml if path.lower().endswith(MATERIAL_EXTENSIONS) else Cindrel.getTaloptXml
    return command(path)


class ExampleLibrary(unittest.TestCase):
    def test_every_example_gives_its_golden_document(self):
        examples = example_files()
        self.assertTrue(examples, "the example library is empty")
        for name, path in examples:
            with case(self, example=name):
                golden = read_bytes(os.path.join(GOLDEN, name + ".xml")).decode("utf-8")
                self.assertEqual(convert(path), golden)

    @unittest.skipUnless(TOOL, "CINDREL_TOOL names no cindrel command")
    def test_every_example_gives_the_text_of_the_command(self):
        with open(os.devnull, "w") as quiet:  # the command names the files it passes through as text
            for name, path in example_files():
                with case(self, example=name):
                    self.assertEqual(convert(path).encode("utf-8"), subprocess.check_output([TOOL, path], stderr=quiet))

    def test_layered_material_files_convert_and_text_files_pass_through(self):
        xml = Cindrel.getTalmatXml(os.path.join(EXAMPLES, "wood_floor.talmat"))
        self.assertTrue(xml.startswith("<talmat>\n  <Assets>\n"))
        self.assertIn('url="/Wood_Floor" >', xml)
        hand_written = os.path.join(EXAMPLES, "hand_written.talmat")
        self.assertEqual(Cindrel.getTalmatXml(hand_written), read_bytes(hand_written).decode("utf-8"))

    def test_options_files_of_old_and_new_versions_give_22_settings_assets(self):
        for name in ["options_v0.talopt", "options_v9.nuopt", "studio_settings.talopt"]:
            xml = Cindrel.getTaloptXml(os.path.join(EXAMPLES, name))
            self.assertTrue(xml.startswith("<talopt>\n  <Assets>\n"), name)
            self.assertEqual(xml.count("<Assets>"), 22, name)
            self.assertTrue(xml.endswith("  </Assets>\n</talopt>\n"), name)
        # A record refused after its tag comes back as the file's text, up to its first zero byte.
        tmp = tempfile.mkdtemp()
        try:
            damaged = os.path.join(tmp, "damaged.talopt")
            with open(damaged, "wb") as f:
                f.write(b"\x01\x00\x17\x00" + b"\x00\x00\x06\x00")
            self.assertEqual(Cindrel.getTaloptXml(damaged), "\x01")
        finally:
            shutil.rmtree(tmp)


if __name__ == "__main__":
    unittest.main()
