"""Charts on matplotlib: Mollier, T-s, p-h and p-v, with processes and marked states.

>>> import vek, vek.charts
>>> live = vek.state(p=180, t=540)
>>> axes = vek.charts.mollier(path=[live, vek.state(p=40, s=live.s)], marks={"live steam": live})
>>> axes.get_xlabel()
'entropy s, kJ/(kg K)'

The lines are the engine's, exact to a ten-thousandth of the picture; units are bar, °C, m³/kg, kJ/kg.
"""
from collections import namedtuple
from itertools import pairwise
from typing import Any

from . import _core
from ._labels import Labels
from ._processes import named_states, way
from ._tables import PROPERTIES

_Axis = namedtuple("_Axis", "property is_logarithmic lowest highest")
_Line = namedtuple("_Line", "letter value family x y")
_Family = namedtuple("_Family", "name colour dashes width")

_NUMBERS = {p.identifier: p.number for p in PROPERTIES}
_DIAGRAMS = {letters: (number, *(_Axis(PROPERTIES[i], *rest) for i, *rest in axes))
             for number, (letters, *axes) in enumerate(_core.diagrams())}

# The look of a family of lines, the same on all charts.
_FAMILIES = {"p": _Family("isobars p, bar", "#1f4e9e", "-", 0.6),
             "t": _Family("isotherms t, °C", "#b3261e", "-", 0.6),
             "v": _Family("isochores v, m³/kg", "#2e7d32", (0, (8, 3)), 0.5),
             "h": _Family("isenthalps h, kJ/kg", "#8d6e1f", (0, (10, 2, 2, 2)), 0.5),
             "s": _Family("isentropes s, kJ/(kg K)", "#6a3d9a", (0, (10, 2, 2, 2)), 0.5),
             "x": _Family("quality x", "#555555", "-", 0.5)}
_SATURATION = _Family("saturation", "#000000", "-", 1.4)
_PROCESS = "#c2185b"

# Where the labels of a family had best stand: along a line, in shares of the plane.
_GUIDES = {"hs": {"v": ((0.30, 0.42), (0.98, 0.62)), "t": ((0.90, 0.2), (0.90, 1)),
                  "p": ((0.05, 0.80), (0.98, 0.80)), "x": ((0.30, 0.0), (0.45, 0.45))},
           "ts": {"h": ((0.3, 0.1), (0.97, 0.5)), "v": ((0.5, 0.6), (0.98, 0.3)),
                  "p": ((0.4, 0.92), (0.98, 0.92)), "x": ((0.0, 0.1), (0.95, 0.1))},
           "ph": {"s": ((0.5, 0.75), (0.97, 0.45)), "v": ((0.68, 0.1), (0.72, 0.95)),
                  "t": ((0.05, 0.93), (0.8, 0.05)), "x": ((0.0, 0.08), (0.6, 0.08))},
           "pv": {"s": ((0.2, 0.8), (0.9, 0.2)), "t": ((0.2, 0.9), (0.98, 0.3)),
                  "x": ((0.1, 0.2), (0.9, 0.2))}}


def mollier(ax: Any = None, *, path: Any = (), marks: Any = (), lines: Any = None,
            legend: bool = True) -> Any:
    """The h-s chart.

    ax: matplotlib axes; none: those of a new figure.
    path: states through which a process goes, as of `vek.state`, or what is known of them, as in
    {"p": 100, "t": 540}; with names, a dictionary. Where two have p, s, h, v, t or x in common,
    the process is drawn along it, else straight and dashed.
    marks: states or a dictionary of named ones, to be marked.
    lines: values by letter, as in {"p": [1, 10], "x": [0, 1]}, of the families to be drawn; none:
    those of printed charts.
    legend: whether the families are told below.
    Returns the axes. Raises a ValueError where a state is none, an ImportError without matplotlib.
    """
    return _chart("hs", ax, path, marks, lines, legend)


def ts(ax: Any = None, *, path: Any = (), marks: Any = (), lines: Any = None,
       legend: bool = True) -> Any:
    """The T-s chart, in °C; as `mollier`."""
    return _chart("ts", ax, path, marks, lines, legend)


def ph(ax: Any = None, *, path: Any = (), marks: Any = (), lines: Any = None,
       legend: bool = True) -> Any:
    """The p-h chart with logarithmic pressure; as `mollier`."""
    return _chart("ph", ax, path, marks, lines, legend)


def pv(ax: Any = None, *, path: Any = (), marks: Any = (), lines: Any = None,
       legend: bool = True) -> Any:
    """The p-v chart, both logarithmic; as `mollier`."""
    return _chart("pv", ax, path, marks, lines, legend)


def _chart(letters, ax, path, marks, lines, legend):
    if ax is None:
        from matplotlib import pyplot
        ax = pyplot.figure(figsize=(11.7, 8.3), layout="constrained").add_subplot()
    number, x, y = _DIAGRAMS[letters]
    path, marks = named_states(path), named_states(marks)
    lines = sorted(_lines(number, lines), key=lambda line: line.family is _SATURATION)
    _frame(ax, x, y, [state for _, state in path + marks])
    if legend:
        _draw_legend(ax, {line.family.name: line.family for line in lines})
    labels = Labels(ax)  # from now on the axes are where they are
    _draw_process(ax, labels, path, marks, x.property.identifier, y.property.identifier)
    for line in lines:
        if line.family is _SATURATION:
            labels.keep_clear(line.x, line.y)
    for line in lines:
        _draw_line(ax, labels, line, _GUIDES[letters].get(line.letter))
    return ax


def _frame(ax, x, y, states):
    """Axes with the ranges of printed charts, wider where a state would be outside."""
    for name, axis in (("x", x), ("y", y)):
        p = axis.property
        ax.set(**{f"{name}label": f"{p.name} {p.letter}, {p.unit}",
                  f"{name}scale": "log" if axis.is_logarithmic else "linear",
                  f"{name}lim": _limits(axis, [getattr(state, p.identifier) for state in states])})
    ax.grid(color="#e0e0e0", linewidth=0.4)
    ax.set_axisbelow(True)


def _limits(axis, values):
    """With a margin around what is outside the printed range."""
    lowest, highest = min([axis.lowest, *values]), max([axis.highest, *values])
    if axis.is_logarithmic:
        return (lowest / 1.2 if lowest < axis.lowest else lowest,
                highest * 1.2 if highest > axis.highest else highest)
    margin = 0.03 * (highest - lowest)
    return (lowest - margin * (lowest < axis.lowest), highest + margin * (highest > axis.highest))


def _lines(diagram, wanted):
    """The lines of a chart, those of printed charts if no others are wanted."""
    if wanted is None:
        return [_line(*line) for line in _core.lines(diagram)]
    unknown = [letter for letter in wanted if letter not in _FAMILIES]
    if unknown:
        raise ValueError(f"{' '.join(unknown)}: no family of lines; there are {' '.join(_FAMILIES)}")
    return [_line(*line) for letter, values in wanted.items()
            for line in _core.lines_of(diagram, _NUMBERS[letter], [float(v) for v in values])]


def _line(number, value, x, y):
    letter = PROPERTIES[number].identifier
    family = _SATURATION if letter == "x" and value in (0, 1) else _FAMILIES[letter]
    return _Line(letter, value, family, x, y)


def _draw_line(ax, labels, line, guide):
    """The saturation line is known without a label."""
    family = line.family
    ax.plot(line.x, line.y, color=family.colour, linestyle=family.dashes, linewidth=family.width,
            zorder=2.1 if family is _SATURATION else 2, scalex=False, scaley=False)
    if guide and family is not _SATURATION:
        labels.place(line.x, line.y, f"{line.value:g}", family.colour, guide)


def _draw_process(ax, labels, path, marks, x, y):
    """A process from state to state, and points with their names."""
    for (_, a), (_, b) in pairwise(path):
        xs, ys, along = way(a, b, x, y)
        ax.plot(xs, ys, color=_PROCESS, linestyle="-" if along else "--", linewidth=2, zorder=3,
                scalex=False, scaley=False)
        labels.keep_clear(xs, ys)
    named = {}
    for name, state in path + marks:
        at = getattr(state, x), getattr(state, y)
        named[at] = named.get(at) or name  # a cycle ends where it began
    for (across, upwards), name in named.items():
        ax.plot(across, upwards, "o", color=_PROCESS, markeredgecolor="white", zorder=4,
                scalex=False, scaley=False, clip_on=False)
        labels.keep_clear([across], [upwards])
    for (across, upwards), name in named.items():
        labels.note(across, upwards, name, _PROCESS)


def _draw_legend(ax, families):
    from matplotlib.lines import Line2D
    samples = [Line2D([], [], color=f.colour, linestyle=f.dashes, linewidth=max(f.width, 0.8))
               for f in families.values()]
    ax.legend(samples, list(families), loc="upper center", bbox_to_anchor=(0.5, 0),
              borderaxespad=5, ncols=len(samples), frameon=False, fontsize="small")
