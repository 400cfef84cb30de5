"""Arrays and data sets of xarray. Importing this module gives data sets an accessor:

>>> import xarray as xr
>>> import vek.xarray
>>> plant = xr.Dataset({"pressure": ("time", [100., 90.])}, {"time": [1, 2], "temperature": 540})
>>> h = plant.steam.add("h s", p="pressure", t="temperature").h
>>> h.dims, h.values.round(1), h.attrs
(('time',), array([3475.1, 3485.4]), {'long_name': 'enthalpy', 'units': 'kJ/kg'})

Dimensions and coordinates are kept, and so is laziness: of arrays on Dask nothing is computed. An
attribute `units` of what is given is heeded; where it is not spelt as the engine's, pint converts it.
"""
import xarray as xr

from ._carriers import tuple_of
from ._columns import accessor


def evaluate(call, given, sides, fields, si):
    given = [_in_unit(value, side.property, si) for value, side in zip(given, sides)]
    types = ["d" if p else "B" for _, p in fields]
    results = tuple_of(xr.apply_ufunc(call, *given, output_core_dims=[[]] * len(types),
                                      output_dtypes=types, dask="parallelized", keep_attrs=False))
    return tuple(result.rename(name).assign_attrs(_attributes(p, si))
                 for (name, p), result in zip(fields, results))


def _unit(property, si):
    return property.si_unit if si else property.unit


def _attributes(property, si):
    """As the CF conventions ask; they have no standard names for these quantities."""
    if property is None:
        return {"long_name": "code of the reason"}
    if property.identifier in ("region", "several", "approximate"):
        return {"long_name": property.name}
    return {"long_name": property.name, "units": _unit(property, si) or "1"}


def _in_unit(value, property, si):
    """An array in the unit that the engine takes."""
    units = getattr(value, "attrs", {}).get("units")
    wanted = _unit(property, si)
    if units is None or units == (wanted or "1"):
        return value
    import pint
    given = pint.get_application_registry().Quantity(value.data, units)
    return value.copy(data=given.to(wanted).magnitude)


Steam = xr.register_dataset_accessor("steam")(
    accessor(lambda dataset, columns: dataset.assign(columns)))
