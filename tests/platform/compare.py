#!/usr/bin/env python3
"""Compares two outputs of the request table.

Words that are no hexadecimal numbers with a point or an exponent (names, region codes, flags) must
be equal. Of the numbers at most a given share may differ at all, and none by more than a given
relative difference.
"""
import argparse
import sys


def is_number(word):
    return "p" in word and word[0] in "-0123456789" or word.lstrip("-") in ("nan", "inf")


def difference(a, b):
    """Relative, of two words; infinite where they must be equal."""
    if a == b or a.lstrip("-") == b.lstrip("-") == "nan":
        return 0
    if not (is_number(a) and is_number(b)):
        return float("inf")
    x, y = float.fromhex(a), float.fromhex(b)
    return abs(x - y) / max(abs(x), abs(y))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("reference")
    parser.add_argument("actual")
    parser.add_argument("--share", type=float, default=0, help="of numbers that may differ")
    parser.add_argument("--relative", type=float, default=0, help="difference that one may have")
    limits = parser.parse_args()
    reference, actual = (open(path, encoding="ascii").read().split("\n")
                         for path in (limits.reference, limits.actual))
    count, different, wrong = 0, [], len(reference) != len(actual)
    for line, other in zip(reference, actual):
        for a, b in zip(line.split(), other.split(), strict=True):
            count += is_number(a)
            off = difference(a, b)
            different += [off] if off > 0 else []
            if not off <= limits.relative:
                print(f"{a} became {b} in {line[:30]}")
                wrong = True
    print(f"{len(different)} of {count} numbers differ, by up to {max(different, default=0):.1e}")
    return 1 if wrong or len(different) > limits.share * count or count == 0 else 0


sys.exit(main())
