"""How many threads a large array is spread over.

The cores that the process may run on, unless somebody has divided them already: OMP_NUM_THREADS, which
Dask's and Spark's workers are started with, is followed; processes that multiprocessing or a fork has
made work alone, and so does every thread but a process' first, such as those of Dask's schedulers.
"""
import os
import sys

from . import _core


def _of_this_process():
    asked = os.environ.get("OMP_NUM_THREADS", "").partition(",")[0].strip()
    if asked.isdigit():
        return max(1, int(asked))
    processes = sys.modules.get("multiprocessing.process")
    if processes and processes.parent_process():
        return 1
    return len(os.sched_getaffinity(0))


_core.set_threads(_of_this_process())
os.register_at_fork(after_in_child=lambda: _core.set_threads(1))
