"""The Python commands give every example file exactly its golden document."""
from __future__ import unicode_literals

import os
import unittest

import Cindrel
from support import GOLDEN, InTemporaryFolder, case, convert, example_files, read_bytes


class ExampleLibrary(InTemporaryFolder):
    def test_every_example_gives_its_golden_document(self):
        examples = example_files()
        self.assertTrue(examples, "the example library is empty")
        for name, path in examples:
            with case(self, example=name):
                golden = read_bytes(os.path.join(GOLDEN, name + ".xml")).decode("utf-8")
                self.assertEqual(convert(path), golden)

    def test_an_options_record_refused_after_its_tag_gives_the_text_up_to_the_first_zero_byte(self):
        damaged = self.path("damaged.talopt", b"\x01\x00\x17\x00" + b"\x00\x00\x06\x00")
        self.assertEqual(Cindrel.getTaloptXml(damaged), "\x01")


if __name__ == "__main__":
    unittest.main()
