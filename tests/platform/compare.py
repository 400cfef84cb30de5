#!/usr/bin/env python3
"""Compares two outputs of the request table or of the elementary functions.

Words that are no hexadecimal numbers with a point or an exponent (names, region codes, flags) must
be equal. Of the numbers at most a given share may differ at all, and none by more than a given
number of units in the last place or a relative difference.
"""
import argparse
import struct
import sys


def ordinal(x):
    """Neighbouring doubles have neighbouring ordinals."""
    bits = struct.unpack("<q", struct.pack("<d", x))[0]
    return bits if bits >= 0 else -(bits & 0x7FFFFFFFFFFFFFFF)


def is_number(word):
    return "p" in word and word[0] in "-0123456789" or word.lstrip("-") in ("nan", "inf")


def words(path):
    with open(path, encoding="ascii") as lines:
        return [line.split() for line in lines]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("reference")
    parser.add_argument("actual")
    parser.add_argument("--share", type=float, default=0, help="of numbers that may differ")
    parser.add_argument("--ulps", type=int, help="by which a number may differ")
    parser.add_argument("--relative", type=float, help="difference that a number may have")
    limits = parser.parse_args()

    reference, actual = words(limits.reference), words(limits.actual)
    failures = [] if len(reference) == len(actual) else ["different numbers of lines"]
    count = differing = most_ulps = 0
    most_relative = 0.0
    for line, other in zip(reference, actual):
        for a, b in zip(line, other, strict=True):
            if not is_number(a):
                if a != b:
                    failures.append(f"{a} became {b} in {' '.join(line[:3])}")
                continue
            count += 1
            if a == b or a.lstrip("-") == b.lstrip("-") == "nan":
                continue
            x, y = float.fromhex(a), float.fromhex(b)
            differing += 1
            most_ulps = max(most_ulps, abs(ordinal(x) - ordinal(y)))
            most_relative = max(most_relative, abs(x - y) / max(abs(x), abs(y)))
    print(f"{differing} of {count} numbers differ, by up to {most_ulps} units in the last place"
          f" or {most_relative:.1e}")

    if differing > limits.share * count:
        failures.append("too many numbers differ")
    if limits.ulps is not None and most_ulps > limits.ulps:
        failures.append(f"more than {limits.ulps} units in the last place")
    if limits.relative is not None and most_relative > limits.relative:
        failures.append(f"more than {limits.relative}")
    print(*failures, sep="\n")
    return 1 if failures or count == 0 else 0


sys.exit(main())
