"""Charts: the engine's lines on matplotlib axes, with processes along what states have in common."""
import matplotlib
import numpy as np
import pytest

matplotlib.use("agg")

from matplotlib import pyplot  # noqa: E402

import vek  # noqa: E402
from vek import charts  # noqa: E402

AXES = {"mollier": "sh", "ts": "st", "ph": "hp", "pv": "vp"}
LIVE = vek.state(p=180, t=540)
COLD = vek.state(p=40, s=LIVE.s)
CONDENSATE = vek.state(p=0.05, x=0)


@pytest.fixture(autouse=True)
def figures_are_closed():
    yield
    pyplot.close("all")


def points(line, x, y):
    return {x: np.asarray(line.get_xdata()), y: np.asarray(line.get_ydata())}


@pytest.mark.parametrize("name", AXES)
def test_lines_and_processes_are_states(name):
    x, y = AXES[name]
    ax = getattr(charts, name)(lines={"p": [40], "x": [0, 1]}, path=[LIVE, COLD, CONDENSATE],
                               marks={"drum": {"p": 180, "x": 1}})
    assert f" {x}, " in ax.get_xlabel() and f" {y}, " in ax.get_ylabel()
    expansion, straight, *dots, _, _ = [
        line for line in ax.lines if line.get_color() != "#1f4e9e"]
    np.testing.assert_allclose(vek.s(**points(expansion, x, y)), LIVE.s, rtol=1e-9)
    assert straight.get_linestyle() == "--" and len(straight.get_xdata()) == 2
    assert len(dots) == 4 and "drum" in [text.get_text() for text in ax.texts]
    isobars = [line for line in ax.lines if line.get_color() == "#1f4e9e"]
    for isobar in isobars:
        known = points(isobar, x, y)
        p = known["p"] if "p" in known else vek.p(**known)
        np.testing.assert_allclose(p[1:], 40, rtol=1e-6)  # the first of two states at 0.01 °C
    assert len(isobars) == 1
    for (low, high), letter in ((ax.get_xlim(), x), (ax.get_ylim(), y)):
        assert all(low < getattr(state, letter) < high for state in (LIVE, COLD, CONDENSATE))


@pytest.mark.parametrize("a, b, common", [
    (dict(p=10, t=100), dict(p=10, t=300), "p"), (dict(p=100, h=3374), dict(p=1, h=3374), "h"),
    (dict(t=200, p=100), dict(t=200, p=1), "t"), (dict(v=0.1, p=10), dict(v=0.1, p=30), "v"),
    (dict(t=100, x=0.5), dict(t=300, x=0.5), "x")])
def test_what_states_have_in_common_is_kept(a, b, common):
    a, b = vek.state(**a), vek.state(**b)
    ax = charts.ph(lines={}, path={"a": a, "b": b}, legend=False)
    process, *_ = ax.lines
    known = points(process, "h", "p")
    assert len(known["h"]) > 250 and process.get_linestyle() == "-"
    np.testing.assert_allclose(getattr(vek, common)(**known)[1:-1], getattr(a, common), rtol=2e-5)


def test_labels_are_on_their_lines_and_clear_of_each_other():
    figure, (left, right) = pyplot.subplots(1, 2, figsize=(16, 8))
    assert charts.mollier(right) is right and not left.lines
    figure.draw_without_rendering()
    middles = np.array([right.transData.transform(text.get_position()) for text in right.texts])
    apart = np.linalg.norm(middles[:, None] - middles, axis=2) + 1e9 * np.eye(len(middles))
    assert len(middles) > 50 and apart.min() > 6
    for text in right.texts:
        s, h = text.get_position()
        state = vek.properties("p t v x", h=h - 0.5, s=s)  # within the range also at its edge
        assert any(np.isclose(float(text.get_text()), value, rtol=0.02) for value in state)


def test_what_cannot_be_drawn_is_told():
    with pytest.raises(ValueError, match="2000"):
        charts.ts(marks=[{"p": 2000, "t": 100}])
    with pytest.raises(ValueError, match="no family"):
        charts.ts(lines={"q": [1]})
