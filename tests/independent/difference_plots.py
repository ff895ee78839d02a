"""Expected numbers of the difference plot tests, by NumPy and SciPy.

Classes of P come from the exact distribution here; the t for the limits is that of the printed
table (Student's t, two-sided 5 %), as the sheets show it.
"""

import csv
import pathlib

import numpy as np
from scipy import stats

T95 = {16: 2.12, 23: 2.069}
T_CLASSES = [(0.1, "n.s."), (0.05, "0.05-0.10"), (0.02, "0.02-0.05"), (0.01, "0.01-0.02"),
             (0.002, "0.002-0.01"), (0.001, "0.001-0.002"), (0, "< 0.001")]


def p_class(p):
    return next(name for bound, name in T_CLASSES if p >= bound)


def describe(name, v):
    print(f"{name}: mean {v.mean():.6f} SD {v.std(ddof=1):.6f} {v.min():.6f} {v.max():.6f}")


def block(name, m, v, limit):
    n = len(v)
    mean, sd = v.mean(), v.std(ddof=1)
    t = mean / (sd / np.sqrt(n))
    r, p_r = stats.pearsonr(m, np.abs(v))
    t95 = T95[n - 1]
    z = np.abs(v - mean) / sd
    print(f"{name}: mean {mean:.6f} SE {sd / np.sqrt(n):.6f}")
    print(f"  t {t:.6f} P {p_class(2 * stats.t.sf(abs(t), n - 1))}")
    print(f"  limits {mean - t95 * sd:.6f} {mean + t95 * sd:.6f}; t95 {t95:.6f} SD {sd:.6f}")
    print(f"  r {r:.6f} P = {p_r:.4f}")
    print(f"  largest z {z.max():.3f}; outliers {[int(i) + 1 for i in np.flatnonzero(z > limit)]}")


def report(name, x, y, limit, show=()):
    m, d = (x + y) / 2, y - x
    print("==", name, "n", len(x), "pair means", m.min(), m.max())
    describe("x", x)
    describe("y", y)
    block("absolute", m, d, limit)
    block("fraction", m, d / m, limit)
    block("percent", m, 100 * d / m, limit)
    for i in range(len(x)) if show else ():
        print(f"  {x[i]:.6f}|{y[i]:.6f}|{d[i]:.6f}|{d[i] / m[i]:.6f}|{100 * d[i] / m[i]:.6f}")


def made():
    x = 10.0 * np.arange(1, 25)
    d = np.resize([1, -1, 2, -2, 0.5, -0.5], 24)
    d[0] = 6
    d[12::2] = [20, -20, 20, -20, 20, -20]
    return x, x + d


x, y = made()
report("made pairs", x, y, 1.5, show=True)
m, d = (x + y) / 2, y - x
for name, outside in [("A 2", np.abs(d) > 2), ("B 5 %", np.abs(d / m) > 0.05),
                      ("C 3 to 150, 10 %", np.where(m <= 150, np.abs(d) > 3, np.abs(d / m) > 0.1))]:
    print(name, "outside:", outside.sum(), f"{100 * outside.mean():.6f}")

data = pathlib.Path(__file__).parent.parent.parent / "verification" / "pefr_bland_altman_1986.csv"
rows = list(csv.DictReader(data.open()))
column = {key: np.array([float(row[key]) for row in rows]) for key in rows[0] if key != "id"}
report("peak flow, large meter minus mini meter, first measurements", column["Mini1"],
       column["Wright1"], 4, show=True)
report("peak flow, means of both measurements", (column["Mini1"] + column["Mini2"]) / 2,
       (column["Wright1"] + column["Wright2"]) / 2, 4)
