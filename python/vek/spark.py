"""Spark: columns for its tables, by way of Arrow, without pandas.

    plant = vek.spark.add(spark.read.parquet("archive"), "h s", p="pressure", t="temperature")
    h = vek.spark.function("h", "pt")
    plant = plant.withColumn("h_cold", h("p_cold", "t_cold"))

Workers need this package and pyarrow. Each task computes with the cores that Spark gives it.
"""
from functools import partial
from typing import Any

from ._tables import properties_of


def add(table: Any, names: Any, *, si: bool = False, status: bool = False, **known: Any) -> Any:
    """A table with properties added, see `vek.arrow.add`; codes are 16-bit integers."""
    for letter, name in known.items():
        if isinstance(name, str) and name not in table.columns:
            raise ValueError(f"{letter}={name!r}: no such column; there are {', '.join(table.columns)}")
        if not isinstance(name, (str, int, float)):
            raise TypeError(f"{letter} is of type {type(name).__name__}; names of columns and numbers "
                            "are accepted")
    from pyspark.sql.types import DoubleType, ShortType, StructField, StructType
    added = {p.identifier: DoubleType() for p in properties_of(names)}
    added.update({"status": ShortType()} if status else {})
    fields = {field.name: field for field in table.schema}
    fields.update({name: StructField(name, type) for name, type in added.items()})
    how = {"si": si, "status": status, **known}
    return table.mapInArrow(partial(_batches, names, how), StructType(list(fields.values())))


def _batches(names, how, batches):
    import pyarrow

    from . import arrow
    for batch in batches:
        added = arrow.add(batch, names, **how)
        if how["status"]:  # Spark has no unsigned integers
            at = added.schema.get_field_index("status")
            added = added.set_column(at, "status", added.column(at).cast(pyarrow.int16()))
        yield added


def function(name: str, pair: str, *, si: bool = False) -> Any:
    """A function of columns: a property from the two that a pair's letters name, in their order."""
    from pyspark.sql.functions import arrow_udf
    return arrow_udf(partial(_value, name, tuple(pair), si), "double")


def _value(name, letters, si, first, second):
    from . import _functions
    return _functions._properties(si, (name,), False, dict(zip(letters, (first, second))))[0]
