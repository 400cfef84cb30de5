"""Series and tables of pandas. Importing this module gives tables an accessor:

>>> import pandas as pd
>>> import vek.pandas
>>> plant = pd.DataFrame({"pressure": [100, 2000], "temperature": [540, 540]}, ["A", "B"])
>>> plant.steam.add("h s", p="pressure", t="temperature").round(2)
   pressure  temperature        h     s
A       100          540  3475.06  6.73
B      2000          540      NaN   NaN

Series as arguments of the functions are aligned by their indices and give series.
"""
import numpy as np
import pandas as pd

from ._carriers import tuple_of
from ._columns import accessor


def evaluate(call, given, sides, fields, si):
    series = [value for value in given if isinstance(value, pd.Series)]
    if len(series) == 2 and not series[0].index.equals(series[1].index):
        given = series = series[0].align(series[1])
    index = series[0].index if series else None
    results = tuple_of(call(*map(_array, given)))
    return tuple(pd.Series(result, index, name=name, copy=False)
                 for (name, _), result in zip(fields, results))


def _array(value):
    """Values without their labels, and not copied unless they have missing ones."""
    if not isinstance(value, pd.Series):
        return np.asarray(value)
    if isinstance(value.dtype, np.dtype) or not pd.api.types.is_numeric_dtype(value.dtype):
        return value.to_numpy()
    return value.to_numpy(float, na_value=np.nan)


Steam = pd.api.extensions.register_dataframe_accessor("steam")(
    accessor(lambda table, columns: table.assign(**columns)))
