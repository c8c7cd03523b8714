"""The cindrel command: output, folders, messages and exit status."""
import os
import pathlib
import subprocess
import tempfile
import unittest

TOOL = os.environ.get("CINDREL_TOOL", "cindrel")
SOURCE = pathlib.Path(os.environ.get("CINDREL_SOURCE_DIR", pathlib.Path(__file__).resolve().parents[2]))
EXAMPLES = SOURCE / "examples"
GOLDEN = SOURCE / "tests" / "golden"


def header(path):
    return b"==> " + bytes(path) + b" <==\n"


def run(*args):
    return subprocess.run([TOOL, *map(str, args)], capture_output=True)


class Command(unittest.TestCase):
    def test_a_file_goes_to_standard_output_as_its_golden_document(self):
        result = run(EXAMPLES / "wood_floor.talmat")
        self.assertEqual(result.returncode, 0)
        self.assertEqual(result.stdout, (GOLDEN / "wood_floor.talmat.xml").read_bytes())
        self.assertEqual(result.stderr, b"")

    def test_an_options_file_goes_to_standard_output_as_its_golden_document(self):
        for name in ["studio_settings.talopt", "options_v14.talopt"]:
            result = run(EXAMPLES / name)
            self.assertEqual(result.returncode, 0, result.stderr)
            self.assertEqual(result.stdout, (GOLDEN / (name + ".xml")).read_bytes())

    def test_a_folder_converts_into_an_output_tree_with_one_line_per_file(self):
        with tempfile.TemporaryDirectory() as tmp:
            source = pathlib.Path(tmp, "in")
            (source / "sub").mkdir(parents=True)
            for name in ["wood_floor.talmat", "hand_written.talmat"]:
                (source / "sub" / name).write_bytes((EXAMPLES / name).read_bytes())
            (source / "sub" / "wood_floor.talopt").write_bytes(b"<talopt/>")
            (source / "readme.txt").write_text("not converted")
            result = run("-o", pathlib.Path(tmp, "out"), source)
            self.assertEqual(result.returncode, 0, result.stderr)
            lines = result.stdout.decode().splitlines()
            self.assertEqual(len(lines), 3)
            self.assertTrue(lines[0].endswith("(passed through as text)"))
            out = pathlib.Path(tmp, "out", "sub")
            self.assertEqual((out / "wood_floor.xml").read_bytes(), (GOLDEN / "wood_floor.talmat.xml").read_bytes())
            self.assertEqual((out / "wood_floor.talopt.xml").read_bytes(), b"<talopt/>")
            self.assertIn(b"hand_written.talmat: not a binary material file; passed through as text", result.stderr)

    def test_unreadable_and_unknown_paths_are_reported_and_fail(self):
        result = run(EXAMPLES / "wood_floor.talmat", "/no/such/file.talmat", EXAMPLES / "../README.md")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stdout, header(EXAMPLES / "wood_floor.talmat") + (GOLDEN / "wood_floor.talmat.xml").read_bytes())
        self.assertIn(b"/no/such/file.talmat: No such file or directory", result.stderr)
        self.assertIn(b"README.md: not a material or options file", result.stderr)

    def test_usage(self):
        self.assertEqual(run().returncode, 2)
        self.assertEqual(run("--bogus", "x.talmat").returncode, 2)
        help_text = run("--help")
        self.assertEqual(help_text.returncode, 0)
        self.assertIn(b"Usage: cindrel", help_text.stdout)
        self.assertRegex(run("--version").stdout.decode(), r"^cindrel \d+\.\d+\.\d+\n$")


if __name__ == "__main__":
    unittest.main()
