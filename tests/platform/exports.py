#!/usr/bin/env python3
"""Checks what a built library exports and imports against the list of exported names, and its own
name; of bindings, that they declare that list.

exports.py LIBRARY OBJDUMP NAME EXPORTS.TXT [BINDING...]
"""
import re
import subprocess
import sys

SYSTEM_LIBRARIES = {"kernel32.dll", "msvcrt.dll", "user32.dll"}


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def check_windows(dump, name, names):
    table = dump[dump.index("[Ordinal/Name Pointer] Table"):]
    exported = re.findall(r"^\s+\[ *\d+\] (\S+)$", table, re.M)
    imported = {name.lower() for name in re.findall(r"DLL Name: (\S+)", dump)}
    return [(sorted(exported), sorted(names), "exported names"),
            (re.findall(r"^Name\s+\S+ (\S+)$", dump, re.M), [name], "file name"),
            (imported - SYSTEM_LIBRARIES, set(), "imports beyond the system's")]


def check_linux(dump, name, names, symbols):
    exported = [line.split()[-1] for line in symbols.splitlines()
                if re.match(r"[0-9a-f]+ [gwu]", line) and "*UND*" not in line and "*ABS*" not in line]
    return [(sorted(exported), sorted(names), "exported names"),
            (re.findall(r"SONAME\s+(\S+)", dump), [name], "soname")]


def name_of_engine(name):
    return name.startswith("vek_steam_")


def main():
    library, objdump, name, list_file, *bindings = sys.argv[1:]
    with open(list_file, encoding="ascii") as lines:
        names = lines.read().split()
    dump = output_of(objdump, "-p", library)
    checks = (check_windows(dump, name, names) if "DLL Name" in dump
              else check_linux(dump, name, names, output_of(objdump, "-T", library)))
    for binding in bindings:
        with open(binding, encoding="utf-8") as text:
            declared = set(re.findall(r"\bvekr[a-z]{2}_|\bvek(?=[(\"])|\bVEKHasError\b|\bGetVekModule\b|\bvek_steam_\w+(?=\()",
                                      text.read()))
        # The engine's header names the module's functions too, for the host to hand them over.
        if name_of_engine(names[0]):
            declared = set(filter(name_of_engine, declared))
        checks.append((declared, set(names), f"names in {binding}"))
    wrong = [check for check in checks if check[0] != check[1]]
    for found, expected, what in wrong:
        print(f"{what}: {found}\nexpected: {expected}")
    return 1 if wrong or not names else 0


sys.exit(main())
