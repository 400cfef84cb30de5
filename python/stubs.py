"""Writes the type stubs of the package from the engine's table: stubs.py EXTENSION TEMPLATES FOLDER"""
import importlib.util
import sys
from pathlib import Path


def load(extension):
    spec = importlib.util.spec_from_file_location("_core", extension)
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


def declared(rows, type_of, unit_at):
    lines = []
    for row in rows:
        unit = f", {row[unit_at]}" if row[unit_at] else ""
        lines += [f"{row[1]}: {type_of}", f'"""{row[2]}{unit}"""']
    return lines


def main(extension, templates, folder):
    rows = load(extension).properties()
    for template in sorted(Path(templates).glob("*.pyi.in")):
        unit_at = 5 if template.name.startswith("si") else 4
        attributes = declared(rows, "float", unit_at)
        text = template.read_text("utf-8")
        text = text.replace("@functions@", "\n".join(declared(rows, "PropertyFunction", unit_at)))
        text = text.replace("@attributes@", "\n    ".join(attributes))
        (Path(folder) / template.stem).write_text(text, "utf-8")


main(*sys.argv[1:])
