"""Expected numbers of the precision and trueness profile tests, by NumPy and SciPy."""

import numpy as np
from scipy.interpolate import CubicSpline

LEVELS = [[1, 0.8, 1.3, 0.9, 1.115, 0.99], [5.1, 4.8, 4.7, 5.3, 6.4],
          [10.1, 11.3, 13.5, 9.7, 10.3, 12.4, 9.4, 10.9]]
LINEARITY = [[2.459, 2.362, 2.376, 2.6], [3.277, 3.548, 3.761, 3.8], [4.2745, 4.528, 4.655],
             [7.1, 7.325, 7.53, 7.32, 7.05]]

print("precision profile example")
means = np.array([np.mean(v) for v in LEVELS])
sds = np.array([np.std(v, ddof=1) for v in LEVELS])
for m, s, v in zip(means, sds, LEVELS):
    print(f"  mean {m!r} SD {s!r} CV% {100 * s / m!r}",
          "largest standardised", np.abs((np.array(v) - m) / s).max())


def curve(x, y):
    """Points 2, 50 and 99 of the 100 of a natural spline."""
    spline = CubicSpline(x, y, bc_type="natural")
    X = np.linspace(min(x), max(x), 100)[[1, 49, 98]]
    return list(zip(X.tolist(), spline(X).tolist()))


print("  SD curve", curve(means, sds))
print("  CV curve", curve(means, 100 * sds / means))
print("pairs, sorted 1 2 4 7", curve([1, 2, 4, 7], [0.5, 0.3, 0.4, 1.0]))

print("linearity example as a trueness profile")
for v in LINEARITY:
    T, y = v[0], np.array(v[1:])
    sem = y.std(ddof=1) / len(y) ** 0.5
    print(f"  {T} mean {y.mean()!r} SEM {sem!r} %Mean {100 * y.mean() / T!r} %SEM {100 * sem / T!r}",
          "largest standardised", np.abs((y - y.mean()) / y.std(ddof=1)).max())
