"""Expected numbers of the polynomial test's sheet, by NumPy and SciPy, for
tests/data/regressions.csv."""

import numpy as np
from scipy.stats import f

x = np.array([6, 7, 8, 9, 10, 11, 12, 13], float)
y = np.array([0.029, 0.052, 0.079, 0.125, 0.181, 0.261, 0.425, 0.738])
n, k = len(x), 2


def row(row, column, value):
    print(f"polynomial,{row},{column},{float(value)!r}")


def fit(k):
    shifted = np.polynomial.Polynomial.fit(x, y, k)
    return shifted.convert().coef, shifted


coef, poly = fit(k)
est = poly(x)
e = y - est
ss_reg, ss_res = ((est - y.mean()) ** 2).sum(), (e ** 2).sum()
df = n - k - 1
F = ss_reg / k / (ss_res / df)
D = ((y - fit(k - 1)[1](x)) ** 2).sum() - ss_res
F_last = D / (ss_res / df)
for j, b in enumerate(coef):
    row(6 + j, 2, b)
row(15, 4, ss_reg)
row(16, 4, ss_reg / k)
row(17, 4, ss_res)
row(18, 4, ss_res / df)
row(19, 4, (ss_res / df) ** 0.5)
row(23, 4, F)
row(23, 6, f.sf(F, k, df))
row(27, 3, F_last)
row(27, 5, f.sf(F_last, 1, df))
row(29, 4, (ss_reg / (ss_reg + ss_res)) ** 0.5)
row(35, 4, 8.5)
row(36, 4, poly(8.5))
for i in (0, 7):
    row(40 + i, 3, est[i])
    row(40 + i, 4, e[i])
    row(40 + i, 6, est[i] - 2.571 * (ss_res / df) ** 0.5)
    row(40 + i, 7, est[i] + 2.571 * (ss_res / df) ** 0.5)
