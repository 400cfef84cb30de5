"""Properties of water and steam on the 1967 industrial formulation (IFC-67).

Functions are named after what is wanted, keywords after what is known, any two that make a pair:

>>> import vek
>>> round(vek.h(p=100, t=540), 1)
3475.1

They take arrays as well and follow NumPy's rules for them; rows without a state are NaN:

>>> vek.h(p=[100, 2000], t=540).round(1)
array([3475.1,    nan])

Units are bar, °C, m³/kg, kJ/kg, kJ/(kg K), m/s, Pa·s, W/(m K), N/m; `vek.si` has the same functions
in Pa, K and J/kg. Range: 0.006112444 to 1000 bar, 0.01 to 800 °C.
"""
from . import _core, _functions, _threads  # noqa: F401
from ._functions import properties, reason
from .classic import compare
from ._states import Phase, State, saturation, state, states

__version__ = _core.version
__all__ = [*_functions.install(__name__, si=False), "Phase", "State", "compare", "properties",
           "reason", "saturation", "state", "states"]


def __getattr__(name):
    if name in ("si", "ufuncs"):  # imported when they are first used
        import importlib
        return importlib.import_module(f"{__name__}.{name}")
    raise AttributeError(f"module {__name__!r} has no attribute {name!r}")
