"""Calls with arrays: on NumPy, which nothing else in the package needs."""
import math
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
    if where is not True and out is None:
        out = _left_out(function, given, where)
        if _is_large_and_plain(given, where) and not how:
            return _of_picked(function, given, where, out)
    if where is not True:
        how["where"] = where
    elif "casting" not in how and _is_large_and_plain(given):
        given = _in_one_piece(given)
    if out is not None:
        how["out"] = out
    results = function(*given, **how)
    return results if isinstance(results, tuple) else (results,)


_LARGE, _HUGE = 2**13, 2**26  # rows: fewer are not worth a copy, for more there may be no memory


def _is_large_and_plain(given, where=True):
    shape = np.broadcast_shapes(*map(np.shape, (*given, where)))
    return (_LARGE <= math.prod(shape) <= _HUGE and np.asarray(where).dtype == bool
            and all(type(x) is np.ndarray and np.can_cast(x.dtype, float) for x in given))


def _in_one_piece(given):
    """Copies where NumPy would convert or broadcast row by row, in pieces too short for threads."""
    long = [x for x in given if x.ndim]
    if len({x.shape for x in long}) > 1 or not (all(x.flags.c_contiguous or x.ndim == 1 for x in long)
                                                or all(x.flags.f_contiguous for x in long)):
        shape = np.broadcast_shapes(*map(np.shape, given))
        given = [np.ascontiguousarray(np.broadcast_to(x, shape)) if x.ndim else x for x in given]
    return [x.astype(float, copy=False) for x in given]


def _of_picked(function, given, where, outputs):
    """The rows that are wanted one after the other, for the same reason."""
    shape = outputs[0].shape
    where = np.broadcast_to(where, shape)
    results = function(*(np.broadcast_to(x, shape)[where].astype(float, copy=False) for x in given))
    for output, result in zip(outputs, results if isinstance(results, tuple) else (results,)):
        output[where] = result
    return outputs


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
