"""The documentation's notebooks: they run, and come to what their texts say of the results."""
from pathlib import Path

import jupytext
import matplotlib
import pytest

matplotlib.use("agg")

ROOT = Path(__file__).parents[2]
SAYS = {"index": "states.t.round(2)[:2].tolist() == [118.99, 179.88] and exhaust.phase == 'wet steam'",
        "cookbook/heat-rate-test": "round(rate, 1) == 8470.3 and round(uncertainty, 1) == 17.6 "
                                   "and abs(by_t[1]) == max(*abs(by_p), *abs(by_t))",
        "cookbook/rankine-cycle": "(np.diff(efficiency) > 0).all() and (np.diff(wetness) > 0).all() "
                                  "and limit == 70 and reheated > efficiency.max()",
        "cookbook/archive": "weekly.between(0.88, 0.892).all() "
                            "and run_job().startswith('0 files')",
        "cookbook/recorded-values": "archive.agrees.tolist() == [True] * 3 + [False] * 3 "
                                    "and archive.remark.iloc[-1] and -0.2 < off.mean() < 0.2 "
                                    "and both.difference.h > 1000"}


@pytest.mark.parametrize("page", SAYS)
def test_notebooks_come_to_what_they_say(page, monkeypatch):
    monkeypatch.chdir(ROOT)
    names = {}
    for cell in jupytext.read(f"docs/{page}.md").cells:
        if cell.cell_type == "code":
            exec(cell.source, names)
    matplotlib.pyplot.close("all")
    assert eval(SAYS[page], names)
