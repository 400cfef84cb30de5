"""The functions on arrays: NumPy's rules, and the same bits as one state at a time."""
import numpy as np
import pytest
from hypothesis import given, settings
from hypothesis import strategies as st
from hypothesis.extra import numpy as hnp

import vek
from vek import _core, _tables


@pytest.fixture(autouse=True)
def threads():
    before = _core.threads()
    _core.set_threads(2)  # whatever the machine has
    yield
    _core.set_threads(before)


@pytest.mark.parametrize("pair", _tables.PAIRS.values(), ids=lambda pair: pair.letters)
def test_every_property_of_every_pair_has_the_bits_of_one_state(pair):
    first = np.linspace(pair.first.lowest, pair.first.highest, 23)
    second = np.linspace(pair.second.lowest, pair.second.highest, 17)[:, None]
    known = {pair.first.property.letter: first, pair.second.property.letter: second}
    rows = [(0, 0), (5, 7), (11, 3), (16, 22)]
    for p in _tables.PROPERTIES:
        for module in (vek, vek.si):
            function = getattr(module, p.identifier)
            values = function(**known)
            assert values.shape == (17, 23)
            for row in rows:
                one = {k: float(np.broadcast_to(v, (17, 23))[row]) for k, v in known.items()}
                np.testing.assert_array_equal(values[row], function(**one))
    together = vek.properties([*_tables.EVERY][:25], status=True, **known)
    np.testing.assert_array_equal(together.h, vek.h(**known))
    np.testing.assert_array_equal(together.status == 0, ~np.isnan(together.p))


TYPES = st.sampled_from([np.float64, np.float32, np.int32, np.uint8, ">f8"])


@st.composite
def layouts(draw, shape):
    """Pressures of any type, byte order, alignment, strides and memory order."""
    values = draw(hnp.arrays(np.uint8, shape, elements=st.integers(0, 200)))
    array = values.astype(draw(TYPES))
    kind = draw(st.sampled_from(["C", "F", "steps", "backwards", "unaligned", "read only"]))
    if kind == "F":
        return np.asfortranarray(array)
    if kind == "steps":
        wide = np.zeros((*shape[:-1], 3 * shape[-1]), array.dtype)
        wide[..., ::3] = array
        return wide[..., ::3]
    if kind == "backwards":
        return array[::-1][::-1].copy()[..., ::-1]
    if kind == "unaligned":
        record = np.zeros(shape, [("tag", "S3"), ("p", array.dtype)])
        record["p"] = array
        return record["p"]
    array.flags.writeable = kind != "read only"
    return array


@settings(max_examples=150, deadline=None)
@given(st.data(), hnp.mutually_broadcastable_shapes(num_shapes=2, min_dims=1, max_dims=3,
                                                    max_side=5))
def test_layouts_are_numpys(data, shapes):
    p, t = (data.draw(layouts(shape)) for shape in shapes.input_shapes)
    before = p.copy(), t.copy()
    h = vek.h(p=p, t=t)
    assert h.shape == shapes.result_shape and h.dtype == np.float64
    expected = [vek.h(p=float(a), t=float(b)) for a, b in np.broadcast(p, t)]
    np.testing.assert_array_equal(h.ravel(), expected)
    out = np.empty(h.shape + (2,))[..., 1]
    where = data.draw(hnp.arrays(bool, shapes.result_shape))
    assert vek.h(p=p, t=t, out=out) is out
    np.testing.assert_array_equal(out, h)
    np.testing.assert_array_equal(vek.h(p=p, t=t, where=where), np.where(where, h, np.nan))
    np.testing.assert_array_equal((p, t)[0], before[0])
    np.testing.assert_array_equal((p, t)[1], before[1])


def test_large_layouts_are_as_small_ones():
    p, t = np.linspace(1, 990, 200)[:, None], np.linspace(1, 799, 120)
    h, status = vek.h(p=p, t=t, status=True)
    small = [vek.h(p=row, t=t) for row in p]
    where = np.random.default_rng(1).random(h.shape) < 0.5
    whole = [np.broadcast_to(x, h.shape).copy() for x in (p, t)]
    out = np.full(h.shape, 7.0)
    for first, second in ((p, t), whole, (np.asfortranarray(whole[0]), whole[1]),
                          (whole[0].astype(">f8"), t), (whole[0].T.copy().T, whole[1][::-1][::-1])):
        before = first.copy()
        np.testing.assert_array_equal(vek.h(p=first, t=second), small)
        picked, codes = vek.h(p=first, t=second, where=where, status=True)
        np.testing.assert_array_equal(picked, np.where(where, h, np.nan))
        np.testing.assert_array_equal(codes, np.where(where, status, _core.not_reached))
        assert vek.h(p=first, t=second, out=out, where=where) is out
        np.testing.assert_array_equal(out, np.where(where, h, 7))
        np.testing.assert_array_equal(first, before)
    column = np.arange(1, 20_001, dtype="i2") % 300
    np.testing.assert_array_equal(vek.h(p=column, t=300), [*vek.h(p=column[:300], t=300)] * 66
                                  + [*vek.h(p=column[:200], t=300)])
    with pytest.raises(TypeError, match="cast"):
        vek.h(p=column.astype(np.longdouble), t=300)


def test_scalars_and_nothing():
    assert isinstance(vek.h(p=10, t=100), float)
    assert vek.h(t=100, p=10) == vek.h(p=np.float64(10), t=100) == vek.h(p=np.array(10.), t=[100])[0]
    assert vek.h(p=np.empty((0, 3)), t=1).shape == (0, 3)
    assert vek.h(p=[], t=[], errors="raise").shape == (0,)
    assert np.isnan(vek.h(p=float("nan"), t=1)) and np.isnan(vek.h(p=1e400, t=1))
    masked = vek.h(p=np.ma.array([1, 2000., 3], mask=[0, 1, 0]), t=200, errors="raise")
    assert masked.mask.tolist() == [False, True, False]


def test_outputs_that_overlap():
    column = np.linspace(1, 300, 9000)
    h = vek.h(p=column, t=300)
    same = column.copy()
    assert vek.h(p=same, t=300, out=same) is same
    shifted = np.append(column, 0)
    vek.h(p=shifted[:-1], t=300, out=shifted[1:])
    for result in (same, shifted[1:]):
        np.testing.assert_array_equal(result, h)
    twice = np.empty(9000)
    vek.properties("h s", p=column, t=300, out=(twice, twice))
    assert np.isin(twice, (h, vek.s(p=column, t=300))).all()
    broadcast = np.broadcast_to(np.zeros(1), 9000)
    with pytest.raises(ValueError):
        vek.h(p=column, t=300, out=broadcast)


def test_refusals():
    p, t = [10, 2000, np.nan, np.inf], [100, 100, 100, 100]
    h, status = vek.h(p=p, t=t, status=True)
    assert np.isnan(h).tolist() == [False, True, True, True]
    assert [vek.reason(code) for code in status] == [
        "there is a state", "the pressure is outside its range", "a given value is not a number",
        "the pressure is outside its range"]
    accepted = "pressure 2000 is outside 0.006112444 to 1000 bar"
    for function, known, message in (
            (vek.h, dict(p=p, t=t), f"row 1, p=2000 bar, t=100 °C: {accepted}"),
            (vek.s, dict(p=[[1, 2], [3, 2000]], t=7), f"row 1, 1, p=2000 bar, t=7 °C: {accepted}"),
            (vek.h, dict(p=2000, t=7), f"p=2000 bar, t=7 °C: {accepted}"),
            (vek.si.h, dict(p=2e8, t=300), f"p=200000000 Pa, t=300 K: {accepted}"),
            (vek.t, dict(h=[100, 4000], p=[10, np.nan]),
             "row 1, p=nan bar, h=4000 kJ/kg: pressure is not")):
        with pytest.raises(ValueError, match=message.replace(".", r"\.")):
            function(**known, errors="raise")
    out = np.empty(2)
    assert vek.h(p=[1, 2], t=100, errors="raise", out=out) is out
    left_out = vek.h(p=[1, 2000], t=100, where=[True, False], errors="raise", status=True)
    assert np.isnan(left_out[0][1]) and left_out[1][1] == _core.not_reached


ALL_PAIRS = ", ".join(pair.letters for pair in _tables.PAIRS.values())


@pytest.mark.parametrize("known, error, says", [
    (dict(p=1), TypeError, ALL_PAIRS), (dict(p=1, q=2), TypeError, ALL_PAIRS),
    (dict(), TypeError, ALL_PAIRS), (dict(p=1, t=2, h=3), TypeError, ALL_PAIRS),
    (dict(t=1, x=2, u=None), TypeError, ALL_PAIRS),
    (dict(p="10", t=1), TypeError, "p is of type"), (dict(p=1, t=[None]), TypeError, "t is of"),
    (dict(p=[object()], t=1), TypeError, "p is of type object"),
    (dict(p=1j, t=1), TypeError, "p is of type complex"),
    (dict(p=np.array("2020", "M8[D]"), t=1), TypeError, "p is of type datetime"),
    (dict(p=np.zeros(2, "m8[s]"), t=1), TypeError, "p is of type timedelta"),
    (dict(p=10**400, t=1), TypeError, "p is of type object"),
    (dict(p=np.longdouble(1), t=1), TypeError, "cast"),
    (dict(p=[1, 2, 3], t=[1, 2]), ValueError, "shape"),
    (dict(p=[[1, 2], [3]], t=1), ValueError, "shape"),
    (dict(p=[1, 2], t=1, out=np.zeros(3)), ValueError, "shape"),
    (dict(p=[1, 2], t=1, out=np.zeros(2, int)), TypeError, "cast"),
    (dict(p=[1, 2], t=1, out=[0, 0]), TypeError, "ArrayType"),
    (dict(p=[1., 2], t=1, where=[1, 2, 3]), ValueError, "shape"),
    (dict(p=1, t=2, errors="ignore"), ValueError, "errors is")])
def test_bad_input_is_told(known, error, says):
    with pytest.raises(error, match=says):
        vek.h(**known)
    with pytest.raises(TypeError, match="by their names"):
        vek.h(10, 100)


def test_readonly_output_is_refused():
    out = np.zeros(2)
    out.flags.writeable = False
    with pytest.raises(ValueError, match="read-only"):
        vek.h(p=[1, 2], t=1, out=out)
    assert (out == 0).all()
    with pytest.raises(ValueError, match="no such property"):
        vek.properties("h lambada", p=1, t=1)
