"""The scale-out package on a local cluster of worker processes: files converted whole by the
workers, the output tree, and the table of per-file results."""
import io
import logging
import os
import shutil
import sys
import tempfile
import unittest
from contextlib import redirect_stderr, redirect_stdout

try:
    from dask.distributed import Client, LocalCluster
except ImportError:
    print("SKIPPED: dask.distributed is missing for %s" % sys.executable)
    sys.exit(77)

import Cindrel
import cindrel_cluster
from cindrel_cluster.__main__ import main

EXAMPLES = os.path.join(os.environ["CINDREL_SOURCE_DIR"], "examples")


class ClusterTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.cluster = LocalCluster(n_workers=2, threads_per_worker=1, processes=True,
                                   dashboard_address=None)
        cls.client = Client(cls.cluster)

    @classmethod
    def tearDownClass(cls):
        # A worker slow to stop on a busy machine is no fault of the package's.
        logging.getLogger("distributed").setLevel(logging.CRITICAL)
        cls.client.close()
        cls.cluster.close()

    def setUp(self):
        self.dir = tempfile.mkdtemp(prefix="cindrel_cluster_test_")
        self.addCleanup(shutil.rmtree, self.dir)
        self.library = os.path.join(self.dir, "library")
        self.out = os.path.join(self.dir, "out")

    def put(self, name, data=None, example=None):
        path = os.path.join(self.library, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        if example:
            shutil.copyfile(os.path.join(EXAMPLES, example), path)
        else:
            with open(path, "wb") as stream:
                stream.write(data)
        return path

    def make_library(self):
        # A material file and a text options file of one name, text, a damaged file, a file of no
        # kind.
        wood = self.put("floors/wood.talmat", example="wood_floor.talmat")
        options = self.put("floors/wood.talopt", example="render_settings.talopt")
        old = self.put("old/v1.numat", example="car_paint_v1.numat")
        text = self.put("text/hand.TALMAT", example="hand_written.talmat")
        with open(os.path.join(EXAMPLES, "single_layer.talmat"), "rb") as stream:
            damaged = self.put("damaged.talmat", stream.read()[:40])
        self.put("notes.txt", b"not a file of a known kind")
        return {"converted": [wood, old], "text": [options, text], "failed": [damaged]}

    def test_tree_converts_on_the_workers_and_keeps_its_shape(self):
        expected = self.make_library()
        table = cindrel_cluster.convert_tree(self.library, self.out, self.client, batch_size=2)

        self.assertEqual(sorted(row.path for row in table),
                         sorted(sum(expected.values(), [])))
        for status, paths in expected.items():
            self.assertEqual(sorted(row.path for row in table.with_status(status)), sorted(paths))
        self.assertEqual(table.summary(),
                         "5 files: 2 converted, 2 passed through as text, 1 failed")
        self.assertEqual(table.with_status("failed")[0].detail, "damaged: does not load")

        # The XML is the module's own, under the output root at the file's place in the tree.
        for path in expected["converted"] + expected["text"]:
            command = cindrel_cluster.convert.command_for(path)
            relative = os.path.relpath(path, self.library)
            with open(os.path.join(self.out, relative + ".xml"), encoding="utf-8", newline="") as f:
                self.assertEqual(f.read(), command(path), relative)
        self.assertFalse(os.path.exists(os.path.join(self.out, "damaged.talmat.xml")))
        self.assertIn("floors/wood.talopt", table.format())

    def test_listed_paths_keep_their_order_and_report_each_failure(self):
        wood = self.put("a/wood.talmat", example="wood_floor.talmat")
        empty = self.put("b/empty.nuopt", b"")
        paths = [os.path.join(self.library, "missing.talmat"), wood,
                 self.put("a/readme.md", b"# text"), empty]
        seen = []
        table = cindrel_cluster.convert_paths(paths, self.out, self.client, batch_size=1,
                                              progress=lambda done, total: seen.append((done, total)))

        self.assertEqual([row.path for row in table], paths)
        self.assertEqual([(row.status, row.detail) for row in table],
                         [("failed", "does not open"), ("converted", ""),
                          ("failed", "not a material or options file"), ("failed", "empty file")])
        # Placed below the folder the paths share.
        self.assertEqual(table.rows[1].output, os.path.join(self.out, "a", "wood.talmat.xml"))
        self.assertEqual(sorted(seen)[-1], (4, 4))
        self.assertEqual(len(seen), 4)

    def test_command_against_a_running_scheduler(self):
        self.make_library()
        stdout, stderr = io.StringIO(), io.StringIO()
        with redirect_stdout(stdout), redirect_stderr(stderr):
            status = main(["--scheduler", self.cluster.scheduler_address, "-o", self.out,
                           self.library])
        self.assertEqual(status, 1)  # the damaged file
        self.assertIn("failed: %s: damaged: does not load" % os.path.join(self.library, "damaged.talmat"),
                      stdout.getvalue())
        self.assertIn("5 files: 2 converted, 2 passed through as text, 1 failed", stdout.getvalue())
        self.assertIn("5/5 files", stderr.getvalue())
        self.assertTrue(os.path.exists(os.path.join(self.out, "old", "v1.numat.xml")))

        with redirect_stderr(io.StringIO()), self.assertRaises(SystemExit) as refused:
            main(["-o", self.out, os.path.join(self.dir, "nowhere")])
        self.assertIn("nowhere: no such file or folder", str(refused.exception))


if __name__ == "__main__":
    unittest.main(verbosity=2)
