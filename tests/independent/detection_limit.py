"""Expected numbers of the detection limit tests; the generator in plain modular arithmetic."""

from math import sqrt

import numpy as np

BLANKS = [7.33, 2.35, 3.21, 3.2, 5.53, 3.56, 3.41, 4.24, 2.83, 3.37,
          2.91, 2.17, 2.68, 2.58, 1.62, 3.43, 4.12, 3.17, 3.21, 4.5]
LOW = [[15.47, 15.08, 10.26, 18.96], [16.02, 17.78, 10.35, 17.97], [13.92, 16.28, 10.44, 19.67],
       [14.21, 18.48, 12.53, 18.68], [13.49, 18.07, 9.55, 19.81]]
MODULI = (30269, 30307, 30323)
MULTIPLIERS = (171, 172, 170)


def uniforms():
    """Every second number of the generator of Wichmann and Hill from the state 4, 4, 4."""
    state = (4, 4, 4)
    while True:
        for used in (True, False):
            state = tuple(a * s % m for a, s, m in zip(MULTIPLIERS, state, MODULI))
            if used:
                yield sum(s / m for s, m in zip(state, MODULI)) % 1


def percentile(x, p):
    rank = 0.5 + len(x) * p / 100
    i = int(rank)
    f = rank - i
    return x[i - 1] + f * (x[i] - x[i - 1]) if f else x[i - 1]


def limit_of_blank(blanks, alpha):
    x, n = sorted(blanks), len(blanks)
    draws = uniforms()
    replicates = [percentile(sorted(x[int(n * next(draws))] for _ in range(n)), 100 - alpha)
                  for _ in range(200)]
    return percentile(x, 100 - alpha), np.std(replicates, ddof=1)


def detection(blanks, low, alpha, z):
    LoB, se = limit_of_blank(blanks, alpha)
    df = sum(len(s) - 1 for s in low)
    SD = sqrt(sum(np.var(s, ddof=1) * (len(s) - 1) for s in low) / df)
    c = z / (1 - 1 / (4 * df))
    print("alpha", alpha, "LoB", repr(LoB), "SE", repr(se), "SD", repr(SD), "df", df, "cbeta", repr(c),
          "LoD", repr(LoB + c * SD), "SE", repr(sqrt(se**2 + c**2 * SD**2 / (2 * df))))


if __name__ == "__main__":
    x = np.array(BLANKS)
    print("blanks: mean", repr(x.mean()), "SD", repr(x.std(ddof=1)),
          "standardised", np.round((x - x.mean()) / x.std(ddof=1), 3))
    x = np.array(LOW[0])
    print("S1: mean", repr(x.mean()), "SD", repr(x.std(ddof=1)))
    detection(BLANKS, LOW, 5, 1.645)
    detection(BLANKS, LOW, 10, 2.327)
    detection(range(1, 11), [[20, 22]], 5, 1.645)
