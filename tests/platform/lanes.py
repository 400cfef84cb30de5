#!/usr/bin/env python3
"""lanes.py NM OBJECT...: in the objects that are compiled for more than every processor has, all code
that the linker may take for another object's must be of lanes of their own count: of the rest it keeps
one copy, which every processor runs."""
import re
import subprocess
import sys


def foreign(nm, path, count):
    """Functions that may be shared and name no lanes of the count."""
    lines = subprocess.run([nm, "-C", "--defined-only", path], check=True, capture_output=True,
                           text=True).stdout.splitlines()
    shared = [line.split(maxsplit=2)[2] for line in lines if line.split(maxsplit=2)[1] == "W"]
    return [name for name in shared if f"Lanes<double, {count}>" not in name]


def main(nm, paths):
    counted = [(path, found[1]) for path in paths if (found := re.search(r"lanes_([48])\.", path))]
    assert len(counted) == 2, "there are two such objects"
    wrong = [f"{path}: {name}" for path, count in counted for name in foreign(nm, path, count)]
    print(*wrong, sep="\n")
    return bool(wrong)


sys.exit(main(sys.argv[1], sys.argv[2:]))
