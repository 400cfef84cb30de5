"""Labels on the lines of a chart, where they hide nothing of importance."""
import numpy as np

_SIZE = 7  # points, of labels on lines
_NOTE = 9  # points, of the names of states
_GAPS = 6, 14, 22, 30  # points, between a state and its name


class Labels:
    """Finds places for labels one after the other; all in points on the sheet."""

    def __init__(self, ax):
        self._ax = ax
        ax.figure.draw_without_rendering()  # a layout settles where the axes are
        self._points = 72 / ax.figure.dpi
        self._low, self._high = ax.bbox.get_points() * self._points
        self._spots = np.empty((0, 2))  # what is to be kept clear, and how far around
        self._radii = np.empty(0)

    def _on_sheet(self, x, y):
        with np.errstate(divide="ignore", invalid="ignore"):
            return self._ax.transData.transform(np.column_stack((x, y))) * self._points

    def _take(self, spots, radius):
        self._spots = np.vstack((self._spots, spots))
        self._radii = np.append(self._radii, np.full(len(spots), radius))

    def _room(self, spots):
        """How far from each spot is clear."""
        if not len(self._spots):
            return np.full(len(spots), np.inf)
        away = np.linalg.norm(spots[:, None] - self._spots, axis=2) - self._radii
        return away.min(axis=1)

    def keep_clear(self, x, y):
        """No label is put on a process or a point."""
        spots = self._on_sheet(x, y)
        self._take(_resampled(spots, 4) if len(spots) > 1 else spots, 3)

    def place(self, x, y, text, colour, guide):
        """A label on a line, as near its family's guide as there is room."""
        if len(x) < 2:
            return
        half = 0.32 * _SIZE * len(text) + 2
        spots = _resampled(self._on_sheet(x, y), 3)
        inside = ((spots > self._low + half) & (spots < self._high - half)).all(axis=1)
        inside[:1] = inside[-1:] = False
        clear = np.flatnonzero(inside)
        clear = clear[self._room(spots[clear]) > half]
        if not clear.size:
            return
        best = clear[np.argmin(self._distance(spots[clear], guide))]
        self._write(spots, best, text, colour)
        self._take(spots[best:best + 1], half)

    def _distance(self, spots, guide):
        begin, end = self._low + np.array(guide) * (self._high - self._low)
        along = end - begin
        share = np.clip((spots - begin) @ along / (along @ along), 0, 1)
        return np.linalg.norm(spots - begin - share[:, None] * along, axis=1)

    def _write(self, spots, i, text, colour):
        step = spots[i + 1] - spots[i - 1]
        angle = (np.degrees(np.arctan2(step[1], step[0])) + 90) % 180 - 90
        x, y = self._ax.transData.inverted().transform(spots[i] / self._points)
        self._ax.text(x, y, text, rotation=angle, color=colour, fontsize=_SIZE, ha="center",
                      va="center_baseline", rotation_mode="anchor", zorder=2.5, clip_on=True,
                      bbox={"facecolor": "white", "edgecolor": "none", "pad": 0.4})

    def note(self, x, y, text, colour):
        """The name of a state beside it, where nothing is hidden by it."""
        if not text:
            return
        spot = self._on_sheet([x], [y])[0]
        half = np.array([0.3 * _NOTE * len(text), 0.6 * _NOTE])
        angles = np.radians(np.arange(30, 390, 30))
        sides = np.column_stack((np.cos(angles), np.sin(angles)))
        centres = spot + np.concatenate([sides * (half + gap) for gap in _GAPS])
        room = np.min([self._room(centres + shift) for shift in _along(half)], axis=0)
        outside = ((centres - half < self._low) | (centres + half > self._high)).any(axis=1)
        best = np.argmax(np.minimum(room, half[1] + 2) - 1000 * outside)
        self._ax.annotate(text, (x, y), centres[best] - spot, textcoords="offset points",
                          color=colour, fontsize=_NOTE, fontweight="bold", ha="center",
                          va="center", zorder=5,
                          bbox={"facecolor": "white", "edgecolor": "none", "pad": 0.4})
        self._take(centres[best] + _along(half), half[1])


def _along(half):
    """Shifts from the middle of a text to its ends."""
    return np.linspace(-1, 1, 9)[:, None] * half * [1, 0]


def _resampled(spots, step):
    """Spots on a polygon at equal steps."""
    spots = spots[np.isfinite(spots).all(axis=1)]
    way = np.concatenate(([0], np.cumsum(np.hypot(*np.diff(spots, axis=0).T))))
    at = np.arange(0, way[-1] + step, step)
    return np.column_stack([np.interp(at, way, axis) for axis in spots.T])
