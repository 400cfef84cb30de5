"""Columns that are added to tables; what the accessors of several libraries have in common."""
from typing import Any

from . import _functions


def columns(table, names, known, si=False, status=False):
    """The columns of some properties, by their names; a text among what is known names a column."""
    known = {letter: table[value] if isinstance(value, str) else value
             for letter, value in known.items()}
    return _functions._properties(si, names, status, known)._asdict()


def accessor(assign):
    """A class for the libraries to hang their tables on.

    assign: what gives a table some more columns, which it takes by their names
    """

    class Steam:
        """Properties of water and steam of the rows of a table."""

        def __init__(self, table):
            self._table = table

        def add(self, names: Any, *, si: bool = False, status: bool = False, **known: Any) -> Any:
            """The table with properties added, in columns named like the functions.

            names: of the properties, as in "h s region", see `vek.properties`.
            known: two of p, t, v, h, s, u, x: names of columns, or values.
            si: True for Pa, K, J/kg; else bar, °C, kJ/kg.
            status: True adds a column `status` with the codes of the rows, for `vek.reason`.
            Rows without a state are NaN.
            """
            return assign(self._table, columns(self._table, names, known, si, status))

    return Steam
