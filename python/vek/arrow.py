"""Arrays and tables of Arrow.

>>> import pyarrow as pa
>>> import vek.arrow
>>> plant = pa.table({"pressure": [100.0, None], "temperature": [540, 540]})
>>> vek.arrow.add(plant, "h", p="pressure", t="temperature")["h"].to_numpy().round(2).tolist()
[3475.06, nan]

Memory is shared, unless an array has missing values; chunks are kept, and rows in errors are counted
within theirs.
"""
from typing import Any

import numpy as np
import pyarrow as pa

from ._carriers import tuple_of
from ._columns import accessor


def add(table: Any, names: Any, *, si: bool = False, status: bool = False, **known: Any) -> Any:
    """A table or record batch with properties added, see `Steam.add`."""
    return Steam(table).add(names, si=si, status=status, **known)


def evaluate(call, given, sides, fields, si):
    given = [_typed(value) for value in given]
    if not any(isinstance(value, (pa.Array, pa.ChunkedArray)) for value in given):
        return tuple(map(pa.scalar, tuple_of(call(*given))))
    in_chunks = any(isinstance(value, pa.ChunkedArray) for value in given)
    chunks = [tuple_of(call(*values)) for values in _chunks(given)]
    arrays = [[pa.array(result) for result in results] for results in zip(*chunks)]
    return tuple(pa.chunked_array(array) if in_chunks else array[0] for array in arrays)


def _typed(value):
    """Scalars as Python's; what has no type since all is missing is a number that is missing."""
    if isinstance(value, (pa.Array, pa.ChunkedArray, pa.Scalar)) and value.type == pa.null():
        value = value.cast(pa.float64())
    if isinstance(value, pa.Scalar):
        return float("nan") if value.as_py() is None else value.as_py()
    return value


def _chunks(given):
    """Arrays that follow each other, borders where any of the values has one."""
    table = pa.table({str(i): value for i, value in enumerate(given)
                      if isinstance(value, (pa.Array, pa.ChunkedArray))})
    if any(np.ndim(value) and len(value) != table.num_rows for value in given):
        raise ValueError(f"columns of {' and '.join(str(len(value)) for value in given)} rows")
    first = 0
    for batch in table.to_batches() or [table]:
        rows = slice(first, first + batch.num_rows)
        yield [batch[str(i)].to_numpy(zero_copy_only=False) if str(i) in table.schema.names
               else value if not getattr(value, "ndim", 0) else value[rows]
               for i, value in enumerate(given)]
        first = rows.stop


def _assigned(table, columns):
    for name, column in columns.items():
        at = table.schema.get_field_index(name)
        table = (table.append_column(name, column) if at < 0
                 else table.set_column(at, name, column))
    return table


Steam = accessor(_assigned)
