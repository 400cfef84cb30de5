"""Calls with arrays: on NumPy, which nothing else in the package needs."""
from functools import partial

import numpy as np

from . import _core
from ._carriers import carrier_of
from ._quantities import registry_of
from ._tables import refusal
from .ufuncs import ufunc

_NUMBERS = "bufi"  # kinds of arrays: truth values, integers, floating-point numbers


def evaluate(wanted, pair, known, si, status=False, errors="nan", **how):
    """A tuple of arrays, or of what takes their place, one for each wanted property."""
    if errors not in ("nan", "raise"):
        raise ValueError(f'errors is "nan" or "raise", not {errors!r}')
    given = [known[side.property.letter] for side in (pair.first, pair.second)]
    registry = registry_of(given)
    if registry:
        given = registry.magnitudes(given, (pair.first, pair.second), si)
    carrier = carrier_of(given)
    if carrier:
        results = _carried(carrier, given, wanted, pair, si, status, errors, how)
        return registry.quantities(results, wanted, si) if registry else results
    given = [_numbers(values, side) for values, side in zip(given, (pair.first, pair.second))]
    if how.get("out") is not None and errors == "raise" and not status:
        out = how["out"]
        how["out"] = (*(out if isinstance(out, tuple) else (out,)), None)  # nobody wants the codes
    results = _call(ufunc(pair, wanted, bool(status) or errors == "raise", si), given, **how)
    if errors == "raise":
        _raise_first(results[-1], given, pair, si)
        results = results if status else results[:-1]
    if registry:
        results = registry.quantities(results, wanted, si)
    return results


def _carried(carrier, given, wanted, pair, si, status, errors, how):
    """The results in what carries the given values."""
    if how:
        raise TypeError(f"{' and '.join(how)} cannot be given with data that have labels or chunks")
    fields = [(p.identifier, p) for p in wanted] + [("status", None)] * bool(status)
    call = partial(_of_arrays, wanted, pair, si, status, errors)
    return carrier.evaluate(call, given, (pair.first, pair.second), fields, si)


def _of_arrays(wanted, pair, si, status, errors, *given):
    """One array or a tuple, as a ufunc gives them; for libraries that call later and elsewhere."""
    known = dict(zip(pair.letters, given))
    results = evaluate(wanted, pair, known, si, status, errors)
    return results if len(results) > 1 else results[0]


def _call(function, given, where=True, out=None, **how):
    """The outputs as a tuple. Where rows are left out and nobody says otherwise, they are NaN."""
    if where is not True:
        how["where"] = where
        out = out if out is not None else _left_out(function, given, where)
    if out is not None:
        how["out"] = out
    results = function(*given, **how)
    return results if isinstance(results, tuple) else (results,)


def _left_out(function, given, where):
    shape = np.broadcast_shapes(*(np.shape(x) for x in (*given, where)))
    return tuple(np.full(shape, np.nan) if kind == "d" else np.full(shape, _core.not_reached, "B")
                 for kind in function.types[0].partition("->")[2])


def _numbers(values, side):
    """Values as NumPy takes them; a TypeError that names what cannot be a number."""
    if not hasattr(values, "__array_ufunc__"):
        values = np.asarray(values)
    type = getattr(values, "dtype", None)  # a table of several columns has none
    if type is not None and getattr(type, "kind", "f") not in _NUMBERS:
        raise TypeError(f"{side.property.letter} is of type {type}; real numbers are accepted")
    return values


def _raise_first(codes, given, pair, si):
    """A ValueError about the first row without a state."""
    codes = np.asarray(codes.filled(0) if hasattr(codes, "filled") else codes)
    wrong = np.flatnonzero((codes != 0) & (codes != _core.not_reached))
    if not wrong.size:
        return
    row = np.unravel_index(wrong[0], codes.shape)
    values = [float(np.broadcast_to(x, codes.shape)[row]) for x in given]
    place = f"row {', '.join(map(str, row))}, " if row else ""
    raise ValueError(place + refusal(int(codes[row]), pair, values, si))
