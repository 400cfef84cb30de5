"""Arrays and tables of Dask, lazily: properties of each block or partition.

The functions take Dask's arrays and series; `add` gives a table columns in one pass:

>>> import dask.dataframe as dd, pandas as pd
>>> import vek.dask
>>> plant = dd.from_pandas(pd.DataFrame({"p": [100, 90, 80], "t": 540}), npartitions=2)
>>> vek.dask.add(plant, "h s", p="p", t="t").compute().h.round(1).tolist()
[3475.1, 3485.4, 3495.7]

Series are aligned by their indices, for which their divisions have to be known unless they are of one
table. Workers need this package. Each block is computed by one thread, as Dask has given the cores away;
rows in errors are counted within it.
"""
from typing import Any

import numpy as np

from ._carriers import tuple_of


def add(table: Any, names: Any, *, si: bool = False, status: bool = False, **known: Any) -> Any:
    """A table with properties added, see `vek.pandas`; what is known are names of columns, or numbers."""
    for letter, value in known.items():
        if np.ndim(value):
            raise TypeError(f"{letter} is of type {type(value).__name__}, whose rows no partition is "
                            "sure to have; names of columns and numbers are accepted")
    how = {"si": si, "status": status, **known}
    return table.map_partitions(_added, names, meta=_added(table._meta, names, **how), **how)


def _added(partition, names, **how):
    from . import pandas  # gives the partitions their accessor, in workers too
    return pandas.Steam(partition).add(names, **how)


def evaluate(call, given, sides, fields, si):
    if any(hasattr(value, "map_partitions") for value in given):
        return _of_series(call, given, sides, fields, si)
    from dask import array
    _, given = array.core.unify_chunks(*(part for value in given for part in (
        value, tuple(range(value.ndim))[::-1] if getattr(value, "ndim", 0) else None)))
    outputs = ",".join(["()"] * len(fields))
    return tuple_of(array.apply_gufunc(call, f"(),()->{outputs}", *given,
                                       output_dtypes=["d" if p else "B" for _, p in fields]))


def _of_series(call, given, sides, fields, si):
    from dask import dataframe
    given, in_step = _aligned([_lazy(value, side) for value, side in zip(given, sides)])
    how = {"arguments": (call, sides, fields, si), "in_step": in_step}
    meta = _table(*[getattr(value, "_meta", value) for value in given], **how)
    table = dataframe.map_partitions(_table, *given, **how, meta=meta, align_dataframes=False)
    return tuple(table[name] for name, _ in fields)


def _lazy(value, side):
    """A series of Dask, or a number."""
    import pandas as pd
    from dask import dataframe
    if isinstance(value, pd.Series):
        return dataframe.from_pandas(value, npartitions=1)
    if np.ndim(value) and not isinstance(value, dataframe.Series):
        raise TypeError(f"{side.property.letter} is of type {type(value).__name__}; beside a series of "
                        "Dask, series of Dask or pandas and numbers are accepted")
    return value


def _aligned(given):
    """Series with the same divisions; whether rows must fit as they are, since those are unknown."""
    series = [value for value in given if hasattr(value, "divisions")]
    if not all(one.known_divisions for one in series):
        if len({one.npartitions for one in series}) > 1:
            raise ValueError("series of other partitions, and rows cannot be aligned by divisions "
                             "that are unknown")
        return given, True
    borders = sorted({border for one in series for border in one.divisions})
    return [value.repartition(divisions=borders, force=True)
            if hasattr(value, "divisions") and list(value.divisions) != borders else value
            for value in given], False


def _table(*given, arguments, in_step):
    """Of partitions, the properties side by side."""
    import pandas as pd

    from . import pandas
    call, sides, fields, si = arguments
    indices = [value.index for value in given if isinstance(value, pd.Series)]
    if in_step and not indices[0].equals(indices[-1]):
        raise ValueError("partitions of other rows, which cannot be aligned as the series' divisions "
                         "are unknown")
    return pd.concat(pandas.evaluate(call, given, sides, fields, si), axis=1)
