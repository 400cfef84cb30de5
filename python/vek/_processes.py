"""Processes from state to state, for charts."""
import numpy as np

from . import _functions, _states

# What two states may have in common, and to what, as values are given with so many digits.
_COMMON = {"p": lambda a: 1e-4 * a, "s": lambda a: 5e-4, "h": lambda a: 0.05,
           "v": lambda a: 1e-4 * a, "t": lambda a: 0.005, "x": lambda a: 1e-4 * a}
# What changes all the way where that is common.
_CHANGING = {"p": "h", "s": "h", "h": "s", "v": "u", "t": "s", "x": "t"}
_POINTS = 300  # of a process


def named_states(states):
    """Names and states, of a dictionary or of states without names."""
    items = states.items() if hasattr(states, "items") else [("", state) for state in states]
    return [(name, state if hasattr(state, "phase") else _states.state(**state))
            for name, state in items]


def _common(a, b):
    """The property that two states have in common; None when there is none."""
    for letter, tolerance in _COMMON.items():
        first, second = getattr(a, letter), getattr(b, letter)
        if abs(second - first) <= tolerance(abs(first)):
            return letter
    return None


def way(a, b, x, y):
    """Coordinates of the process from one state to another, and whether it goes along a line."""
    ends = [np.array([getattr(state, axis) for state in (a, b)]) for axis in (x, y)]
    common = _common(a, b)
    if common is None:
        return *ends, False
    changing = _CHANGING[common]
    known = {letter: np.linspace(getattr(a, letter), getattr(b, letter), _POINTS)
             for letter in (common, changing)}
    between = _functions.properties((x, y), **known)
    found = np.isfinite(between).all(axis=0)[1:-1]
    return *(np.concatenate(([end[0]], values[1:-1][found], [end[1]]))
             for end, values in zip(ends, between)), True
