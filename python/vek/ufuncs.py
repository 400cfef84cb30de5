"""The NumPy ufuncs behind the functions, made when they are first asked for.

A ufunc is named after what it computes, ``getattr(vek.ufuncs, "h(p,t)")`` or "t,s,v(p,h)"; it takes
the pair's two values in this order. "status" as the last property adds the codes of the rows, and
"SI" behind the pair, as in "h(p,t)SI", takes and gives SI units. They are pickled by their names.
"""
from functools import cache

from . import _core, _tables


@cache
def ufunc(pair, properties, status=False, si=False):
    """The ufunc of properties of a pair."""
    wanted = ",".join([p.identifier for p in properties] + ["status"] * status)
    name = f"{wanted}({','.join(pair.letters)}){'SI' * si}"
    units = [f"{p.name}, {p.si_unit if si else p.unit}".rstrip(", ") for p in properties]
    return _core.ufunc(pair.number, [p.number for p in properties], status, si, name,
                       "; ".join(units))


def __getattr__(name: str):
    wanted, opened, rest = name.partition("(")
    known, closed, si = rest.partition(")")
    pair = _tables.PAIRS.get(frozenset(known.split(",")))
    if not opened or not closed or pair is None or si not in ("", "SI"):
        raise AttributeError(f"module {__name__!r} has no attribute {name!r}")
    names = wanted.split(",")
    status = names[-1] == "status"
    properties = _tables.properties_of(tuple(names[:-1] if status else names))
    return ufunc(pair, properties, status, bool(si))
