"""Expected numbers of ordinary least squares: NumPy in 64 bits, Sxx summed in 32 bits.

Without arguments prints the estimates of both example sets with what is needed to judge the classes
of significance.  With "cells" prints every number of their sheets but counts, for
tests/data/regressions.csv.
"""

import re
import sys
from pathlib import Path

import numpy as np
from scipy import stats

HERE = Path(__file__).resolve().parent
SOURCE = (HERE / "../../src/app/example_data.h").read_text()


def example(name):
    """The values of one column of the built-in examples."""
    body = re.search(r"\b%s\{([^}]*)\}" % name, SOURCE).group(1)
    return np.array([float(v) for v in body.replace("\n", " ").split(",") if v.strip()])


def sum_of_squares_32(x):
    total = np.float32(0)
    for deviation in x.mean() - x:
        total = np.float32(float(total) + deviation * deviation)
    return float(total)


class Fit:
    def __init__(self, x, y):
        self.x, self.y, self.n = x, y, len(x)
        self.sxx = sum_of_squares_32(x)
        self.b = np.sum((y - y.mean()) * (x - x.mean())) / self.sxx
        self.a0 = y.mean() - self.b * x.mean()
        self.e = y - self.at(x)
        self.sd_fit = np.sqrt(np.sum(self.e**2) / (self.n - 2))
        self.se_b = self.sd_fit / np.sqrt(self.sxx)
        self.se_a0 = self.se_at(0.0)
        self.sdyx = np.std(self.e, ddof=1) * np.sqrt((self.n - 1) / (self.n - 2))
        self.z = self.e / self.sdyx
        # The printed table has Student's t to three decimals.
        self.t = round(stats.t.ppf(0.975, self.n - 2), 3)

    def at(self, u):
        return self.a0 + self.b * u

    def se_at(self, u):
        return self.sd_fit * np.sqrt(1 / self.n + (self.x.mean() - u) ** 2 / self.sxx)


def cells(fit, levels):
    """(row, column, value) of every number, both tables shown."""
    for row, estimate, se, expected in (11, fit.b, fit.se_b, 1), (19, fit.a0, fit.se_a0, 0):
        yield row, 2, estimate
        yield row + 1, 2, se
        yield row + 2, 2, estimate - fit.t * se
        yield row + 2, 3, estimate + fit.t * se
        yield row + 4, 2, (estimate - expected) / se
    yield 16, 2, stats.pearsonr(fit.x, fit.y)[0]
    yield 17, 2, fit.sdyx
    for row, level in zip((24, 26), levels):
        u = float(np.float32(level))
        yield row, 2, u
        yield row + 1, 2, fit.at(u) - u
        yield row + 1, 3, fit.se_at(u)
    yield 29, 2, 4
    low, high = fit.x.min(), fit.x.max()
    for k in range(11):
        u = high if k == 10 else low + k / 10 * (high - low)
        margin = fit.t * fit.se_at(u)
        yield from ((43 + k, 1 + c, v) for c, v in
                    enumerate((u, fit.at(u), fit.at(u) - margin, fit.at(u) + margin)))
    for i in range(fit.n):
        yield from ((56 + i, 1 + c, v) for c, v in
                    enumerate((fit.x[i], fit.y[i], fit.at(fit.x[i]), fit.e[i], fit.z[i])))


def runs_of_signs(e):
    signs = e >= 0
    return int(signs.sum()), int((~signs).sum()), 1 + int((signs[1:] != signs[:-1]).sum())


A, B, C, D = (example(name) for name in ("kA", "kB", "kC", "kD"))
SETS = [
    ("ols", Fit(A, B)),
    ("ols duplicate", Fit((A + C) / 2, (B + D) / 2)),
]
LEVELS = (5, 20.1)

if sys.argv[1:] == ["cells"]:
    for name, fit in SETS:
        for row, column, value in cells(fit, LEVELS):
            print(f"{name},{row},{column},{float(value)!r}")
else:
    for name, fit in SETS:
        print(name)
        for label in "b se_b a0 se_a0 sd_fit sdyx".split():
            print(f"  {label:7} {getattr(fit, label)!r}")
        df = fit.n - 2
        print("  P of slope, intercept, r:",
              2 * stats.t.sf(abs((fit.b - 1) / fit.se_b), df),
              2 * stats.t.sf(abs(fit.a0 / fit.se_a0), df), stats.pearsonr(fit.x, fit.y)[1])
        print("  residuals >= 0, < 0, runs:", *runs_of_signs(fit.e))
        print("  largest |residual| in SDs:", np.abs(fit.e - fit.e.mean()).max() / np.std(fit.e, ddof=1))
        for level in LEVELS:
            print(f"  at {level}: {fit.at(level) - level!r} SE {fit.se_at(level)!r}")
