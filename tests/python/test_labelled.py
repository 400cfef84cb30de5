"""Data with labels or chunks: what goes in as one kind comes out as it, with the bits of arrays."""
import dask.array
import dask.dataframe
import numpy as np
import pandas as pd
import polars as pl
import pyarrow as pa
import pytest
import xarray as xr

import vek
import vek.arrow
import vek.dask
import vek.pandas
import vek.polars
import vek.si
import vek.xarray

P, T = np.array([10., 100, 2000, 300]), np.array([100., 540, 540, 350])
H, S = vek.properties("h s", p=P, t=T)
KINDS = {"xarray": lambda a: xr.DataArray(a, dims="row"), "pandas": pd.Series, "polars": pl.Series,
         "nullable": lambda a: pd.Series(a, dtype="Float64"), "arrow": pa.array,
         "pandas on arrow": lambda a: pd.Series(a, dtype="float64[pyarrow]"),
         "chunked": lambda a: pa.chunked_array([a[:1], a[1:]]),
         "dask": lambda a: dask.array.from_array(a, chunks=3),
         "xarray on dask": lambda a: xr.DataArray(a, dims="row").chunk(row=3),
         "dask series": lambda a: dask.dataframe.from_pandas(pd.Series(a), npartitions=2)}


@pytest.mark.parametrize("kind", KINDS.values(), ids=KINDS)
def test_every_kind(kind):
    p, t = kind(P), kind(T)
    results = [vek.h(p=p, t=t), *vek.properties("h s", t=t, p=p, status=True)]
    for result, expected in zip(results, (H, H, S, [0, 0, *vek.h(p=P, t=T, status=True)[1][2:]])):
        assert type(result).__name__.replace("Double", "").replace("UInt8", "") \
            == type(p).__name__.replace("Double", "")
        np.testing.assert_array_equal(np.asarray(result), expected)
    si = kind(P * 1e5)
    np.testing.assert_array_equal(np.asarray(vek.si.t(h=vek.si.h(p=si, t=800.), p=si)),
                                  vek.si.t(h=vek.si.h(p=P * 1e5, t=800.), p=P * 1e5))
    with pytest.raises(ValueError, match="row [012], p=2000"):
        np.asarray(vek.h(p=kind(P[2:].repeat(2)[::-1]), t=400., errors="raise"))
    if not hasattr(p, "map_partitions"):
        assert len(vek.h(p=p[:0], t=t[:0])) == 0
    with pytest.raises(TypeError, match="out"):
        vek.h(p=p, t=t, out=np.empty(4))


@pytest.mark.parametrize("of", [xr.DataArray, pd.Series, pl.Series, pa.array])
def test_texts_are_no_numbers(of):
    with pytest.raises(TypeError, match="p is of type"):
        vek.h(p=of(["10", "20"]), t=300)


TABLES = {"pandas": pd.DataFrame, "polars": pl.DataFrame, "arrow": pa.table,
          "xarray": lambda columns: xr.Dataset({k: ("row", v) for k, v in columns.items()}),
          "dask": lambda columns: dask.dataframe.from_pandas(pd.DataFrame(columns), npartitions=2)}


@pytest.mark.parametrize("kind", TABLES)
def test_tables_get_columns(kind):
    table = TABLES[kind]({"pressure": P, "temperature": T, "h": T})
    add = {"arrow": vek.arrow.add, "dask": vek.dask.add}.get(
        kind, lambda table, names, **how: table.steam.add(names, **how))
    added = add(table, "h s", p="pressure", t="temperature", status=True)
    names = getattr(added, "column_names", None) or list(getattr(added, "columns", added))
    assert names == ["pressure", "temperature", "h", "s", "status"]
    np.testing.assert_array_equal(np.asarray(added["h"]), H)
    np.testing.assert_array_equal(np.asarray(added["s"]), S)
    np.testing.assert_array_equal(np.asarray(table["h"]), T)  # the given one is as it was
    one = add(table, ["t"], si=True, p=1e6, h="temperature")
    np.testing.assert_array_equal(np.asarray(one["t"]), vek.si.t(p=1e6, h=T))


def test_what_does_not_fit_is_told():
    p, short = pa.array([1.0, 2]), np.array([100.0, 200, 300])
    for known, error in ((dict(p=p, t=short), ValueError), (dict(p=pl.col("p"), t=1), TypeError),
                         (dict(p=pd.Series([1, pd.NA]), t=1), TypeError)):
        with pytest.raises(error):
            vek.h(**known)
    assert vek.h(p=pa.scalar(10.0), t=100).as_py() == vek.h(p=10, t=100)
    with pytest.raises(TypeError, match="cast"):
        vek.h(p=np.ones(20_000, "f4"), t=100, casting="no")


def test_dask_chunks_may_differ():
    p, t = np.linspace(1, 100, 12).reshape(3, 4), np.linspace(20, 500, 4)
    h = vek.h(p=dask.array.from_array(p, chunks=2), t=dask.array.from_array(t, chunks=3))
    np.testing.assert_array_equal(h, vek.h(p=p, t=t))


def test_dask_s_rows_are_aligned_or_refused():
    def series(values, *borders):
        rows = np.split(np.arange(len(values)), borders)
        return dask.dataframe.from_map(lambda row: pd.Series(values[row], row), rows)

    def known(values, parts):
        return dask.dataframe.from_pandas(pd.Series(values), npartitions=parts)

    for p, t in ((known(P, 2), known(T, 3)), (known(P, 2), pd.Series(T)), (series(P, 1), series(T, 1))):
        np.testing.assert_array_equal(vek.h(p=p, t=t), H)
    apart = vek.h(p=known(P, 2), t=pd.Series(T[1:], [1, 2, 3])).compute()
    np.testing.assert_array_equal(apart, [np.nan, *H[1:]])
    table = known(P, 2).to_frame("p")
    for error, call in ((ValueError, lambda: vek.h(p=series(P, 1), t=series(T, 2)).compute()),
                        (ValueError, lambda: vek.h(p=series(P, 1), t=series(T, 1, 2))),
                        (ValueError, lambda: vek.h(p=series(P, 1), t=pd.Series(T))),
                        (TypeError, lambda: vek.h(p=known(P, 2), t=T[:2])),
                        (TypeError, lambda: vek.h(p=known(P, 2), t=dask.array.from_array(T))),
                        *((TypeError, lambda t=t: vek.dask.add(table, "h", p="p", t=t))
                          for t in (T, list(T), known(T, 2)))):
        with pytest.raises(error, match="rows|partitions|of type"):
            call()


def test_tables_are_not_taken_for_columns():
    p = {"p": P}
    for table in (pl.LazyFrame(p), pa.table(p), pa.RecordBatch.from_pydict(p), xr.Dataset(p)):
        with pytest.raises(TypeError, match="but its columns are"):
            vek.h(p=table, t=100)
    for table, series in ((pd.DataFrame(p), pd.Series(T)), (pl.DataFrame(p), pl.Series(T))):
        with pytest.raises(TypeError, match="but its columns are"):
            vek.h(p=table, t=series)
    with pytest.raises(TypeError, match="another library"):
        vek.h(p=xr.DataArray(P), t=pd.Series(T))


def test_missing_values_have_no_state():
    for p in (pd.Series([1, None], dtype="Int64"), pl.Series([1, None]), pa.array([1, None])):
        h = vek.h(p=p, t=300)
        np.testing.assert_array_equal(np.asarray(h), [vek.h(p=1, t=300), np.nan])
    nothing = pa.nulls(2)
    for p in (nothing, pa.chunked_array([nothing]), pl.Series([None, None])):
        assert np.isnan(np.asarray(vek.h(p=p, t=300))).all()
    assert np.isnan(vek.h(p=nothing[0], t=300).as_py())


def test_memory_is_shared_where_it_can_be(monkeypatch):
    seen = []
    whole = vek._arrays.evaluate
    monkeypatch.setattr(vek._arrays, "evaluate", lambda *a, **k: seen.append(a[2]) or whole(*a, **k))
    p = np.linspace(1, 100, 1000)
    for kind in ("pandas", "polars", "arrow", "xarray"):
        values = KINDS[kind](p)
        vek.h(p=values, t=300)
        assert np.shares_memory(seen[-1]["p"], np.asarray(values)), kind


def test_labels_are_kept_and_aligned():
    p, t = pd.Series([100., 50], ["a", "b"]), pd.Series([300., 400], ["b", "c"])
    h = vek.h(p=p, t=t)
    assert h.name == "h" and list(h.index) == ["a", "b", "c"]
    np.testing.assert_array_equal(h, [np.nan, vek.h(p=50, t=300), np.nan])
    p = xr.DataArray([10., 20], {"unit": [1, 2]}, "unit", attrs={"units": "bar", "note": "gauge"})
    t = xr.DataArray([[100., 200, 300]], dims=("day", "time"))
    h, region = vek.properties("h region", p=p, t=t)
    assert h.name == "h" and h.dims == ("unit", "day", "time") and list(h.unit) == [1, 2]
    assert h.attrs == {"long_name": "enthalpy", "units": "kJ/kg"} and "units" not in region.attrs
    assert vek.si.x(p=p * 1e5, h=2e6).attrs["units"] == "1"
    np.testing.assert_array_equal(h[1, 0], vek.h(p=20, t=[100, 200, 300]))


def test_units_of_arrays_are_heeded():
    h = vek.h(p=xr.DataArray([1e6], attrs={"units": "Pa"}),
              t=xr.DataArray([373.15], attrs={"units": "K"}))
    np.testing.assert_allclose(h, vek.h(p=10, t=100), rtol=1e-14)
    again = vek.si.t(p=1e6, h=h)  # its own attribute says kJ/kg
    np.testing.assert_allclose(again, 373.15, rtol=1e-12)
    lazy = vek.h(p=xr.DataArray([1e6], attrs={"units": "Pa"}).chunk(), t=100)
    assert lazy.chunks and float(lazy[0]) == vek.h(p=10, t=100)


def test_dask_is_lazy_and_one_pass():
    asked = []

    def block(values):
        asked.append(len(values))
        return values

    p = dask.array.from_array(P, chunks=2).map_blocks(block, dtype=float, meta=np.empty(0))
    asked.clear()
    together = vek.properties("h s v", p=p, t=dask.array.from_array(T, chunks=2))
    assert not asked
    h, s, v = dask.compute(*together)
    assert asked == [2, 2]
    np.testing.assert_array_equal((h, s), (H, S))
