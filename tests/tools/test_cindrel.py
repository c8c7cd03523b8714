"""The cindrel command: output, folders, messages, usage and exit status, and its inspection."""
import json
import unittest

from command_fixture import EXAMPLES, InTemporaryFolder, golden, run


class Command(InTemporaryFolder):
    def test_a_folder_converts_into_an_output_tree_with_one_line_per_file(self):
        for name in ["wood_floor.talmat", "hand_written.talmat"]:
            self.copy(name, "in/sub/" + name)
        self.write("in/sub/wood_floor.talopt", b"<talopt/>")
        self.write("in/readme.txt", b"not converted")
        result = run("-o", self.dir / "out", self.dir / "in")
        self.assertEqual(result.returncode, 0, result.stderr)
        lines = result.stdout.decode().splitlines()
        self.assertEqual(len(lines), 3)
        self.assertTrue(lines[0].endswith("(passed through as text)"))
        out = self.dir / "out" / "sub"
        self.assertEqual((out / "wood_floor.xml").read_bytes(), golden("wood_floor.talmat"))
        self.assertEqual((out / "wood_floor.talopt.xml").read_bytes(), b"<talopt/>")
        self.assertIn(b"hand_written.talmat: not a binary material file; passed through as text", result.stderr)

    def test_usage(self):
        for args in [(), ("--bogus", "x.talmat"), ("inspect",), ("inspect", "--bogus", EXAMPLES), ("upgrade",),
                     ("upgrade", "a.talmat"), ("upgrade", "a.talmat", "b.talmat", "c.talmat"),
                     ("upgrade", "--in-place", "-o", self.dir, "a.talmat")]:
            with self.subTest(args=args):
                self.assertEqual(run(*args).returncode, 2)
        for args, usage in [(("--help",), b"Usage: cindrel"), (("upgrade", "--help"), b"cindrel upgrade IN OUT")]:
            help_ = run(*args)
            self.assertEqual(help_.returncode, 0)
            self.assertIn(usage, help_.stdout)
        self.assertRegex(run("--version").stdout.decode(), r"^cindrel \d+\.\d+\.\d+\n$")

    def test_inspect_reports_each_file_and_fails_on_damage(self):
        whole = run("inspect", EXAMPLES)
        self.assertEqual(whole.returncode, 0, whole.stderr)
        self.assertIn("single_layer.talmat: material file, version 3", whole.stdout.decode())
        cut = self.cut(example="single_layer.talmat", length=200)
        lines = run("inspect", "--json", cut, EXAMPLES / "default_settings.nuopt")
        self.assertEqual(lines.returncode, 1)
        damaged, options = [json.loads(line) for line in lines.stdout.decode().splitlines()]
        self.assertTrue(damaged["failed"])
        self.assertEqual(damaged["objects"][1]["class"], "MtlTALVEX")
        self.assertEqual((options["kind"], options["failed"]), ("options", False))


if __name__ == "__main__":
    unittest.main()
