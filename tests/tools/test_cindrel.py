"""The cindrel command: output, folders, messages and exit status."""
import unittest

from command_fixture import EXAMPLES, InTemporaryFolder, golden, header, run


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

    def test_unreadable_and_unknown_paths_are_reported_and_fail(self):
        result = run(EXAMPLES / "wood_floor.talmat", "/no/such/file.talmat", EXAMPLES / "../README.md")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stdout, header(EXAMPLES / "wood_floor.talmat") + golden("wood_floor.talmat"))
        self.assertIn(b"/no/such/file.talmat: No such file or directory", result.stderr)
        self.assertIn(b"README.md: not a material or options file", result.stderr)

    def test_usage(self):
        for args, status in [((), 2), (("--bogus", "x.talmat"), 2), (("inspect",), 2),
                             (("inspect", "--bogus", EXAMPLES), 2), (("--help",), 0)]:
            with self.subTest(args=args):
                self.assertEqual(run(*args).returncode, status)
        self.assertIn(b"Usage: cindrel", run("--help").stdout)
        self.assertRegex(run("--version").stdout.decode(), r"^cindrel \d+\.\d+\.\d+\n$")


if __name__ == "__main__":
    unittest.main()
