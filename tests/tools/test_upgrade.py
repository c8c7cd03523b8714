"""cindrel upgrade: files of any version stored in the newest, kept only when they convert the same."""
import unittest

from command_fixture import EXAMPLES, InTemporaryFolder, golden, run

NEWEST_MATERIAL_FILE = (0x30000).to_bytes(4, "little")


class Upgrade(InTemporaryFolder):
    def test_every_example_upgrades_and_converts_to_its_golden_document(self):
        out = self.dir / "out"
        result = run("upgrade", "-o", out, EXAMPLES)
        stderr = result.stderr.decode()
        # Text files have nothing to upgrade; a reference keeps its copy of the target only where the
        # scene knows the target, so its newest version would lose it, and the check refuses it.
        refused = {"hand_written.talmat": "nothing to upgrade", "render_settings.talopt": "nothing to upgrade",
                   "references.talmat": "converts to other XML"}
        self.assertEqual(result.returncode, 1)
        for name, reason in refused.items():
            self.assertIn(f"{name}: ", stderr)
            self.assertIn(reason, stderr.split(f"{name}: ")[1].splitlines()[0])
        upgraded = sorted(p.name for p in out.iterdir())
        self.assertEqual(upgraded, sorted(p.name for p in EXAMPLES.iterdir() if p.name not in refused))
        self.assertEqual(result.stdout.decode().count(", same XML\n"), len(upgraded))
        for name in upgraded:
            with self.subTest(name=name):
                converted = run(out / name)
                self.assertEqual(converted.returncode, 0, converted.stderr)
                self.assertEqual(converted.stdout, golden(name))

    def test_old_versions_become_the_newest(self):
        old = self.copy("car_paint_v1.numat")
        self.assertNotEqual(old.read_bytes()[:4], NEWEST_MATERIAL_FILE)
        result = run("upgrade", old, self.dir / "new.numat")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(result.stdout, f"upgraded {old} -> {self.dir / 'new.numat'}, same XML\n".encode())
        self.assertEqual((self.dir / "new.numat").read_bytes()[:4], NEWEST_MATERIAL_FILE)
        # Options files of two old record versions come out alike in their version.
        headers = set()
        for name in ["options_v0.talopt", "options_v4.talopt"]:
            result = run("upgrade", EXAMPLES / name, self.dir / name)
            self.assertEqual(result.returncode, 0, result.stderr)
            headers.add((self.dir / name).read_bytes()[:8])
        self.assertEqual(len(headers), 1)
        self.assertNotIn((EXAMPLES / "options_v0.talopt").read_bytes()[:8], headers)

    def test_an_input_is_written_over_only_when_asked(self):
        old = self.copy("car_paint_v2.talmat")
        before = old.read_bytes()
        for args in [(old, old), (old, self.dir / "." / old.name), ("-o", self.dir, old)]:
            with self.subTest(args=args):
                result = run("upgrade", *args)
                self.assertEqual(result.returncode, 1)
                self.assertIn(b"is the file itself (give --in-place to replace it)", result.stderr)
                self.assertEqual(old.read_bytes(), before)
                self.assertEqual(sorted(p.name for p in self.dir.iterdir()), [old.name])
        result = run("upgrade", "--in-place", old)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(old.read_bytes()[:4], NEWEST_MATERIAL_FILE)
        self.assertEqual(run(old).stdout, golden("car_paint_v2.talmat"))
        self.assertEqual(sorted(p.name for p in self.dir.iterdir()), [old.name])

    def test_damaged_text_and_unreadable_inputs_fail_alone_and_leave_nothing(self):
        cut = self.cut()
        good = self.copy("wood_floor.talmat")
        out = self.dir / "out"
        result = run("upgrade", "-j2", "-o", out, cut, EXAMPLES / "hand_written.talmat", self.dir / "gone.talopt", good)
        self.assertEqual(result.returncode, 1)
        lines = result.stderr.decode().splitlines()
        self.assertRegex(lines[0], f"^cindrel: {cut}: damaged binary material file: in material 1 .* at offset 255: "
                                   ".*; not upgraded$")
        self.assertEqual(lines[1:], [
            f"cindrel: {EXAMPLES / 'hand_written.talmat'}: not a binary material file; nothing to upgrade",
            f"cindrel: {self.dir / 'gone.talopt'}: No such file or directory"])
        self.assertEqual(sorted(p.name for p in out.iterdir()), ["wood_floor.talmat"])


if __name__ == "__main__":
    unittest.main()
