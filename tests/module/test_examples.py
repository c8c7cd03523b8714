"""The Python commands give every example file exactly its golden document."""
import os
import pathlib
import unittest

import Cindrel

SOURCE = pathlib.Path(os.environ.get("CINDREL_SOURCE_DIR", pathlib.Path(__file__).resolve().parents[2]))
EXAMPLES = SOURCE / "examples"
GOLDEN = SOURCE / "tests" / "golden"


class ExampleLibrary(unittest.TestCase):
    def test_every_example_gives_its_golden_document(self):
        examples = sorted(p for p in EXAMPLES.rglob("*") if p.suffix.lower() in {".talmat", ".numat", ".talopt", ".nuopt"})
        self.assertTrue(examples, "the example library is empty")
        for example in examples:
            with self.subTest(example=example.name):
                golden = (GOLDEN / (str(example.relative_to(EXAMPLES)) + ".xml")).read_bytes().decode("utf-8")
                convert = Cindrel.getTalmatXml if example.suffix.lower() in {".talmat", ".numat"} else Cindrel.getTaloptXml
                self.assertEqual(convert(str(example)), golden)

    def test_layered_material_files_convert_and_text_files_pass_through(self):
        xml = Cindrel.getTalmatXml(str(EXAMPLES / "wood_floor.talmat"))
        self.assertTrue(xml.startswith("<talmat>\n  <Assets>\n"))
        self.assertIn('url="/Wood_Floor" >', xml)
        text = (EXAMPLES / "hand_written.talmat").read_bytes().decode("utf-8")
        self.assertEqual(Cindrel.getTalmatXml(str(EXAMPLES / "hand_written.talmat")), text)


if __name__ == "__main__":
    unittest.main()
