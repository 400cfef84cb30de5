#!/usr/bin/env python3
"""Checks what a built module exports and imports against the list of exported names, and that the
bindings declare that list.

exports.py MODULE OBJDUMP EXPORTS.TXT BINDING...
"""
import re
import subprocess
import sys

SYSTEM_LIBRARIES = {"kernel32.dll", "msvcrt.dll", "user32.dll"}


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def check_windows(dump, names):
    table = dump[dump.index("[Ordinal/Name Pointer] Table"):]
    exported = re.findall(r"^\s+\[ *\d+\] (\S+)$", table, re.M)
    imported = {name.lower() for name in re.findall(r"DLL Name: (\S+)", dump)}
    return [(sorted(exported), sorted(names), "exported names"),
            (re.findall(r"^Name\s+\S+ (\S+)$", dump, re.M), ["Vek.Dll"], "module file name"),
            (imported - SYSTEM_LIBRARIES, set(), "imports beyond the system's")]


def check_linux(dump, module, objdump, names):
    symbols = output_of(objdump, "-T", module).splitlines()
    exported = [line.split()[-1] for line in symbols
                if re.match(r"[0-9a-f]+ [gwu]", line) and "*UND*" not in line]
    return [(sorted(exported), sorted(names), "exported names"),
            (re.findall(r"SONAME\s+(\S+)", dump), ["libvek.so.1"], "soname")]


def main():
    module, objdump, list_file, *bindings = sys.argv[1:]
    with open(list_file, encoding="ascii") as lines:
        names = lines.read().split()
    dump = output_of(objdump, "-p", module)
    checks = (check_windows(dump, names) if "DLL Name" in dump
              else check_linux(dump, module, objdump, names))
    for binding in bindings:
        with open(binding, encoding="utf-8") as text:
            declared = set(re.findall(r"\bvekr[a-z]{2}_|\bvek(?=[(\"])|\bVEKHasError\b|\bGetVekModule\b",
                                      text.read()))
        checks.append((declared, set(names), f"names in {binding}"))
    wrong = [check for check in checks if check[0] != check[1]]
    for found, expected, what in wrong:
        print(f"{what}: {found}\nexpected: {expected}")
    return 1 if wrong or len(names) != 21 else 0


sys.exit(main())
