#!/usr/bin/env python3
"""Adds enthalpies and turbine section efficiencies to an archive of measurements.

archive_job.py ARCHIVE RESULTS [--dask ADDRESS]: reads every Parquet file below ARCHIVE, which has the
columns p1, t1 before a turbine section and p2, t2 behind it (bar, °C), and writes it below RESULTS with
h1, h2 and the section's isentropic efficiency eta. A file appears when it is complete; those that are
there are not computed again, so a job that was stopped goes on where it was. Without --dask, this process
does the work; with it, the workers of a cluster, which need this file's folders, vek and pyarrow.
"""
import argparse
import os
from functools import partial
from pathlib import Path

ROWS = 100_000  # in memory at a time


def with_efficiency(batch):
    """A record batch with h1, h2 and eta."""
    import numpy as np
    import vek
    p1, t1, p2, t2 = (batch[name].to_numpy(zero_copy_only=False) for name in ("p1", "t1", "p2", "t2"))
    h1, s1 = vek.properties("h s", p=p1, t=t1)
    h2 = vek.h(p=p2, t=t2)
    with np.errstate(divide="ignore", invalid="ignore"):
        eta = (h1 - h2) / (h1 - vek.h(p=p2, s=s1))
    for name, values in (("h1", h1), ("h2", h2), ("eta", eta)):
        batch = batch.append_column(name, values)
    return batch


def map_file(archive, results, name):
    """One file of the archive to the results; returns its count of rows."""
    import pyarrow.parquet as parquet
    done, part = results / name, results / f"{name}.{os.getpid()}.part"
    done.parent.mkdir(parents=True, exist_ok=True)
    rows, writer = 0, None
    with parquet.ParquetFile(archive / name) as file:
        for batch in file.iter_batches(ROWS):
            batch = with_efficiency(batch)
            # Measured and computed values hardly repeat.
            writer = writer or parquet.ParquetWriter(part, batch.schema, use_dictionary=False)
            writer.write_batch(batch)
            rows += batch.num_rows
    if writer:
        writer.close()
        part.replace(done)
    return rows


def missing(archive, results):
    """Files without a result, after the remains of jobs that were stopped are gone."""
    for part in results.rglob("*.part"):
        part.unlink()
    names = sorted(path.relative_to(archive) for path in archive.rglob("*.parquet"))
    return [name for name in names if not (results / name).exists()]


def mapped(address, function, names):
    """The results one after the other, of this process or of a cluster's workers."""
    if not address:
        yield from map(function, names)
        return
    from dask.distributed import Client, as_completed
    with Client(address) as client:
        for future in as_completed(client.map(function, names, pure=False)):
            yield future.result()


def main():
    parser = argparse.ArgumentParser(description=__doc__.partition("\n")[0])
    parser.add_argument("archive", type=Path)
    parser.add_argument("results", type=Path)
    parser.add_argument("--dask", metavar="ADDRESS", help="of a cluster's scheduler, HOST:8786")
    options = parser.parse_args()
    names = missing(options.archive, options.results)
    print(f"{len(names)} files to do")
    rows = 0
    for count in mapped(options.dask, partial(map_file, options.archive, options.results), names):
        rows += count
    print(f"{rows} rows mapped")


if __name__ == "__main__":
    main()
