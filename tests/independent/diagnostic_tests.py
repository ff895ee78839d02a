"""Expected numbers of the tests of diagnostic tests.

Every candidate is looked at by itself, resamples are drawn in modular arithmetic, the area is held
against SciPy's Mann-Whitney statistic.  The closed form of the difference's SE is held against the
delta method on the moments of two binormal tests (derivatives by differences) and against DeLong.
"""

from math import sqrt

import numpy as np
from scipy.stats import mannwhitneyu, norm

from detection_limit import uniforms

A = [2.521, 3.341, 4.388, 5.252, 6.422, 7.443, 8.285, 9.253, 10.621, 10.405, 11.874, 13.444, 13.343,
     16.402, 19.108, 19.25, 20.917, 23.409, 5.583, 5.063, 6.272, 7.469, 10.176, 6.581, 7.63]
B = [2.362, 3.548, 4.528, 4.923, 6.443, 6.494, 8.275, 9.623, 9.646, 11.542, 10.251, 11.866, 13.388,
     17.666, 17.379, 21.089, 21.296, 23.983, 5.42, 6.369, 7.899, 8.619, 11.247, 7.526, 7.653]
C = [2.397, 3.213, 4.161, 5.125, 6.627, 8.078, 7.938, 8.802, 9.892, 10.854, 11.38, 11.889, 13.138,
     14.375, 16.13, 20.975, 21.805, 23.302, 5.243, 5.398, 6.653, 8.013, 8.555, 6.362, 7.421]
D2 = [17.376, 18.761, 19.655, 20.175, 21.579, 22.257, 23.189, 23.929, 24.761, 24.481, 26.261, 28.409,
      25.197, 31.479, 31.887, 34.611, 34.804, 36.498, 20.004, 21.095, 23.687, 7.994, 27.156, 21.698,
      22.77]
TIED = ([1, 2, 2, 3, 3, 3, 4, 5, 5, 6, 7, 9], [3, 4, 4, 5, 6, 6, 7, 7, 8, 9, 9, 10, 12, 12])


def single(values):
    return np.asarray(values, dtype=np.float32).astype(float)


def sweep(x, y):
    a = np.sort(np.concatenate([x, y]))
    cuts = np.concatenate([[a[0] - 0.00001], (a[:-1] + a[1:]) / 2, [a[-1]]])
    # The first lies below all values, even where 0.00001 is lost beside them.
    hits = np.array([[0, len(y)]] + [[(x <= c).sum(), (y > c).sum()] for c in cuts[1:]])
    return cuts, hits


def area(x, y):
    _, hits = sweep(x, y)
    spec, sens = single(hits[:, 0] / len(x)), single(hits[:, 1] / len(y))
    return np.sum(((1 - spec[:-1]) - (1 - spec[1:])) * (sens[:-1] + sens[1:]) / 2)


def resampled_se(x, y):
    x, y, draws = np.sort(x), np.sort(y), uniforms()

    def resample(v):
        return v[[int(len(v) * next(draws)) for _ in v]]

    return np.std([area(resample(x), resample(y)) for _ in range(100)], ddof=1)


def show(name, x, y):
    x, y = single(x), single(y)
    cuts, hits = sweep(x, y)
    print(name, "max sum", single(cuts)[np.argmax(hits @ [len(y), len(x)])],
          "max correct", single(cuts)[np.argmax(hits.sum(axis=1))])
    print("  area", repr(area(x, y)), "U", mannwhitneyu(y, x).statistic / len(x) / len(y), "SE",
          repr(resampled_se(x, y)))


def proportion(name, correct, n):
    p = correct / n
    print(name, p, "SE", repr(sqrt(p * (1 - p) / n)), "lower", repr(p - 1.96 * sqrt(p * (1 - p) / n)))


# --- The SE of a difference

def binormal_area(moments):
    m1, s1, m2, s2 = moments
    return norm.cdf((m2 - m1) / sqrt(s1**2 + s2**2))


def moments(x, y):
    return np.array([x.mean(), x.std(ddof=1), y.mean(), y.std(ddof=1)])


def gradient(m):
    steps = np.eye(4) * 1e-5 * m[3]
    return np.array([(binormal_area(m + s) - binormal_area(m - s)) / (2e-5 * m[3]) for s in steps])


def covariance(m, k, n, r):
    """Of the moments of two Gaussian tests that correlate by r[0] and r[1] in groups of n."""
    c = np.zeros((4, 4))
    for g in (0, 1):
        s = m[2 * g + 1] * k[2 * g + 1]
        c[2 * g, 2 * g] = r[g] * s / n[g]
        c[2 * g + 1, 2 * g + 1] = r[g]**2 * s / (2 * n[g])
    return c


def delta_se(test1, test2):
    m, k = moments(*test1), moments(*test2)
    n = [len(v) for v in test1]
    r = [np.corrcoef(a, b)[0, 1] for a, b in zip(test1, test2)]
    u, v = gradient(m), gradient(k)
    return sqrt(u @ covariance(m, m, n, (1, 1)) @ u + v @ covariance(k, k, n, (1, 1)) @ v
                - 2 * u @ covariance(m, k, n, r) @ v)


def delong_se(test1, test2):
    def placements(x, y):
        wins = np.sign(y[:, None] - x[None, :]) / 2 + 0.5
        return wins.mean(axis=0), wins.mean(axis=1)
    return sqrt(sum(np.var(p - q, ddof=1) / len(p)
                    for p, q in zip(placements(*test1), placements(*test2))))


def compare(name, test1, test2):
    test1, test2 = [[single(v) for v in t] for t in (test1, test2)]
    print(name, "D", repr(area(*test2) - area(*test1)), "SE", repr(delta_se(test1, test2)),
          "DeLong", delong_se(test1, test2))


if __name__ == "__main__":
    one = (A, [round(v + 10, 3) for v in B])
    show("example", *one)
    proportion("0.92 of 25", 23, 25)
    proportion("0.48 of 25", 12, 25)
    proportion("0.96 of 25", 24, 25)
    show("tied", *TIED)
    print("Number of classes, width of the example's first group:",
          k := int(np.ptp(A) / (2.15 * np.std(A, ddof=1) * 25**-0.2)), h := np.ptp(A) / k,
          np.histogram(A, k)[0], "second", np.ceil(np.ptp(B) / h),
          np.histogram(one[1], min(one[1]) + h * np.arange(int(np.ceil(np.ptp(B) / h)) + 1))[0])
    test1, test2 = (A, [round(v + 10, 3) for v in C]), (B, D2)
    compare("example", test1, test2)
    compare("sizes 25 and 18", (A, test1[1][:18]), (B, D2[:18]))
    compare("narrow non-diseased", ([v / 4 for v in A], test1[1]), test2)
    random = np.random.default_rng(7)
    pairs = random.multivariate_normal([0, 0], [[1, 0.6], [0.6, 1]], 200)
    diseased = random.multivariate_normal([1.2, 1.7], [[1.5, 0.8], [0.8, 2]], 150)
    compare("Gaussian", (pairs[:, 0], diseased[:, 0]), (pairs[:, 1], diseased[:, 1]))
