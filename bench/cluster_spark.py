"""cluster_spark.py STATES: properties of many states on two Spark executors, one of which is killed."""
import os
import signal
import sys
import threading
import time
from pathlib import Path

import psutil
import pyarrow as pa
from cluster_states import WANTED, checksum, given, main


def _given(batches):
    for batch in batches:
        p, h = given(batch["id"].to_numpy())
        yield pa.record_batch({"id": batch["id"], "p": p, "h": h})


def _checksums(batches):
    """As texts, since Spark has no unsigned integers."""
    for batch in batches:
        ids, *properties = (batch[name].to_numpy() for name in ("id", *WANTED.split()))
        yield pa.record_batch({"sum": [str(checksum(ids, properties))],
                               "worker": pa.array([os.getpid()], pa.int64()),
                               "peak": pa.array([psutil.Process().memory_info().rss], pa.int64())})


def _is_executor(process):
    try:
        return "CoarseGrainedExecutorBackend" in " ".join(process.cmdline())
    except psutil.Error:  # it has ended meanwhile
        return False


def _executors():
    return [*filter(_is_executor, psutil.Process().children(recursive=True))]


def _kill_one(after, killed):
    time.sleep(after)
    while not (executors := _executors()):  # on a busy machine they come late
        time.sleep(0.2)
    executors[0].send_signal(signal.SIGKILL)
    killed.append(executors[0].pid)


def run(states, kill_after=15):
    """The checksum, the largest memory of a worker's Python in MB, and how many were killed."""
    from pyspark.sql import SparkSession

    import vek.spark
    os.environ["PYSPARK_PYTHON"] = sys.executable  # the workers' too
    spark = (SparkSession.builder.master("local-cluster[2,1,1024]")
             .config("spark.ui.enabled", False).config("spark.driver.host", "127.0.0.1")
             .config("spark.sql.execution.arrow.maxRecordsPerBatch", 100_000).getOrCreate())
    spark.sparkContext.addPyFile(str(Path(__file__).with_name("cluster_states.py")))
    killed = []
    killer = threading.Thread(target=_kill_one, args=(kill_after, killed), daemon=True)
    killer.start()
    rows = spark.range(0, states, 1, max(8, states // 1_000_000))
    table = vek.spark.add(rows.mapInArrow(_given, "id long, p double, h double"), WANTED, p="p", h="h")
    parts = table.mapInArrow(_checksums, "sum string, worker long, peak long").collect()
    spark.stop()
    total = sum(int(part["sum"]) for part in parts) % 2**64
    return total, max(part["peak"] for part in parts) / 2**20, len(killed)


if __name__ == "__main__":
    main(run)
