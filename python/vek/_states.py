"""States with all that is known of them."""
from math import isnan

from . import _core
from ._quantities import registry_of
from ._tables import LIQUID, PROPERTIES, VAPOUR, number, pair_of, refusal

_INDEX = {p.identifier: i for i, p in enumerate(PROPERTIES)}
_COUNT = len(PROPERTIES)
_NUMBERS = [p.number for p in (*PROPERTIES, *LIQUID, *VAPOUR)]
_IN_WORDS = {"region": int, "several": bool, "approximate": bool}  # what is no measure
_SHOWN = [p for p in PROPERTIES if p.identifier not in _IN_WORDS]


class Phase:
    """Properties as attributes, named like the functions; NaN where there are none."""

    __slots__ = ("_values", "_si")

    def __init__(self, values, si):
        self._values = tuple(values)
        self._si = si

    def __getattr__(self, name):
        if name not in _INDEX:
            raise AttributeError(f"no property {name!r}")
        value = self._values[_INDEX[name]]
        return _IN_WORDS[name](value) if name in _IN_WORDS and value == value else value

    def __dir__(self):
        return [*super().__dir__(), *_INDEX]

    def _columns(self):
        return [("", self)]

    def _rows(self):
        """Name, identifier, unit and the values of what there is."""
        columns = [column for _, column in self._columns()]
        for p in _SHOWN:
            values = [getattr(column, p.identifier) for column in columns]
            numbers = [getattr(value, "magnitude", value) for value in values]
            if not all(map(isnan, numbers)):
                yield (p.name, p.identifier, p.si_unit if self._si else p.unit,
                       ["-" if isnan(number) else f"{number:.6g}" for number in numbers])

    def _title(self):
        return "phase"

    def __repr__(self):
        lines = [self._title()]
        titles = [title for title, _ in self._columns()]
        if any(titles):
            lines.append(" " * 45 + " ".join(f"{title:>12}" for title in titles))
        for name, identifier, unit, values in self._rows():
            texts = " ".join(f"{value:>12}" for value in values)
            lines.append(f"{name:<33} {identifier:>10} {texts} {unit}".rstrip())
        return "\n".join(lines)

    def _repr_html_(self):
        head = "".join(f"<th>{title}</th>" for title, _ in self._columns())
        body = "".join(
            f"<tr><td>{name}</td><td><i>{identifier}</i></td>"
            + "".join(f"<td style='text-align:right'>{value}</td>" for value in values)
            + f"<td>{unit}</td></tr>" for name, identifier, unit, values in self._rows())
        return (f"<table><caption>{self._title()}</caption>"
                f"<tr><th></th><th></th>{head}<th></th></tr>{body}</table>")


class State(Phase):
    """A state: every property as an attribute, in wet states of the mixture.

    phase: in words; liquid, vapour: a wet state's saturated phases, None in one phase; region: the
    number of the formulation's region; several: whether other states have the pair too, which
    `states` gives; approximate: whether it is the nearer state of a boundary.
    """

    __slots__ = ("phase", "liquid", "vapour")

    def __init__(self, values, phase, si):
        super().__init__(values[:_COUNT], si)
        self.phase = phase
        wet = not isnan(getattr(self.r, "magnitude", self.r))
        self.liquid = Phase(values[_COUNT:2 * _COUNT], si) if wet else None
        self.vapour = Phase(values[2 * _COUNT:], si) if wet else None

    def _title(self):
        return self.phase

    def _columns(self):
        if self.liquid is None:
            return super()._columns()
        return [("sat. liquid", self.liquid), ("mixture", self), ("sat. vapour", self.vapour)]


class Saturation(Phase):
    """Both phases of a saturated state, `liquid` and `vapour`, and as attributes of its own what
    they share: p, t, r, sigma, dps_dt."""

    __slots__ = ("liquid", "vapour")
    _SHARED = ("p", "t", "r", "sigma", "dps_dt")

    def __init__(self, state):
        super().__init__(state._values, state._si)
        self.liquid, self.vapour = state.liquid, state.vapour

    def __getattr__(self, name):
        if name not in self._SHARED:
            raise AttributeError(f"no property {name!r}; those of a phase are .liquid.{name} and "
                                 f".vapour.{name}")
        return super().__getattr__(name)

    def __dir__(self):
        return ["liquid", "vapour", *self._SHARED]

    def _title(self):
        return f"saturation, r = {self.r:.6g}"

    def _columns(self):
        return [("liquid", self.liquid), ("vapour", self.vapour)]


def _find(known, si, most):
    """At most some states of a pair; ValueError when there is none."""
    pair = pair_of(known)
    sides = (pair.first, pair.second)
    given = [known[side.property.letter] for side in sides]
    units = registry_of(given)
    if units:
        given = units.magnitudes(given, sides, si)
    given = [number(letter, value) for letter, value in zip(pair.letters, given)]
    code, rows = _core.states(pair.number, *given, _NUMBERS, si, most)
    if code:
        raise ValueError(refusal(code, pair, given, si))
    if units:
        every = (*PROPERTIES, *LIQUID, *VAPOUR)
        rows = [(units.quantities(values, every, si), phase) for values, phase in rows]
    return [State(values, phase, si) for values, phase in rows]


def state(**known):
    """The state that has two known properties, with all its properties.

    known: two of p, t, v, h, s, u, x that make a pair, numbers. Where several states have it, the
    one of the lowest pressure if the temperature is given, else the one of the highest temperature.
    Raises a ValueError that says what is accepted where there is no state.

    >>> import vek
    >>> wet = vek.state(t=100, x=0.9)
    >>> wet.phase, round(wet.h, 2), round(wet.vapour.h, 2)
    ('wet steam', 2450.31, 2676.01)
    """
    return _find(known, False, 1)[0]


def states(**known):
    """All states that have two known properties, that of `state` first.

    >>> import vek
    >>> [(s.phase, round(s.p, 4)) for s in vek.states(t=20, h=84)]
    [('wet steam', 0.0234), ('water', 1.4936)]
    """
    return _find(known, False, _core.most_states)


def saturation(**known):
    """Saturated liquid and vapour at p, to 221.2 bar, or t, to 374.15 °C.

    >>> import vek
    >>> vek.saturation(p=1).vapour.h.__round__(1)
    2675.4
    """
    return _saturation(known, False)


def _saturation(known, si):
    if len(known) != 1 or not known.keys() <= {"p", "t"}:
        raise TypeError(f"saturation is known by p or by t, not by {' and '.join(known) or 'nothing'}")
    return Saturation(_find({**known, "x": 0}, si, 1)[0])
