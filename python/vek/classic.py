"""The classic module, one request at a time: its state is one for the process, so calls wait for each
other."""
import re
from collections import namedtuple

from . import _core, _tables

Reply = namedtuple("Reply", "values flag diagnostics")
_ITEM = re.compile("[!-~]{1,3}")  # the module counts bytes and has room for three


def request(pair: str, first: float, second: float, items: str) -> Reply:
    """A request of the classic module, as it answers it.

    pair: letters of what is known, such as "ph"; first, second: the values, in the pair's order.
    items: what is wanted, P T V H S X CP DV TC, with commas, points or blanks between them; the
    separator behind the last one is added.
    Returns values (NaN where the module leaves a slot as it is), the error flag, and the diagnostic
    lines. Range and units are the module's: bar, °C, m³/kg, kJ/kg, kJ/(kg K), Pa·s, kW/(m K).

    >>> import vek.classic
    >>> reply = vek.classic.request("ph", 100, 3000, "T,S")
    >>> [round(value, 4) for value in reply.values], reply.flag, reply.diagnostics
    ([369.6384, 6.0662], 0, [])
    """
    known = _tables.PAIRS.get(frozenset(pair))
    if known is None or pair != known.letters:
        raise ValueError(f"{pair!r} is none of the pairs {_tables.PAIR_LETTERS}")
    if not isinstance(items, str):
        raise TypeError(f"items are a text such as 'T,S', not {items!r}")
    names = items.replace(",", " ").replace(".", " ").split()
    if not all(_ITEM.fullmatch(name) for name in names):
        raise ValueError(f"{items!r}: items are P, T, V, H, S, X, CP, DV, TC")
    text = "".join(name + "," for name in names)
    given = map(_tables.number, pair, (first, second))
    values, flag, lines = _core.classic_request(known.number, *given, text, len(names))
    return Reply(tuple(values), flag, lines.splitlines())


_WANTED = [_tables.PROPERTIES[number] for number in _core.classic_properties()]
Values = namedtuple("Values", [p.identifier for p in _WANTED])
Comparison = namedtuple("Comparison", "engine module difference flag diagnostics")


def compare(**known: float) -> Comparison:
    """What the engine and the classic module say of the state that has two known properties.

    Returns `engine`, `module` and `difference`, each with the properties that the module has, in the
    engine's units, NaN where there is none; the module's error flag and its diagnostic lines.

    >>> import vek
    >>> both = vek.compare(p=0.5, t=81.34526862)
    >>> round(both.engine.h, 2), round(both.module.h, 2), round(both.difference.h, 2), both.flag
    (340.56, 1493.28, 1152.71, 0)
    """
    pair = _tables.pair_of(known)
    given = [_tables.number(letter, known[letter]) for letter in pair.letters]
    *columns, flag, lines = _core.classic_compare(pair.number, *given)
    return Comparison(*(Values(*column) for column in columns), flag, lines.splitlines())
