#!/usr/bin/env python3
"""The Python package beside other steam libraries for Python, in one run: python_peers.py [ROWS]

Wants seuif97, CoolProp, iapws and pyXSteam beside vek. They are of later formulations, so only times are
compared. States are of water, wet steam and steam that all of them have. What takes an element at a time
is timed on fewer rows, as printed. The time is the processor's, on one thread, which other processes
disturb less than the clock's; vek spreads large arrays over all cores, which the last column leaves out.
"""
import os
import sys
import time
import warnings

os.environ["OMP_NUM_THREADS"] = "1"
import CoolProp.CoolProp as coolprop
import numpy as np
import seuif97
from iapws import IAPWS97
from pyXSteam.XSteam import XSteam

import vek

ROWS = int(float(sys.argv[1])) if len(sys.argv) > 1 else 1_000_000
REPEATS = 5
random = np.random.default_rng(1)
P = np.exp(random.uniform(np.log(0.1), np.log(150), ROWS))
T = random.uniform(15, 580, ROWS)
H = vek.h(p=P, t=T)
S = vek.s(p=P, t=T)
steam = XSteam(XSteam.UNIT_SYSTEM_MKS)


def each(function):
    """An element at a time, of bar, °C and kJ."""
    return lambda a, b: np.fromiter(map(function, a.tolist(), b.tolist()), float, len(a))


def coolprop_of(outputs, first, second, scale):
    def run(a, b):
        return coolprop.PropsSI(outputs, first, a * scale[0], second, b * scale[1] + scale[2],
                                "IF97::Water")
    return run


def three(*functions):
    return lambda a, b: [each(f)(a, b) for f in functions]


pt_scale = 0.1  # MPa per bar


def seuif(*functions):
    def run(a, b):
        a = a * pt_scale
        return [each(function)(a, b) for function in functions]
    return run



def iapws_ph(p, h):
    state = IAPWS97(P=p * pt_scale, h=h)
    return state.T, state.s, state.v


REQUESTS = [
    ("(p,t) → h", (P, T), lambda a, b: vek.h(p=a, t=b), {
        "seuif97": (100_000, seuif(seuif97.pt2h)),
        "CoolProp IF97": (ROWS, coolprop_of("Hmass", "P", "T", (1e5, 1, 273.15))),
        "pyXSteam": (2_000, each(steam.h_pt)),
        "iapws": (300, each(lambda p, t: IAPWS97(P=p * pt_scale, T=t + 273.15).h))}),
    ("(p,h) → t, s, v", (P, H), lambda a, b: vek.properties("t s v", p=a, h=b), {
        "seuif97": (100_000, seuif(seuif97.ph2t, seuif97.ph2s, seuif97.ph2v)),
        "CoolProp IF97": (100_000, coolprop_of(["T", "Smass", "Dmass"], "P", "Hmass", (1e5, 1e3, 0))),
        "pyXSteam": (1_000, three(steam.t_ph, steam.s_ph, steam.v_ph)),
        "iapws": (300, lambda a, b: [iapws_ph(p, h) for p, h in zip(a.tolist(), b.tolist())])}),
    ("(h,s) → p", (H, S), lambda a, b: vek.p(h=a, s=b), {
        "seuif97": (100_000, each(seuif97.hs2p)),
        "CoolProp IF97": (100_000, coolprop_of("P", "Hmass", "Smass", (1e3, 1e3, 0))),
        "pyXSteam": (1_000, each(steam.p_hs)),
        "iapws": (100, each(lambda h, s: IAPWS97(h=h, s=s).P))}),
]
ONE = [("vek", lambda: vek.h(p=100.0, t=540.0)),
       ("seuif97", lambda: seuif97.pt2h(10.0, 540.0)),
       ("CoolProp IF97", lambda: coolprop.PropsSI("Hmass", "P", 1e7, "T", 813.15, "IF97::Water")),
       ("pyXSteam", lambda: steam.h_pt(100.0, 540.0)),
       ("iapws", lambda: IAPWS97(P=10.0, T=813.15).h)]


def best(call, repeats=REPEATS):
    times = []
    for _ in range(repeats):
        start = time.thread_time()
        call()
        times.append(time.thread_time() - start)
    return min(times)


def of_arrays():
    print("| request | library | rows | ns a row | vek's speed over it |\n|---|---|---|---|---|")
    for name, (a, b), ours, peers in REQUESTS:
        mine = best(lambda: ours(a, b)) / ROWS
        print(f"| {name} | vek | {ROWS} | {mine * 1e9:.0f} | |")
        for peer, (rows, run) in peers.items():
            rows = min(rows, ROWS)
            theirs = best(lambda: run(a[:rows], b[:rows]), 3) / rows
            print(f"| | {peer} | {rows} | {theirs * 1e9:.0f} | {theirs / mine:.2g} |")


def of_one():
    print("\n| one scalar call, (p,t) → h | µs |\n|---|---|")
    for name, call in ONE:
        calls = 100 if name == "iapws" else 2000
        took = best(lambda: [call() for _ in range(calls)]) / calls
        print(f"| {name} | {took * 1e6:.2f} |")


with warnings.catch_warnings():
    warnings.simplefilter("ignore")
    of_arrays()
    of_one()
