"""Expected numbers of the linearity tests.

The lack-of-fit test comes from two nested models by weighted least squares, the t-test from the
covariance matrix of the coefficients; P values from SciPy.
"""

import numpy as np
from scipy.stats import f, t

EXAMPLE = [[2.459, 2.362, 2.376, 2.6], [3.277, 3.548, 3.761, 3.8], [4.2745, 4.528, 4.655],
           [7.1, 7.325, 7.53, 7.32, 7.05]]
CURVED = [[1, 2.1, 1.9, 2.0], [2, 4.4, 4.1], [3, 7.0, 6.7, 6.9], [4, 10.2, 9.9], [5, 14.0, 13.6]]


def pairs(data):
    return (np.array([v[0] for v in data for _ in v[1:]]), np.array([y for v in data for y in v[1:]]))


def lack_of_fit(data, e=0.0, L=0.0):
    x, y = pairs(data)
    w = 1 / np.maximum(x, L) ** e
    levels = np.array([v[0] for v in data])
    k, N = len(data), len(x)
    A = np.column_stack([np.ones(N), x])
    G = (x[:, None] == levels).astype(float)
    root = np.sqrt(w)

    def fit(M):
        c = np.linalg.lstsq(M * root[:, None], y * root, rcond=None)[0]
        return c, np.sum(w * (y - M @ c) ** 2)

    (a0, b), SSp = fit(A)
    means, SSw = fit(G)
    s1, s2, sp = SSw / (N - k), (SSp - SSw) / (k - 2), SSp / (N - 2)
    cov = np.linalg.inv(A.T @ (A * w[:, None])) * sp
    print("  b", b, "SE", cov[1, 1] ** 0.5, "a0", a0, "SE", cov[0, 0] ** 0.5)
    print("  F", s2 / s1, "P", f.sf(s2 / s1, k - 2, N - k))
    print("  s1", s1, N - k, "s2", s2, k - 2, "pooled", sp, N - 2)
    within = w * (y - G @ means)
    line = a0 + b * levels - means
    for name, r in (("within", within), ("line", line)):
        r = r.astype(np.float32).astype(float)
        print("  standardised", name, np.round((r - r.mean()) / r.std(ddof=1), 3))


def polynomial(data, g):
    x, y = pairs(data)
    N = len(x)
    X = np.vander(x, g + 1, increasing=True)
    c = np.linalg.lstsq(X, y, rcond=None)[0]
    s2 = np.sum((y - X @ c) ** 2) / (N - g - 1)
    se = np.sqrt(np.linalg.inv(X.T @ X)[g, g] * s2)
    F = np.sum((X @ c - y.mean()) ** 2) / g / s2
    print("degree", g, "b", c.tolist(), "SDy.x", s2**0.5, "overall P", f.sf(F, g, N - g - 1))
    print("  t", c[g] / se, "SE", se, "P", 2 * t.sf(abs(c[g] / se), N - g - 1))
    return c


def deviations(data, g):
    c = polynomial(data, g)
    line = polynomial(data, 1)
    for v in data:
        P, L = np.polyval(c[::-1], v[0]), np.polyval(line[::-1], v[0])
        print("  x", v[0], "mean", np.mean(v[1:]), "L", L, "P", P, "D", P - L, "%Dif", 100 * (P - L) / L)


def repeatability(data):
    df = sum(len(v) - 2 for v in data)
    sd = sum(np.var(v[1:], ddof=1) * (len(v) - 2) for v in data) / df
    cv = sum(np.var(np.array(v[1:]) / np.mean(v[1:]), ddof=1) * (len(v) - 2) for v in data) / df
    print("pooled SD", sd**0.5, "CV%", 100 * cv**0.5,
          [100 * (max(v[1:]) - min(v[1:])) / np.mean(v[1:]) for v in data])


for e, L in ((0, 0), (2, 0), (1, 3)):
    print("example, exponent", e, "limit", L)
    lack_of_fit(EXAMPLE, e, L)
repeatability(EXAMPLE)
deviations(EXAMPLE, 2)
print("curved")
deviations(CURVED, 2)
deviations(CURVED, 3)
