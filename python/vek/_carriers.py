"""Which library a call's data are of: its module here takes them to arrays and back.

Such a module has `evaluate(call, given, sides, fields, si)`: `call` takes and gives plain arrays, one
array or a tuple of as many as there are fields, which are pairs of a name and a property, the latter
None of the codes. It gives a tuple.
"""
from importlib import import_module

# Those that hold data of others come first.
_MODULES = {"xarray": "xarray", "dask": "dask", "pandas": "pandas", "polars": "polars",
            "pyarrow": "arrow"}


_TABLES = {"DataFrame", "Dataset", "LazyFrame", "RecordBatch", "Table"}


def carrier_of(values):
    """The module for some values; None for what NumPy takes as it is, which a DataFrame is too."""
    libraries = {_library(value) for value in values if type(value).__name__ not in _TABLES}
    for value in values:
        name = type(value).__name__
        if name in _TABLES and _library(value) in _MODULES and (name != "DataFrame"
                                                                or libraries & _MODULES.keys()):
            raise TypeError(f"a {name} is not taken as it is here, but its columns are")
    if "xarray" in libraries and libraries & {"pandas", "polars", "pyarrow"}:
        raise TypeError("arrays of xarray cannot be given with another library's series")
    for library, module in _MODULES.items():
        if library in libraries:
            return import_module(f".{module}", __package__)
    return None


def _library(value):
    return type(value).__module__.partition(".")[0]


def tuple_of(results):
    """What `call` gave, as a tuple."""
    return results if isinstance(results, tuple) else (results,)
