"""cindrel inspect on the command line: a report per file, JSON for scripts, status 1 on damage."""
import json
import os
import pathlib
import subprocess
import tempfile
import unittest

TOOL = os.environ.get("CINDREL_TOOL", "cindrel")
SOURCE = pathlib.Path(os.environ.get("CINDREL_SOURCE_DIR", pathlib.Path(__file__).resolve().parents[2]))
EXAMPLES = SOURCE / "examples"


def run(*args):
    return subprocess.run([TOOL, "inspect", *map(str, args)], capture_output=True, timeout=60)


class Inspect(unittest.TestCase):
    def test_the_example_library_loads_and_a_cut_file_says_where_it_stops(self):
        whole = run(EXAMPLES)
        self.assertEqual(whole.returncode, 0, whole.stderr)
        self.assertIn("single_layer.talmat: material file, version 3", whole.stdout.decode())
        with tempfile.TemporaryDirectory() as tmp:
            cut = pathlib.Path(tmp) / "cut.talmat"
            cut.write_bytes((EXAMPLES / "single_layer.talmat").read_bytes()[:200])
            text = run(cut)
            self.assertEqual(text.returncode, 1)
            self.assertIn("the load stops in material 2 (MtlTALVEX)", text.stdout.decode())
            lines = run("--json", cut, EXAMPLES / "default_settings.nuopt")
            self.assertEqual(lines.returncode, 1)
            damaged, options = [json.loads(line) for line in lines.stdout.decode().splitlines()]
            self.assertTrue(damaged["failed"])
            self.assertEqual(damaged["objects"][1]["class"], "MtlTALVEX")
            self.assertEqual(options["kind"], "options")
            self.assertFalse(options["failed"])

    def test_usage(self):
        self.assertEqual(run().returncode, 2)
        self.assertEqual(run("--bogus", EXAMPLES).returncode, 2)


if __name__ == "__main__":
    unittest.main()
