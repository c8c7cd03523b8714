"""Converting a library of material and options files on a Dask cluster.

Each worker converts whole files with the module Cindrel and writes their XML under one output
root; the per-file results come back as a table:

    from dask.distributed import Client
    import cindrel_cluster
    with Client("tcp://scheduler:8786") as client:
        table = cindrel_cluster.convert_tree("/library", "/converted", client)
    print(table.summary())

The workers need the module on their interpreter's path, and the files and the output root at the
same paths as the caller sees them (a shared file system).
"""
import os

from .convert import (CONVERTED, FAILED, KNOWN_EXTENSIONS, TEXT, FileResult,
                      convert_batch, convert_file, output_path)

__all__ = ["convert_paths", "convert_tree", "find_files", "ResultTable", "FileResult",
           "convert_file", "output_path", "CONVERTED", "TEXT", "FAILED"]


def find_files(root):
    """Every file of a known kind below `root`, in a stable order."""
    found = []
    for folder, subfolders, names in os.walk(os.fspath(root)):
        subfolders.sort()
        found.extend(os.path.join(folder, name) for name in sorted(names)
                     if os.path.splitext(name)[1].lower() in KNOWN_EXTENSIONS)
    return found


class ResultTable(object):
    """The per-file results in the order of the paths given, with their counts by status."""

    columns = FileResult._fields

    def __init__(self, rows):
        self.rows = list(rows)

    def __len__(self):
        return len(self.rows)

    def __iter__(self):
        return iter(self.rows)

    def with_status(self, status):
        return [row for row in self.rows if row.status == status]

    def counts(self):
        return {status: len(self.with_status(status)) for status in (CONVERTED, TEXT, FAILED)}

    def summary(self):
        counts = self.counts()
        return "%d files: %d converted, %d passed through as text, %d failed" % (
            len(self.rows), counts[CONVERTED], counts[TEXT], counts[FAILED])

    def format(self):
        """The table as aligned text, one file a line."""
        header = ("status", "path", "output or reason")
        lines = [(row.status, row.path, row.output or row.detail) for row in self.rows]
        widths = [max(len(line[i]) for line in [header] + lines) for i in range(2)]
        return "\n".join("%-*s  %-*s  %s" % (widths[0], a, widths[1], b, c)
                         for a, b, c in [header] + lines)

    def to_dataframe(self):
        """The table as a pandas DataFrame (pandas is needed for this alone)."""
        import pandas
        return pandas.DataFrame([tuple(row) for row in self.rows], columns=list(self.columns))


def _common_base(paths):
    folders = [os.path.dirname(os.path.abspath(path)) for path in paths]
    return os.path.commonpath(folders) if folders else os.curdir


def convert_paths(paths, output_root, client, base=None, batch_size=32, progress=None):
    """Converts the files on the cluster of `client` (a dask.distributed Client).

    The XML of each file goes to its place below `base` (by default the folder the paths share),
    under `output_root`, as NAME.EXT.xml. Files go to the workers in batches of `batch_size`;
    `progress(done, total)` is called as batches come back. Returns a ResultTable.
    """
    from dask.distributed import as_completed

    paths = [os.fspath(path) for path in paths]
    base = os.path.abspath(os.fspath(base)) if base is not None else _common_base(paths)
    output_root = os.path.abspath(os.fspath(output_root))
    batches = [paths[i:i + batch_size] for i in range(0, len(paths), max(1, batch_size))]
    futures = client.map(convert_batch, batches, base=base, output_root=output_root, pure=False)
    order = {future.key: index for index, future in enumerate(futures)}
    results = [None] * len(batches)
    done = 0
    for future in as_completed(futures):
        index = order[future.key]
        try:
            results[index] = future.result()
        except Exception as error:  # a worker lost, or the module missing on it
            results[index] = [FileResult(path, FAILED, None, "task failed: %s" % error)
                              for path in batches[index]]
        done += len(batches[index])
        if progress is not None:
            progress(done, len(paths))
    return ResultTable(row for batch in results for row in batch)


def convert_tree(root, output_root, client, **options):
    """Converts every file of a known kind below `root`, keeping the tree under `output_root`."""
    return convert_paths(find_files(root), output_root, client, base=root, **options)
