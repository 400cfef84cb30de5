"""Work that is divided and interrupted: the same bits, and nothing twice."""
import importlib.util
import os
import signal
import subprocess
import sys
import time
from pathlib import Path
from types import SimpleNamespace

import numpy as np
import pyarrow as pa
import pyarrow.parquet as parquet
import pytest

import vek
import vek.spark

ROOT = Path(__file__).parents[2]
sys.path.insert(0, str(ROOT / "bench"))
JOB = ROOT / "examples" / "archive_job.py"


def loaded(path):
    spec = importlib.util.spec_from_file_location(path.stem, path)
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


@pytest.fixture
def archive(tmp_path):
    numbers = np.random.default_rng(7)
    for year in range(2):
        for month in range(6):
            folder = tmp_path / "archive" / f"year={year}"
            folder.mkdir(parents=True, exist_ok=True)
            columns = {name: numbers.uniform(low, high, 60_000) for name, low, high in (
                ("p1", 30, 50), ("t1", 500, 550), ("p2", 5, 12), ("t2", 250, 350))}
            columns["p1"][17] = np.nan
            parquet.write_table(pa.table(columns), folder / f"{month}.parquet")
    return tmp_path


def contents(folder):
    return {str(path.relative_to(folder)): path.read_bytes() for path in sorted(folder.rglob("*.*"))}


def test_a_stopped_job_goes_on_where_it_was(archive):
    def arguments(results):
        return [sys.executable, JOB, archive / "archive", archive / results]

    subprocess.run(arguments("whole"), check=True, stdout=subprocess.PIPE)
    job = subprocess.Popen(arguments("stopped"), stdout=subprocess.PIPE)
    while job.poll() is None and len(list((archive / "stopped").rglob("*.parquet"))) < 3:
        time.sleep(0.002)
    os.kill(job.pid, signal.SIGKILL)
    job.communicate()
    before = {path: path.stat().st_mtime_ns for path in (archive / "stopped").rglob("*.parquet")}
    assert 3 <= len(before) < 12
    again = subprocess.run(arguments("stopped"), check=True, text=True, stdout=subprocess.PIPE).stdout
    assert f"{12 - len(before)} files to do" in again
    assert all(path.stat().st_mtime_ns == written for path, written in before.items())
    assert contents(archive / "stopped") == contents(archive / "whole")
    rows = parquet.read_table(archive / "whole" / "year=1" / "5.parquet").to_pydict()
    p1, t1, p2, t2, eta = (rows[name][99] for name in ("p1", "t1", "p2", "t2", "eta"))
    drop = vek.h(p=p1, t=t1) - vek.h(p=p2, t=t2)
    assert eta == drop / (vek.h(p=p1, t=t1) - vek.h(p=p2, s=vek.s(p=p1, t=t1)))
    assert np.isnan(rows["eta"][17]) and not np.isnan(rows["h2"][17])


def test_the_job_on_a_cluster_gives_the_same_files(archive):
    distributed = pytest.importorskip("dask.distributed")
    job = loaded(JOB)
    folders = archive / "archive", archive / "results"
    names = job.missing(*folders)
    from functools import partial
    with distributed.LocalCluster(2, threads_per_worker=1, processes=False,
                                  dashboard_address=None) as cluster:
        counts = list(job.mapped(cluster.scheduler_address, partial(job.map_file, *folders), names))
    assert counts == [60_000] * 12 and job.missing(*folders) == []
    for name in names[::5]:
        job.map_file(folders[0], archive / "alone", name)
        assert (archive / "alone" / name).read_bytes() == (folders[1] / name).read_bytes()


def test_the_checksum_of_states_tells_order_and_bits():
    states = loaded(ROOT / "bench" / "cluster_states.py")
    ids = np.arange(1000, dtype=np.uint64)
    t, s, v = (np.array(x) for x in vek.properties(states.WANTED, **dict(zip("ph", states.given(ids)))))
    whole = states.checksum(ids, (t, s, v)) % 2**64
    assert whole == states.checksum_of_rows(0, 1000, rows=300)
    shuffled = np.random.default_rng(1).permutation(1000)
    assert whole == states.checksum(ids[shuffled], (t[shuffled], s[shuffled], v[shuffled])) % 2**64
    off = t.copy()
    off[np.flatnonzero(t > 0)[5]] *= 1 + 2**-52
    for wrong in ((s, t, v), (off, s, v), (t[::-1], s, v)):
        assert whole != states.checksum(ids, wrong) % 2**64


def test_what_spark_s_workers_do():
    table = SimpleNamespace(columns=["p", "t"])
    with pytest.raises(ValueError, match="t='T': no such column; there are p, t"):
        vek.spark.add(table, "h", p="p", t="T")
    with pytest.raises(TypeError, match="names of columns"):
        vek.spark.add(table, "h", p="p", t=object())
    batch = pa.record_batch({"p": [10.0, 2000], "t": [100.0, 100]})
    added, = vek.spark._batches("h s", {"p": "p", "t": "t", "si": False, "status": True}, [batch])
    assert added.schema.names == ["p", "t", "h", "s", "status"]
    assert added["status"].type == pa.int16() and added["status"].to_pylist() == [0, 2]
    h = vek.spark._value("h", ("p", "t"), True, pa.array([1e6]), pa.array([373.15]))
    assert isinstance(h, pa.Array) and h[0].as_py() == vek.si.h(p=1e6, t=373.15)
