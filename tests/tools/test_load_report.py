"""cindrel inspect on the command line: a report per file, JSON for scripts, status 1 on damage."""
import json
import unittest

from command_fixture import EXAMPLES, InTemporaryFolder, run


class Inspect(InTemporaryFolder):
    def test_the_example_library_loads_and_a_cut_file_says_where_it_stops(self):
        whole = run("inspect", EXAMPLES)
        self.assertEqual(whole.returncode, 0, whole.stderr)
        self.assertIn("single_layer.talmat: material file, version 3", whole.stdout.decode())
        cut = self.cut(example="single_layer.talmat", length=200)
        text = run("inspect", cut)
        self.assertEqual(text.returncode, 1)
        self.assertIn("the load stops in material 2 (MtlTALVEX)", text.stdout.decode())
        lines = run("inspect", "--json", cut, EXAMPLES / "default_settings.nuopt")
        self.assertEqual(lines.returncode, 1)
        damaged, options = [json.loads(line) for line in lines.stdout.decode().splitlines()]
        self.assertTrue(damaged["failed"])
        self.assertEqual(damaged["objects"][1]["class"], "MtlTALVEX")
        self.assertEqual((options["kind"], options["failed"]), ("options", False))


if __name__ == "__main__":
    unittest.main()
