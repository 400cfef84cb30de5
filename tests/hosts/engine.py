#!/usr/bin/env python3
"""The table of engine.c through ctypes alone: engine.py LIBRARY"""
import ctypes
import sys

value = ctypes.CDLL(sys.argv[1]).vek_steam_value
value.restype = ctypes.c_double
value.argtypes = [ctypes.c_int, ctypes.c_double, ctypes.c_double, ctypes.c_int]

PT, PX, PH, PS = 0, 1, 4, 5  # pairs, and below properties, as numbered in steam.h
H, S, X = 3, 4, 6
P_INLET, TURBINE = 160, 0.87

h_inlet, s_inlet = (value(PT, P_INLET, 540, wanted) for wanted in (H, S))
for p in (0.03, 0.05, 0.07, 0.1):
    h_outlet = h_inlet - TURBINE * (h_inlet - value(PS, p, s_inlet, H))
    h_feed = value(PS, P_INLET, value(PX, p, 0, S), H)
    work = h_inlet - h_outlet - (h_feed - value(PX, p, 0, H))
    print(f"{p:5.2f} bar: quality {value(PH, p, h_outlet, X):.6f},"
          f" efficiency {work / (h_inlet - h_feed):.6f}")
