"""Expected numbers of the resampling, moment, normality and histogram tests.

The generator is computed in plain modular arithmetic and exact fractions, the rest by SciPy.
"""

from fractions import Fraction

import numpy as np
from scipy.stats import anderson, kurtosis, skew

MODULI = (30269, 30307, 30323)
MULTIPLIERS = (171, 172, 170)


def uniforms():
    """Every second number of the generator of Wichmann and Hill from the state 4, 4, 4."""
    state = (4, 4, 4)
    while True:
        for used in (True, False):
            state = tuple(a * s % m for a, s, m in zip(MULTIPLIERS, state, MODULI))
            if used:
                yield sum(Fraction(s, m) for s, m in zip(state, MODULI)) % 1


def first_indexes(n, count):
    draws = uniforms()
    return [int(n * next(draws)) for _ in range(count)]


draws = uniforms()
print("uniforms", [float(next(draws)) for _ in range(5)])
for n in (20, 158, 9999):
    print("indexes of", n, first_indexes(n, 12))
draws = uniforms()
thousand = [int(158 * next(draws)) for _ in range(100000)]
print("sum of 100000 indexes of 158", sum(thousand), "the last", thousand[-1])

carbamide = np.sort(np.loadtxt("../data/carbamide.csv", skiprows=1).astype(np.float32).astype(float))
exponential = np.sort(np.exp(np.linspace(-1, 2, 40)))
samples = {"carbamide": carbamide, "exponential": exponential}
for name, x in samples.items():
    print(name, "skewness", repr(skew(x)), "kurtosis", repr(kurtosis(x)))
    n = len(x)
    a2 = anderson(x).statistic
    print(name, "corrected A by the exact normal", repr(a2 * (1 + 4 / n - 25 / n**2)))

x = carbamide
n = len(x)
width = 2.15 * x.std(ddof=1) * n ** -0.2
k = int((x[-1] - x[0]) / width)
h = (x[-1] - x[0]) / k
counts = [int(np.sum((x >= x[0] + i * h) & (x < x[0] + (i + 1) * h))) for i in range(k - 1)]
counts.append(n - sum(counts))
print("carbamide classes", k, h, counts)
