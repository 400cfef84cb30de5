"""What the engine says of its properties and pairs; nothing is listed a second time here."""
from collections import namedtuple
from functools import cache

from . import _core

Property = namedtuple("Property", "number identifier name letter unit si_unit in_one_phase "
                                  "in_wet_states")
Pair = namedtuple("Pair", "number letters first second")
Given = namedtuple("Given", "property lowest highest")

PROPERTIES = [Property(*row) for row in _core.properties()]


def _of_phase(property, offset, ending, phase):
    """The property of a wet state's saturated phase, as one more property."""
    return property._replace(number=property.number + offset,
                             identifier=property.identifier.rstrip("_") + ending,
                             name=f"{property.name} of the saturated {phase}",
                             letter=property.letter + ending, in_one_phase=False,
                             in_wet_states=property.in_one_phase)


LIQUID = [_of_phase(p, _core.of_liquid, "_liquid", "liquid") for p in PROPERTIES]
VAPOUR = [_of_phase(p, _core.of_vapour, "_vapour", "vapour") for p in PROPERTIES]
EVERY = {p.identifier: p for p in (*PROPERTIES, *LIQUID, *VAPOUR)}
_BY_LETTER = {p.letter: p for p in EVERY.values()}


def _given(number, lowest, highest):
    return Given(PROPERTIES[number], lowest, highest)


PAIRS = {frozenset(letters): Pair(number, letters, _given(*first), _given(*second))
         for number, letters, first, second in _core.pairs()}
PAIR_LETTERS = ", ".join(pair.letters for pair in PAIRS.values())


def pair_of(known):
    """The pair that some keywords name; TypeError when they name none."""
    pair = PAIRS.get(frozenset(known)) if len(known) == 2 else None
    if pair is None:
        got = " and ".join(known) or "nothing"
        raise TypeError(f"{got} cannot be given; two properties are known, one of the pairs "
                        f"{PAIR_LETTERS}")
    return pair


def number(name, value):
    """A known value of one state; a TypeError that names what is no number, nor is a text of digits."""
    if not isinstance(value, (str, bytes, bytearray)):
        try:
            return float(value)
        except TypeError:
            pass
    raise TypeError(f"{name} is of type {type(value).__name__}; a real number is accepted")


def refusal(code, pair, values, si):
    """What a code says of a pair's values."""
    units = [side.property.si_unit if si else side.property.unit for side in (pair.first, pair.second)]
    given = ", ".join(f"{letter}={value:.10g} {unit}".rstrip()
                      for letter, value, unit in zip(pair.letters, values, units))
    return f"{given}: {_core.refusal(code, pair.number, *values, si)}"


@cache
def properties_of(names):
    """The properties that a text such as "t s v region" names, by identifier or by letter."""
    wanted = names.replace(",", " ").split() if isinstance(names, str) else names
    unknown = [name for name in wanted if name not in EVERY and name not in _BY_LETTER]
    if unknown or not wanted:
        raise ValueError(f"{' '.join(unknown) or 'nothing'}: no such property; there are "
                         f"{' '.join(p.identifier for p in PROPERTIES)}, and those of a wet "
                         "state's saturated phases, such as h_liquid and h_vapour")
    return tuple(EVERY.get(name) or _BY_LETTER[name] for name in wanted)
