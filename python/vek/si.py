"""The functions of `vek` in Pa, K, J/kg and J/(kg K); all else is in SI units there already.

>>> import vek.si
>>> round(vek.si.h(p=1e7, t=813.15), -2)
3475100.0
"""
from . import _core, _functions, _states

__all__ = [*_functions.install(__name__, si=True), "properties", "saturation", "state", "states"]


def properties(names, *, status=False, **known):
    """Several properties of states at once, as `vek.properties`."""
    return _functions._properties(True, names, status, known)


def state(**known):
    """The state that has two known properties, as `vek.state`."""
    return _states._find(known, True, 1)[0]


def states(**known):
    """All states that have two known properties, as `vek.states`."""
    return _states._find(known, True, _core.most_states)


def saturation(**known):
    """Saturated liquid and vapour at p or t, as `vek.saturation`."""
    return _states._saturation(known, True)
