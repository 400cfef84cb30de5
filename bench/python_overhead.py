#!/usr/bin/env python3
"""What the Python package adds to the C interface's batch: python_overhead.py LIBVEK-STEAM [ROWS]

Both on one thread, in turns, by the processor's time; the median of the ratios of neighbours. Also the least time of a scalar call.
"""
import os
import sys
import time
from ctypes import CDLL, Structure, byref, c_int, c_size_t, c_ssize_t, c_uint, c_void_p, sizeof
from statistics import median

os.environ["OMP_NUM_THREADS"] = "1"
import numpy as np

import vek


class Column(Structure):
    _fields_ = [("data", c_void_p), ("stride", c_ssize_t)]


class Options(Structure):
    _fields_ = [("chunk", c_size_t), ("cancel", c_void_p), ("progress", c_void_p), ("user", c_void_p),
                ("pool", c_void_p), ("threads", c_uint), ("reserved", c_uint)]


evaluate = CDLL(sys.argv[1]).vek_steam_evaluate
evaluate.argtypes = [c_int, c_size_t, Column, Column, c_size_t, c_void_p, c_void_p, c_void_p, c_void_p,
                     c_size_t, c_void_p]
ROWS = int(float(sys.argv[2])) if len(sys.argv) > 2 else 100_000
ROUNDS = 41
random = np.random.default_rng(1)
P, T = np.exp(random.uniform(-2, 5, ROWS)), random.uniform(15, 580, ROWS)
H, S = vek.properties("h s", p=P, t=T)
PT, PH, HS = 0, 4, 12  # as numbered in steam.h
REQUESTS = [("(p,t) → h", PT, P, T, [3], lambda: vek.h(p=P, t=T)),
            ("(p,h) → t, s, v", PH, P, H, [1, 4, 2], lambda: vek.properties("t s v", p=P, h=H)),
            ("(h,s) → p", HS, H, S, [0], lambda: vek.p(h=H, s=S))]


def batch(pair, a, b, wanted):
    """As a C program asks, with new memory for the results, as Python's have."""
    results = [np.empty(ROWS) for _ in wanted]
    columns = (Column * len(wanted))(*(Column(r.ctypes.data, 8) for r in results))
    options = Options(threads=1)
    code = evaluate(pair, ROWS, Column(a.ctypes.data, 8), Column(b.ctypes.data, 8), len(wanted),
                    (c_int * len(wanted))(*wanted), columns, None, byref(options), sizeof(options), None)
    assert code == 0
    return results


def timed(call):
    start = time.thread_time()
    call()
    return time.thread_time() - start


for name, pair, a, b, wanted, ours in REQUESTS:
    pairs = [(timed(lambda: batch(pair, a, b, wanted)), timed(ours)) for _ in range(ROUNDS)]
    print(f"{name}: batch {min(c for c, _ in pairs) / ROWS * 1e9:.1f} ns a row, "
          f"overhead {(median(python / c for c, python in pairs) - 1) * 100:+.1f} %")
calls = range(100_000)
scalar = min(timed(lambda: [vek.h(p=100.0, t=540.0) for _ in calls]) for _ in range(7)) / len(calls)
print(f"scalar call: {scalar * 1e6:.3f} µs")
