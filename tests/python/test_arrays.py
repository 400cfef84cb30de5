"""The functions on arrays: NumPy's rules, and the same bits as one state at a time."""
import numpy as np
import pytest

import vek
from vek import _tables

P = np.linspace(0.5, 900, 40)


def mid(side):
    return (side.lowest + side.highest) / 2


@pytest.mark.parametrize("pair", _tables.PAIRS.values(), ids=lambda pair: pair.letters)
def test_every_property_of_every_pair_has_the_bits_of_one_state(pair):
    first = np.linspace(pair.first.lowest, pair.first.highest, 23)
    second = np.linspace(pair.second.lowest, pair.second.highest, 17)[:, None]
    known = {pair.first.property.letter: first, pair.second.property.letter: second}
    for p in _tables.PROPERTIES:
        function = getattr(vek, p.identifier)
        values = function(**known)
        assert values.shape == (17, 23)
        for row in ((0, 0), (5, 7), (11, 3), (16, 22)):
            one = {k: float(np.broadcast_to(v, (17, 23))[row]) for k, v in known.items()}
            np.testing.assert_array_equal(values[row], function(**one))
