"""The functions of properties: what their keywords mean, and how a call becomes that of a ufunc."""
import sys
from collections import namedtuple
from functools import cache

from . import _core
from ._tables import PAIR_LETTERS, PROPERTIES, pair_of, properties_of


def evaluate(wanted, known, *, si=False, **how):
    """Properties of states, one array each; with status=True the codes of the rows as the last."""
    from ._arrays import evaluate
    return evaluate(wanted, pair_of(known), known, si, **how)


def _one(si, number, keywords):
    """A property of many states, or of one that is asked for in a special way."""
    how = {name: keywords.pop(name) for name in _HOW if name in keywords}
    result = evaluate((PROPERTIES[number],), keywords, si=si, **how)
    return result if how.get("status") else result[0]


_HOW = ("out", "where", "casting", "order", "status", "errors")


@cache
def _tuple_of(names, status):
    fields = [p.identifier for p in properties_of(names)] + ["status"] * status
    made = namedtuple("Properties", fields, module=__package__)
    made.__reduce__ = lambda self: (_named, (names, status, tuple(self)))
    return made


def _named(names, status, values):
    """The named tuple of some properties, also where another process sent it."""
    return _tuple_of(names, status)(*values)


def properties(names, *, status=False, **known):
    """Several properties of states at once, which costs little more than one of them.

    names: of the properties, as in "t s v region": letters, with "_" for what no name can have
    (lambda_, dp_dv), and those of a wet state's saturated phases (h_liquid, h_vapour).
    Everything else as of `vek.h`; `out` is a tuple of arrays.
    Returns a named tuple, with a field `status` when status=True.

    >>> import vek
    >>> vek.properties("t x region", p=10, h=[500, 2000]).t.round(2)
    array([118.99, 179.88])
    """
    return _properties(False, names, status, known)


def _properties(si, names, status, keywords):
    names = names if isinstance(names, str) else tuple(names)
    how = {name: keywords.pop(name) for name in _HOW if name in keywords}
    results = evaluate(properties_of(names), keywords, si=si, status=status, **how)
    return _named(names, bool(status), results)


def reason(code):
    """What a code of `status=True` says.

    >>> import vek
    >>> vek.reason(vek.h(p=10, t=900, status=True)[1])
    'the temperature is outside its range'
    """
    return _core.reason(int(code))


def _existence(property):
    if not property.in_one_phase:
        return "only wet states have it"
    return "" if property.in_wet_states else "wet states do not have it"


def _doc(number, si):
    """The docstring of a property's function."""
    p = PROPERTIES[number]
    unit = p.si_unit if si else p.unit
    title = f"{p.name[0].upper()}{p.name[1:]}{', ' * bool(unit)}{unit}"
    example = f"vek.{'si.' * si}{p.identifier}(p={'1e6' if si else '10'}, t={'373.15' if si else '100'})"
    outside = "NaN, as where it does not exist: " + _existence(p) if _existence(p) else "NaN"
    return f"""{p.identifier}($module, /, *, out=None, where=True, status=False, errors="nan", **known)
--

{title}, from two known properties, as in {example}.

known: two of p, t, v, h, s, u, x that make a pair,
{PAIR_LETTERS};
numbers, arrays, what follows NumPy's protocols, quantities of pint. Arrays are broadcast.
Range: 0.006112444 to 1000 bar, 0.01 to 800 °C; x, the mass fraction of vapour, 0 to 1.
Outside: {outside}.
out, where, casting, order: as of NumPy's ufuncs; without `out`, rows that `where` leaves out are NaN.
status: True returns a tuple with the codes of the rows, 0 where there is a state; `vek.reason` has
the words.
errors: "raise" raises a ValueError that names the first row without a state.
Returns a float for Python's numbers, else an array.
"""


def install(module, si):
    """Gives a module the functions of all properties; returns their names."""
    from functools import partial
    _core.add_property_functions(sys.modules[module], si, partial(_one, si), lambda n: _doc(n, si))
    return [p.identifier for p in PROPERTIES]
