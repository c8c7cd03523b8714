"""The module and a host's threads: a conversion lets the interpreter's other threads go on."""
from __future__ import unicode_literals

import threading
import time
import unittest

import Cindrel
from support import InTemporaryFolder, case, convert, example_files


class ThreadsTest(InTemporaryFolder):
    def test_other_threads_go_on_while_a_large_file_converts(self):
        # Text that is not UTF-8 as a whole (the last byte), so that every byte is read, checked and
        # converted; the text the interpreter finally takes in is plain ASCII, quick to take.
        line = b"<parameter name=\"diffuse\" type=\"float\"><value>0.5</value></parameter>\n"
        path = self.path("large.talmat", line * (32 * 1024 * 1024 // len(line)) + b"\xe9")
        ticks = []
        stop = threading.Event()

        def tick():
            while not stop.is_set():
                ticks.append(time.time())
                time.sleep(0.001)

        ticker = threading.Thread(target=tick)
        ticker.start()
        try:
            while not ticks:
                time.sleep(0.001)
            start = time.time()
            text = Cindrel.getTalmatXml(path)
            end = time.time()
        finally:
            stop.set()
            ticker.join()
        self.assertTrue(text.endswith("\u00e9"))
        # While the call ran, the other thread went on ticking: no gap near the call's whole length.
        # Only the making of the interpreter's text holds the lock, which where memory is slow to
        # touch for the first time is a good part of the call.
        during = [start] + [t for t in ticks if start < t < end] + [end]
        longest = max(b - a for a, b in zip(during, during[1:]))
        self.assertGreater(len(during), 2)
        self.assertLess(longest, 0.8 * (end - start), "the conversion held every other thread")

    def test_conversions_on_several_threads_give_each_file_its_own_text(self):
        files = [full for _, full in example_files()]
        alone = dict((full, convert(full)) for full in files)
        results = dict((full, []) for full in files)

        def run(chunk):
            for _ in range(3):
                for full in chunk:
                    results[full].append(convert(full))

        threads = [threading.Thread(target=run, args=(files[i::4],)) for i in range(4)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        for full in files:
            with case(self, file=full):
                self.assertEqual(results[full], [alone[full]] * 3)


if __name__ == "__main__":
    unittest.main()
