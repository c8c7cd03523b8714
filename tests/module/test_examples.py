"""The Python commands give every example file exactly its golden document, and the cindrel
command's text."""
from __future__ import unicode_literals

import os
import subprocess
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


if __name__ == "__main__":
    unittest.main()
