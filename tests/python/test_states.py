"""States, SI units, quantities, and the classic module."""
import pickle
from math import isnan

import numpy as np
import pint
import pytest

import vek
import vek.classic
import vek.si
from vek import _tables


def test_a_state_has_what_the_functions_give():
    for known in (dict(p=10, t=100), dict(t=100, x=0.9), dict(h=2000, s=5), dict(p=221.2, x=0)):
        state = vek.state(**known)
        for of, table in ((state, _tables.PROPERTIES), (state.liquid, _tables.LIQUID),
                          (state.vapour, _tables.VAPOUR)):
            values = vek.properties([p.identifier for p in table][:28], **known)
            for p, value in zip(_tables.PROPERTIES, values if of else ()):
                np.testing.assert_equal(float(getattr(of, p.identifier)), float(value), p.name)


def test_states_speak():
    wet = vek.state(t=100, x=0.9)
    assert wet.phase == "wet steam" and wet.region == 6 and wet.several is False
    assert isnan(wet.cp) and wet.vapour.cp == vek.saturation(t=100).vapour.cp
    for text in (repr(wet), wet._repr_html_(), repr(vek.saturation(p=1))):
        assert "enthalpy" in text and "kJ/kg" in text and "nan" not in text
    assert "2450.31" in repr(wet) and "J/kg" in repr(vek.si.state(t=373.15, x=0.9))
    assert [s.phase for s in vek.states(t=20, h=84)] == ["wet steam", "water"]
    assert vek.states(t=20, h=84)[1].several is True
    water = vek.state(p=10, t=100)
    assert water.liquid is None and pickle.loads(pickle.dumps(wet)).vapour.h == wet.vapour.h
    with pytest.raises(ValueError, match="p=2000 bar, t=100 °C: pressure 2000 is outside"):
        vek.state(p=2000, t=100)
    with pytest.raises(TypeError, match="by p or by t"):
        vek.saturation(h=100)
    with pytest.raises(AttributeError):
        wet.entropie


@pytest.mark.parametrize("value", ["1", b"1", np.str_("1"), 1j, None, [1], np.ones(2)])
def test_one_state_is_known_by_numbers(value):
    for call in (vek.state, vek.states, vek.si.state, vek.compare):
        with pytest.raises(TypeError, match="p is of type"):
            call(p=value, t=100)
    with pytest.raises(TypeError):
        vek.saturation(p=value)
    with pytest.raises(TypeError):
        vek.classic.request("pt", value, 100, "H")


def test_si_is_the_same_in_other_units():
    water, ours = vek.si.state(p=1e6, t=373.15), vek.state(p=10, t=100)
    for p in _tables.PROPERTIES:
        factor = {"bar": 1e5, "kJ/kg": 1e3, "kJ/(kg K)": 1e3, "1/bar": 1e-5, "K/bar": 1e-5,
                  "bar kg/m³": 1e5, "bar/K": 1e5}.get(p.unit, 1)
        expected = getattr(ours, p.identifier) * factor + (273.15 if p.unit == "°C" else 0)
        np.testing.assert_allclose(getattr(water, p.identifier), expected, rtol=1e-9, atol=1e-9)
        assert "bar" not in p.si_unit and "k" not in p.si_unit.replace("kg", "") and "°" not in p.si_unit
    assert vek.si.h(p=1e6, t=373.15) == vek.si.h(p=[1e6], t=373.15)[0] == water.h
    assert vek.si.properties("h t", h=water.h, p=1e6).t == pytest.approx(373.15, abs=1e-9)
    large = np.full(200_000, 1e6)  # more than the rows that are converted at a time
    assert (vek.si.h(p=large, t=373.15) == water.h).all()


def test_quantities_come_and_go():
    units = pint.UnitRegistry()
    p, t = units.Quantity([1450.377377, 14.50377377], "psi"), units.Quantity(212, "degF")
    h = vek.h(p=p, t=t)
    assert h.check("[energy]/[mass]")
    np.testing.assert_allclose(h.to("kJ/kg").magnitude, vek.h(p=[100, 1], t=100), rtol=1e-9)
    both = vek.si.properties("t rho", p=p, h=units.Quantity(3, "MJ/kg"), status=True)
    assert str(both.t.units) == "kelvin" and both.status.tolist() == [0, 0]
    assert vek.state(p=p[0], t=t).s.to("kJ/kg/K").magnitude == pytest.approx(vek.s(p=100, t=100))
    for p in _tables.PROPERTIES:
        units.Unit(p.unit), units.Unit(p.si_unit)
    with pytest.raises(pint.DimensionalityError):
        vek.h(p=units.Quantity(1, "m"), t=100)


def test_the_classic_module():
    reply = vek.classic.request("ph", 100, 3000, "T,S")
    np.testing.assert_allclose(reply.values, vek.properties("t s", p=100, h=3000), rtol=1e-6)
    reply = vek.classic.request("pt", 2000, 3000, "H.QQ")
    assert reply.flag == 2 and isnan(reply.values[1]) and len(reply.diagnostics) == 3
    assert "OUT OF RANGE IN COMT2,P= 2000,T= 3000" in reply.diagnostics[0]
    both = vek.compare(t=84, p=10)
    assert both.engine.h == vek.h(p=10, t=84) and abs(both.difference.h) < 1e-6
    for call in (lambda: vek.classic.request("hu", 1, 2, "T"), lambda: vek.compare(h=1, u=2),
                 lambda: vek.classic.request("hp", 1, 2, "T"),
                 *(lambda items=items: vek.classic.request("pt", 1, 2, items)
                   for items in ("TEMP", "H\u0308\u0308", "\U0001f525" * 3, "T\0",
                                 "H,\u00fc\u00fc\u00fc." * 1000))):
        with pytest.raises(ValueError):
            call()
    with pytest.raises(TypeError, match="items are a text"):
        vek.classic.request("pt", 1, 2, ["T", "S"])
