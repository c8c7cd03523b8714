"""The cindrel command on files that are not what their names say, and on outputs that fail."""
import os
import resource
import unittest

from command_fixture import EXAMPLES, InTemporaryFolder, files_below, golden, header, run


class HostileFiles(InTemporaryFolder):
    def test_paths_that_do_not_convert_are_reported_and_fail_alone(self):
        # Things that are not regular files are refused at once, without waiting for a writer.
        fifo = self.dir / "pipe.talmat"
        os.mkfifo(fifo)
        device = self.dir / "zero.talmat"
        device.symlink_to("/dev/zero")
        for path, reason in [(fifo, b"not a regular file"), (device, b"not a regular file"),
                             ("/no/such/file.talmat", b"No such file or directory"),
                             (EXAMPLES / "../README.md", b"not a material or options file")]:
            with self.subTest(path=path):
                result = run(path, EXAMPLES / "wood_floor.talmat", timeout=20)
                self.assertEqual(result.returncode, 1)
                self.assertIn(str(path).encode() + b": " + reason, result.stderr)
                self.assertEqual(result.stdout, header(EXAMPLES / "wood_floor.talmat") + golden("wood_floor.talmat"))
        # Into a folder, neither it nor a missing file leaves an output.
        for path in (fifo, self.dir / "missing.talmat"):
            with self.subTest(path=path):
                out = self.dir / "out"
                result = run("-o", out, path, timeout=20)
                self.assertEqual(result.returncode, 1)
                self.assertEqual(files_below(out), [])

    def test_names_that_are_not_utf8_open_as_their_bytes(self):
        name = self.copy("wood_floor.talmat", os.fsdecode(b"\xff\xfe caf\xe9.talmat"))
        result = run(name)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(result.stdout, golden("wood_floor.talmat"))
        out = self.dir / "out"
        result = run("-o", out, self.dir)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(os.listdir(os.fsencode(out)), [b"\xff\xfe caf\xe9.xml"])

    def test_text_stops_at_the_first_zero_byte_without_reading_on(self):
        big = self.dir / "zeros.talmat"
        with open(big, "wb") as f:
            f.write(b"<talmat/>\0")
            f.truncate(1 << 30)  # sparse: a gigabyte of zeros behind the text
        result = run(big)
        self.assertEqual(result.returncode, 0, result.stderr)
        # Peak memory of the largest child so far: far below the gigabyte behind the zero byte.
        self.assertLess(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss, 300 * 1024)
        self.assertEqual(result.stdout, b"<talmat/>")


class DamagedFiles(InTemporaryFolder):
    def test_a_binary_header_that_does_not_load_is_an_error_with_what_where_and_why(self):
        damaged = self.cut()
        out = self.dir / "out"
        result = run("-o", out, damaged)
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"cut.talmat: damaged binary material file: in material 1 (MtlTALVEX) at offset 255: "
                      b"version tag 0x00000000 is not one of this record's", result.stderr)
        self.assertFalse(out.exists() and files_below(out))
        result = run(damaged)
        self.assertEqual((result.returncode, result.stdout), (1, b""))
        # Asked for, the pass-through stays: the text up to the first zero byte, here empty.
        result = run("--pass-damaged", "-o", out, damaged)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn(b"warning: damaged binary material file", result.stderr)
        self.assertEqual((out / "cut.xml").read_bytes(), b"")

    def test_warnings_for_reads_past_the_end_and_characters_xml_forbids(self):
        whole = (EXAMPLES / "wood_floor.talmat").read_bytes()
        cut = self.write("short.talmat", whole[:len(whole.rstrip(b"\0")) - 8])
        result = run(cut)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn(b"short.talmat: warning: the load read past the end", result.stderr)
        # A whole file alone: its golden document and not a word more.
        whole = run(EXAMPLES / "wood_floor.talmat")
        self.assertEqual((whole.returncode, whole.stdout, whole.stderr), (0, golden("wood_floor.talmat"), b""))
        text = self.write("ls.talmat", b"\x7fELF\x02\x01\x01\x00rest")
        result = run(text)
        self.assertEqual((result.returncode, result.stdout), (0, b"\x7fELF\x02\x01\x01"))
        self.assertIn(b"ls.talmat: warning: the document holds 3 character(s) that XML 1.0 does not allow", result.stderr)


class WholeOrAbsentOutput(InTemporaryFolder):
    def test_a_write_that_fails_leaves_no_file_and_names_the_reason(self):
        for name in ["wood_floor.talmat", "metals.numat", "hand_written.talmat"]:
            self.copy(name, "in/" + name)
        source = self.dir / "in"
        out = self.dir / "out"
        result = run("-o", out, source, limit_file_size=20000)
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"File too large", result.stderr)
        for name in files_below(out):  # only whole documents, no temporary names
            self.assertFalse(name.startswith("."), name)
            self.assertEqual((out / name).read_bytes(), golden(name.replace(".xml", "") + ".talmat"))
        self.assertIn("hand_written.xml", files_below(out))

    def test_inputs_that_share_an_output_name_never_overwrite_each_other(self):
        paths = [self.write(folder + "/x.talmat", b"<from-" + folder.encode() + b"/>") for folder in "abc"]
        self.write("a/x.talopt", b"<options/>")
        out = self.dir / "out"
        result = run("-o", out, *paths, self.dir / "a" / "x.talopt")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(files_below(out), ["x.talopt.xml", "x.xml"])
        self.assertEqual((out / "x.xml").read_bytes(), b"<from-a/>")
        for refused in paths[1:]:
            self.assertIn(str(refused).encode() + b": not converted: its output", result.stderr)
        # Named folders that hold the same names collide the same way.
        result = run("-o", self.dir / "out2", self.dir / "a", self.dir / "b")
        self.assertEqual(result.returncode, 1)
        self.assertEqual((self.dir / "out2" / "x.xml").read_bytes(), b"<from-a/>")


if __name__ == "__main__":
    unittest.main()
