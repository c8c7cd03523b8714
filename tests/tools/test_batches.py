"""Batches of the cindrel command: on several cores, in the order given, each file as it would be alone."""
import os
import unittest

from command_fixture import EXAMPLES, InTemporaryFolder, golden, header, run

FAIL_BIG_ALLOCATIONS = os.environ.get("CINDREL_FAIL_BIG_ALLOCATIONS", "")


class Batches(InTemporaryFolder):
    def mixed_batch(self):
        """Good files of every kind (the document's sun changed by one, seen by none of the others),
        damaged, text and unreadable ones, in an order that is not the order of their names."""
        cut = self.cut()
        text = self.write("text.talopt", b"<talopt/>")
        good = sorted(EXAMPLES.glob("*.t*"), reverse=True) + sorted(EXAMPLES.glob("*.n*"))
        return [good[0], cut, self.dir / "missing.talmat", *good[1:6], text, EXAMPLES / "sky_document_sun.talmat",
                *good[6:], EXAMPLES / "sky_shared_sun.talmat", EXAMPLES / "sky_versions.talmat"]

    def test_output_does_not_depend_on_the_number_of_workers(self):
        # The long batch goes to the workers in runs of several files, failures among them: its
        # output and messages are the short one's, ten times over.
        short = self.mixed_batch()
        for copies in (1, 10):
            batch = short * copies
            with self.subTest(files=len(batch)):
                results = {jobs: run("-j", jobs, *batch) for jobs in (1, 2, 3, 8)}
                for jobs in (2, 3, 8):
                    self.assertEqual((results[jobs].returncode, results[jobs].stdout, results[jobs].stderr),
                                     (results[1].returncode, results[1].stdout, results[1].stderr), f"-j {jobs}")
                self.assertEqual(results[1].returncode, 1)
                # Each document is the file's own, as converted alone, after a line naming it.
                expected = b""
                for path in short:
                    if path.parent == EXAMPLES:
                        expected += header(path) + golden(path.name)
                    elif path.name == "text.talopt":
                        expected += header(path) + b"<talopt/>\n"
                self.assertEqual(results[1].stdout, expected * copies)
                if copies == 1:
                    once = results[1].stderr
                    # The errors come in the order of the files.
                    errors = [line for line in once.decode().splitlines() if "warning" not in line]
                    self.assertRegex(errors[0], r"cut\.talmat: damaged binary material file")
                    self.assertRegex(errors[1], r"missing\.talmat: No such file or directory")
                self.assertEqual(results[1].stderr, once * copies)

    def test_output_folders_are_the_same_with_any_number_of_workers(self):
        batch = self.mixed_batch()
        trees = []
        for jobs in (1, 2):
            out = self.dir / f"out{jobs}"
            result = run("--output", out, "-j", jobs, *batch)
            self.assertEqual(result.returncode, 1)
            trees.append({p.name: p.read_bytes() for p in out.iterdir()})
            self.assertEqual(len(result.stdout.splitlines()), len(set(batch)) - 2)  # a file named twice is refused once
        self.assertEqual(trees[0], trees[1])
        self.assertEqual(trees[0]["sky_versions.xml"], golden("sky_versions.talmat"))

    @unittest.skipUnless(os.path.exists(FAIL_BIG_ALLOCATIONS), "the allocation-failing library is not built here")
    def test_a_file_that_runs_out_of_memory_fails_alone(self):
        big = self.write("big.talmat", b"<talmat>" + b"x" * (8 << 20) + b"</talmat>")
        batch = [EXAMPLES / "wood_floor.talmat", big, EXAMPLES / "metals.numat"]
        limited = {"LD_PRELOAD": FAIL_BIG_ALLOCATIONS, "CINDREL_TEST_ALLOCATION_LIMIT": str(4 << 20)}
        for args in [("-j", 1, *batch), ("-o", self.dir / "out", *batch), (big,)]:
            with self.subTest(args=args):
                result = run(*args, env=limited)
                self.assertEqual(result.returncode, 1)
                self.assertEqual(result.stderr, f"cindrel: {big}: not enough memory to convert it\n".encode())
                if len(args) > 1 and args[0] == "-j":
                    self.assertEqual(result.stdout, header(batch[0]) + golden("wood_floor.talmat") +
                                     header(batch[2]) + golden("metals.numat"))
        self.assertEqual(sorted(p.name for p in (self.dir / "out").iterdir()), ["metals.xml", "wood_floor.xml"])

    def test_folders_and_output_options(self):
        empty = self.dir / "empty"
        (empty / "sub").mkdir(parents=True)
        (empty / "sub" / "notes.txt").write_text("no material here")
        result = run(empty)
        self.assertEqual((result.returncode, result.stdout), (1, b""))
        self.assertIn(f"cindrel: {empty}: the folder holds no material or options file".encode(), result.stderr)
        for option in (["-o", self.dir / "a"], ["--output", self.dir / "b"], [f"--output={self.dir / 'c'}"]):
            with self.subTest(option=option):
                result = run(*option, EXAMPLES / "wood_floor.talmat")
                self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(sorted(p.name for p in self.dir.iterdir()), ["a", "b", "c", "empty"])
        blocker = self.dir / "file"
        blocker.write_text("")
        result = run("-o", blocker / "out", EXAMPLES / "wood_floor.talmat")
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"cannot make the folder " + bytes(blocker / "out") + b": Not a directory", result.stderr)


if __name__ == "__main__":
    unittest.main()
