"""Arrays and tables of Dask, lazily: properties of each block or partition.

The functions take Dask's arrays and series; `add` gives a table columns in one pass:

>>> import dask.dataframe as dd, pandas as pd
>>> import vek.dask
>>> plant = dd.from_pandas(pd.DataFrame({"p": [100, 90, 80], "t": 540}), npartitions=2)
>>> vek.dask.add(plant, "h s", p="p", t="t").compute().h.round(1).tolist()
[3475.1, 3485.4, 3495.7]

Workers need this package. Each block is computed by one thread, as Dask has given the cores away;
rows in errors are counted within it.
"""
from typing import Any

from ._carriers import tuple_of


def add(table: Any, names: Any, *, si: bool = False, status: bool = False, **known: Any) -> Any:
    """A table with properties added, see `vek.pandas`."""
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
    arguments = (call, sides, fields, si)
    meta = _table(*[getattr(value, "_meta", value) for value in given], arguments=arguments)
    table = dataframe.map_partitions(_table, *given, arguments=arguments, meta=meta)
    return tuple(table[name] for name, _ in fields)


def _table(*given, arguments):
    """Of partitions, the properties side by side."""
    import pandas as pd

    from . import pandas
    call, sides, fields, si = arguments
    return pd.concat(pandas.evaluate(call, given, sides, fields, si), axis=1)
