"""python3 -m cindrel_cluster: convert files and folders on a Dask cluster."""
import argparse
import logging
import os
import sys

from . import FAILED, convert_paths, find_files


def parse_arguments(argv):
    parser = argparse.ArgumentParser(
        prog="python3 -m cindrel_cluster",
        description="Converts material and options files to XML on a Dask cluster. Folders are "
                    "searched for files of a known kind; the XML keeps the files' tree under the "
                    "output root.")
    parser.add_argument("inputs", nargs="+", metavar="PATH", help="a file or a folder")
    parser.add_argument("-o", "--output", required=True, metavar="DIR",
                        help="the output root (on a shared file system for a real cluster)")
    where = parser.add_mutually_exclusive_group()
    where.add_argument("--scheduler", metavar="ADDRESS",
                       help="a running scheduler, e.g. tcp://host:8786")
    where.add_argument("--workers", type=int, default=2, metavar="N",
                       help="without --scheduler: a local cluster of N processes (default 2)")
    parser.add_argument("--batch-size", type=int, default=32, metavar="N",
                        help="files per task (default 32)")
    parser.add_argument("--table", action="store_true", help="print every file's result")
    return parser.parse_args(argv)


def gather_inputs(inputs):
    """The files to convert and the folder they are placed below; a missing path is an error."""
    paths, roots = [], []
    for given in inputs:
        if os.path.isdir(given):
            paths.extend(find_files(given))
            roots.append(os.path.abspath(given))
        elif os.path.exists(given):
            paths.append(given)
            roots.append(os.path.dirname(os.path.abspath(given)))
        else:
            raise SystemExit("cindrel_cluster: %s: no such file or folder" % given)
    base = os.path.commonpath(roots) if roots else os.curdir
    return paths, base


def main(argv=None):
    arguments = parse_arguments(argv)
    paths, base = gather_inputs(arguments.inputs)
    if not paths:
        print("cindrel_cluster: no material or options file in the given paths", file=sys.stderr)
        return 1
    try:
        from dask.distributed import Client, LocalCluster
    except ImportError:
        print("cindrel_cluster: dask.distributed is missing (Debian: python3-dask python3-distributed)",
              file=sys.stderr)
        return 2

    def progress(done, total):
        print("\r%d/%d files" % (done, total), end="" if done < total else "\n",
              file=sys.stderr, flush=True)

    cluster = None
    if arguments.scheduler:
        client = Client(arguments.scheduler)
    else:
        cluster = LocalCluster(n_workers=arguments.workers, threads_per_worker=1, processes=True,
                               dashboard_address=None, silence_logs=logging.ERROR)
        client = Client(cluster)
    try:
        print("converting %d files on %s" % (len(paths), client.scheduler.address), file=sys.stderr)
        table = convert_paths(paths, arguments.output, client, base=base,
                              batch_size=arguments.batch_size, progress=progress)
    finally:
        # Workers that are slow to stop say so at length; the results are in by then.
        logging.getLogger("distributed").setLevel(logging.CRITICAL)
        client.close()
        if cluster is not None:
            cluster.close()
    if arguments.table:
        print(table.format())
    else:
        for row in table.with_status(FAILED):
            print("failed: %s: %s" % (row.path, row.detail))
    print(table.summary())
    return 1 if table.with_status(FAILED) else 0


if __name__ == "__main__":
    sys.exit(main())
