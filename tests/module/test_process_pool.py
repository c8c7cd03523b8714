"""The README's recipe for converting many files on every core, run as it stands: its results are
the serial ones, file by file."""
from __future__ import unicode_literals

import io
import os
import re
import shutil
import subprocess
import sys
import unittest

import Cindrel
from support import SOURCE, InTemporaryFolder, convert, example_files


def readme_recipe():
    """The Python block behind the README's process-pool marker."""
    with io.open(os.path.join(SOURCE, "README.md"), encoding="utf-8") as readme:
        text = readme.read()
    found = re.search(r"<!-- process-pool recipe:[^>]*-->\s*```python\n(.*?)```", text, re.S)
    return found.group(1) if found else None


@unittest.skipIf(sys.version_info[0] < 3, "the recipe is for Python 3 (concurrent.futures)")
class ProcessPoolRecipe(InTemporaryFolder):
    def test_the_recipe_gives_every_file_its_serial_text(self):
        recipe = readme_recipe()
        self.assertIsNotNone(recipe, "the README has no process-pool recipe")
        script = os.path.join(self.dir, "convert_all.py")
        with io.open(script, "w", encoding="utf-8") as out:
            out.write(recipe)
        output = os.path.join(self.dir, "out")
        os.mkdir(output)
        # Every example several times over, so that each worker takes more than one chunk.
        paths = [full for _, full in example_files()]
        self.assertEqual(len(set(map(os.path.basename, paths))), len(paths))
        copies = []
        for copy_round in range(4):
            folder = os.path.join(self.dir, "in%d" % copy_round)
            os.mkdir(folder)
            for path in paths:
                stem, extension = os.path.splitext(os.path.basename(path))
                copy = os.path.join(folder, "%s_%d%s" % (stem, copy_round, extension))
                shutil.copyfile(path, copy)
                copies.append(copy)
        environment = dict(os.environ)
        module_dir = os.path.dirname(os.path.abspath(Cindrel.__file__))
        environment["PYTHONPATH"] = os.pathsep.join(filter(None, [module_dir, environment.get("PYTHONPATH")]))
        subprocess.check_call([sys.executable, script, output] + copies, env=environment)
        self.assertEqual(sorted(os.listdir(output)), sorted(os.path.basename(c) + ".xml" for c in copies))
        for copy in copies:
            with io.open(os.path.join(output, os.path.basename(copy) + ".xml"), encoding="utf-8",
                         errors="surrogatepass", newline="") as result:
                self.assertEqual(result.read(), convert(copy), copy)


if __name__ == "__main__":
    unittest.main()
