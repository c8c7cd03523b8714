"""The Python commands give every example file exactly its golden document."""
import os
import pathlib
import tempfile
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

    def test_options_files_of_old_and_new_versions_give_22_settings_assets(self):
        for name in ["options_v0.talopt", "options_v9.nuopt", "studio_settings.talopt"]:
            xml = Cindrel.getTaloptXml(str(EXAMPLES / name))
            self.assertTrue(xml.startswith("<talopt>\n  <Assets>\n"), name)
            self.assertEqual(xml.count("<Assets>"), 22, name)
            self.assertTrue(xml.endswith("  </Assets>\n</talopt>\n"), name)
        # A record refused after its tag comes back as the file's text, up to its first zero byte.
        with tempfile.TemporaryDirectory() as tmp:
            damaged = pathlib.Path(tmp, "damaged.talopt")
            damaged.write_bytes(b"\x01\x00\x17\x00" + b"\x00\x00\x06\x00")
            self.assertEqual(Cindrel.getTaloptXml(str(damaged)), "\x01")


if __name__ == "__main__":
    unittest.main()
