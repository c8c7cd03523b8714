"""The cindrel command on files that are not what their names say, and on outputs that fail."""
import os
import pathlib
import resource
import signal
import subprocess
import tempfile
import unittest

TOOL = os.environ.get("CINDREL_TOOL", "cindrel")
SOURCE = pathlib.Path(os.environ.get("CINDREL_SOURCE_DIR", pathlib.Path(__file__).resolve().parents[2]))
EXAMPLES = SOURCE / "examples"
GOLDEN = SOURCE / "tests" / "golden"


def run(*args, limit_file_size=None, timeout=20):
    def limits():
        if limit_file_size is not None:
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)  # a write past the limit fails instead
            resource.setrlimit(resource.RLIMIT_FSIZE, (limit_file_size, limit_file_size))
    return subprocess.run([TOOL, *map(os.fsencode, args)], capture_output=True, timeout=timeout, preexec_fn=limits)


def files_below(folder):
    return sorted(str(p.relative_to(folder)) for p in pathlib.Path(folder).rglob("*") if p.is_file())


class InTemporaryFolder(unittest.TestCase):
    def setUp(self):
        self.tmp = tempfile.TemporaryDirectory()
        self.addCleanup(self.tmp.cleanup)
        self.dir = pathlib.Path(self.tmp.name)


class HostileFiles(InTemporaryFolder):

    def test_things_that_are_not_regular_files_are_refused_at_once(self):
        fifo = self.dir / "pipe.talmat"
        os.mkfifo(fifo)
        device = self.dir / "zero.talmat"
        device.symlink_to("/dev/zero")
        for path, reason in [(fifo, b"not a regular file"), (device, b"not a regular file")]:
            with self.subTest(path=path):
                result = run(path, EXAMPLES / "wood_floor.talmat")  # bounded by run's timeout
                self.assertEqual(result.returncode, 1)
                self.assertIn(str(path).encode() + b": " + reason, result.stderr)
                self.assertEqual(result.stdout, b"==> " + bytes(EXAMPLES / "wood_floor.talmat") + b" <==\n" +
                                 (GOLDEN / "wood_floor.talmat.xml").read_bytes())
        out = self.dir / "out"
        result = run("-o", out, fifo)
        self.assertEqual(result.returncode, 1)
        self.assertEqual(files_below(out) if out.exists() else [], [])

    def test_names_that_are_not_utf8_open_as_their_bytes(self):
        name = self.dir / os.fsdecode(b"\xff\xfe caf\xe9.talmat")
        name.write_bytes((EXAMPLES / "wood_floor.talmat").read_bytes())
        result = run(name)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(result.stdout, (GOLDEN / "wood_floor.talmat.xml").read_bytes())
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
    def write(self, name, data):
        path = self.dir / name
        path.write_bytes(data)
        return path

    def test_a_binary_header_that_does_not_load_is_an_error_with_what_where_and_why(self):
        damaged = self.write("cut.talmat", (EXAMPLES / "car_paint_v2.talmat").read_bytes()[:250])
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
        self.assertNotIn(b"warning", run(EXAMPLES / "wood_floor.talmat").stderr)
        text = self.write("ls.talmat", b"\x7fELF\x02\x01\x01\x00rest")
        result = run(text)
        self.assertEqual((result.returncode, result.stdout), (0, b"\x7fELF\x02\x01\x01"))
        self.assertIn(b"ls.talmat: warning: the document holds 3 character(s) that XML 1.0 does not allow", result.stderr)


class WholeOrAbsentOutput(InTemporaryFolder):
    def test_a_write_that_fails_leaves_no_file_and_names_the_reason(self):
        source = self.dir / "in"
        source.mkdir()
        for name in ["wood_floor.talmat", "metals.numat", "hand_written.talmat"]:
            (source / name).write_bytes((EXAMPLES / name).read_bytes())
        out = self.dir / "out"
        result = run("-o", out, source, limit_file_size=20000)
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"File too large", result.stderr)
        for name in files_below(out):  # only whole documents, no temporary names
            self.assertFalse(name.startswith("."), name)
            golden = GOLDEN / (name.replace(".xml", "") + ".talmat.xml")
            self.assertEqual((out / name).read_bytes(), golden.read_bytes())
        self.assertIn("hand_written.xml", files_below(out))

    @unittest.skipUnless(os.geteuid() == 0, "mounting a small file system needs root")
    def test_a_full_disk_says_so(self):
        out = self.dir / "small"
        out.mkdir()
        if subprocess.run(["mount", "-t", "tmpfs", "-o", "size=32k", "tmpfs", out], capture_output=True).returncode:
            self.skipTest("cannot mount a file system here")
        self.addCleanup(subprocess.run, ["umount", out])
        result = run("-o", out, *(EXAMPLES / n for n in ["wood_floor.talmat", "metals.numat", "studio_glass.talmat"]))
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"No space left on device", result.stderr)
        for name in files_below(out):
            self.assertFalse(name.startswith("."), name)
            self.assertGreater((out / name).stat().st_size, 1000)

    def test_an_unreadable_input_leaves_no_output(self):
        out = self.dir / "out"
        result = run("-o", out, self.dir / "missing.talmat")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(files_below(out) if out.exists() else [], [])

    def test_inputs_that_share_an_output_name_never_overwrite_each_other(self):
        paths = []
        for folder in "abc":
            (self.dir / folder).mkdir()
            path = self.dir / folder / "x.talmat"
            path.write_bytes(b"<from-" + folder.encode() + b"/>")
            paths.append(path)
        (self.dir / "a" / "x.talopt").write_bytes(b"<options/>")
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
