#!/usr/bin/env python3
"""The cycle of rankine.c through ctypes alone: rankine.py LIBRARY"""
import ctypes
import sys

module = ctypes.CDLL(sys.argv[1])


def state(finder, x, y, items):
    result = (ctypes.c_double * len(items.split(",")))()
    module.vek(getattr(module, finder), ctypes.byref(ctypes.c_double(x)),
               ctypes.byref(ctypes.c_double(y)), f"{items} ".encode(), result)
    if module.VEKHasError():
        raise ArithmeticError(f"{finder} {x} {y} {items}")
    return list(result)


P_INLET, P_CONDENSER = 160, 0.05

h_inlet, s_inlet = state("vekrpt_", P_INLET, 540, "H,S")
h_ideal, x_ideal = state("vekrps_", P_CONDENSER, s_inlet, "H,X")
h_outlet = h_inlet - 0.87 * (h_inlet - h_ideal)
t_outlet, x_outlet, s_outlet = state("vekrph_", P_CONDENSER, h_outlet, "T,X,S")
s_condensate, = state("vekrpx_", P_CONDENSER, 0, "S")
h_feed, t_feed = state("vekrps_", P_INLET, s_condensate, "H,T")

for name, value in (
        ("inlet enthalpy", h_inlet), ("inlet entropy", s_inlet), ("ideal outlet quality", x_ideal),
        ("outlet temperature", t_outlet), ("outlet quality", x_outlet),
        ("outlet entropy", s_outlet), ("feed temperature", t_feed),
        ("turbine's share of the heat", (h_inlet - h_outlet) / (h_inlet - h_feed))):
    print(f"{name:<28}{value:16.9f}")
