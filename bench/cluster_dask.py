"""cluster_dask.py STATES: properties of many states on two Dask workers, one of which is killed on the way."""
import os
import resource
import signal

import numpy as np
from cluster_states import WANTED, checksum, given, main

ROWS = 1_000_000  # of a block


def _checksum(ids, t, s, v):
    """Of a block, with the largest memory its worker has had, KB."""
    peak = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
    return np.array([(checksum(ids, (t, s, v)), peak)], dtype=object)


def sums(states):
    """Lazily, one value for each block."""
    import dask.array as da
    import vek
    ids = da.arange(states, chunks=min(ROWS, max(1, states // 20)), dtype=np.uint64)
    p = ids.map_blocks(lambda block: given(block)[0], dtype=float)
    h = ids.map_blocks(lambda block: given(block)[1], dtype=float)
    properties = vek.properties(WANTED, p=p, h=h)
    return da.map_blocks(_checksum, ids, *properties, dtype=object, chunks=(1,),
                         meta=np.empty(0, object)).to_delayed().ravel()


def run(states):
    """The checksum, the largest memory of a worker in MB, and how many times a worker was killed."""
    from dask.distributed import Client, LocalCluster, as_completed
    total, peak, killed = 0, 0, 0
    with LocalCluster(n_workers=2, threads_per_worker=1, memory_limit="1GB",
                      dashboard_address=None) as cluster, Client(cluster) as client:
        blocks = client.compute(list(sums(states)))
        for done, future in enumerate(as_completed(blocks), 1):
            (part, memory), = future.result()
            future.release()
            total, peak = total + part, max(peak, memory / 1024)
            if not killed and done > len(blocks) // 3:
                os.kill(next(iter(client.run(os.getpid).values())), signal.SIGKILL)
                killed += 1
    return total % 2**64, peak, killed


if __name__ == "__main__":
    main(run)
