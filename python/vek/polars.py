"""Series and tables of polars. Importing this module gives tables a namespace:

>>> import polars as pl
>>> import vek.polars
>>> plant = pl.DataFrame({"pressure": [100.0, None], "temperature": [540, 540]})
>>> plant.steam.add("h", p="pressure", t="temperature")["h"].round(2).to_list()
[3475.06, nan]

Memory is shared, unless a series has missing values or several chunks.
"""
import polars as pl

from ._carriers import tuple_of
from ._columns import accessor


def evaluate(call, given, sides, fields, si):
    if not any(isinstance(value, pl.Series) for value in given):
        raise TypeError("of polars only series are taken, as an expression has no values yet")
    results = tuple_of(call(*(value.to_numpy() if isinstance(value, pl.Series) else value
                              for value in given)))
    return tuple(pl.Series(name, result) for (name, _), result in zip(fields, results))


Steam = pl.api.register_dataframe_namespace("steam")(
    accessor(lambda table, columns: table.with_columns(**columns)))
