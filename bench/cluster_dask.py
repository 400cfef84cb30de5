"""cluster_dask.py STATES: properties of many states on two Dask workers, one of which is killed on the way."""
import os
import resource
import signal

import dask.dataframe as dd
import numpy as np
import pandas as pd
import vek.dask
from cluster_states import WANTED, checksum, given, main

ROWS = 1_000_000  # of a part of the table


def _states(first, last):
    ids = np.arange(first, last, dtype=np.uint64)
    p, h = given(ids)
    return pd.DataFrame({"id": ids, "p": p, "h": h})


def _checksum(part):
    """Of a part, with the largest memory its worker has had, KB."""
    peak = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
    total = checksum(part["id"].to_numpy(), [part[name] for name in WANTED.split()])
    return pd.DataFrame({"sum": [total], "peak": peak}, dtype=object)


def sums(states):
    """Lazily, one row for each part of the table."""
    firsts = range(0, states, min(ROWS, max(1, states // 20)))
    table = dd.from_map(_states, firsts, [*firsts[1:], states], meta=_states(0, 1))
    properties = vek.dask.add(table, WANTED, p="p", h="h")
    return properties.map_partitions(_checksum, meta=_checksum(properties._meta)).to_delayed()


def run(states):
    """The checksum, the largest memory of a worker in MB, and how many times a worker was killed."""
    from dask.distributed import Client, LocalCluster, as_completed
    total, peak, killed = 0, 0, 0
    with LocalCluster(n_workers=2, threads_per_worker=1, memory_limit="1GB",
                      dashboard_address=None) as cluster, Client(cluster) as client:
        parts = client.compute(list(sums(states)))
        for done, future in enumerate(as_completed(parts), 1):
            (part, memory), = future.result().to_numpy()
            future.release()
            total, peak = total + part, max(peak, memory / 1024)
            if not killed and done > len(parts) // 3:
                os.kill(next(iter(client.run(os.getpid).values())), signal.SIGKILL)
                killed += 1
    return total % 2**64, peak, killed


if __name__ == "__main__":
    main(run)
