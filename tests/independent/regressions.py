"""Expected numbers of the weighted, Deming, weighted Deming and Passing-Bablok tests.

Written from the formulas, with plain loops and numpy.float32 where a step is 32 bits wide.  Prints
the numbers of the results sheets, row by row; what else the tests expect goes to standard error.

    (python3 regressions.py; python3 polynomial.py; python3 ordinary_least_squares.py cells) \
        > ../data/regressions.csv
"""

import math
import sys

import numpy as np

F = np.float32

X1 = [2.521, 3.341, 4.388, 5.252, 6.422, 7.443, 8.285, 9.253, 10.621, 10.405, 11.874, 13.444, 13.343,
      16.402, 19.108, 19.25, 20.917, 23.409, 5.583, 5.063, 6.272, 7.469, 10.176, 6.581, 7.63]
Y1 = [2.362, 3.548, 4.528, 4.923, 6.443, 6.494, 8.275, 9.623, 9.646, 11.542, 10.251, 11.866, 13.388,
      17.666, 17.379, 21.089, 21.296, 23.983, 5.42, 6.369, 7.899, 8.619, 11.247, 7.526, 7.653]
X2 = [2.397, 3.213, 4.161, 5.125, 6.627, 8.078, 7.938, 8.802, 9.892, 10.854, 11.38, 11.889, 13.138,
      14.375, 16.13, 20.975, 21.805, 23.302, 5.243, 5.398, 6.653, 8.013, 8.555, 6.362, 7.421]
Y2 = [2.376, 3.761, 4.655, 5.175, 6.579, 7.257, 8.189, 8.929, 9.761, 9.481, 11.261, 13.409, 13.197,
      16.479, 16.887, 19.611, 19.804, 21.498, 5.004, 6.095, 8.687, 7.994, 12.156, 6.698, 7.77]


def six_outliers():
    small = [0.25, -0.5, 0.125, -0.125, 0.5, -0.25]
    x = [float(i + 1) for i in range(40)]
    y = [v + small[i % 6] for i, v in enumerate(x)]
    for i in range(40):
        if i % 7 == 2:
            y[i] += 8 if i % 2 == 0 else -8
    return x, y


T05 = {23: 2.069, 38: 2.03 - 0.009 * (38 - 35) / 5.0, 32: 2.042 - 0.012 * 2 / 5.0, 4: 2.776}


def power(u, p):
    return {0: 1.0, 1: u, 2: u * u}[p] if p in (0, 1, 2) else math.pow(u, p)


def sd(v):
    m = sum(v) / len(v)
    return math.sqrt(sum((a - m) ** 2 for a in v) / (len(v) - 1))


def mean(v):
    s = 0.0
    for a in v:
        s += a
    return s / len(v)


def pearson(x, y):
    mx, my = mean(x), mean(y)
    return (sum((a - mx) * (b - my) for a, b in zip(x, y)) /
            math.sqrt(sum((a - mx) ** 2 for a in x) * sum((b - my) ** 2 for b in y)))


def levels(x, xc1, xc2):
    lo, hi = min(x), max(x)
    u = [lo] + [lo + f * (hi - lo) for f in (.1, .2, .3, .4, .5, .6, .7, .8, .9)] + [hi]
    return (float(F(xc1)) if xc1 else lo + 0.25 * (hi - lo),
            float(F(xc2)) if xc2 else lo + 0.75 * (hi - lo), u)


class Sheet:
    def __init__(self):
        self.cells = []

    def row(self, row, *values, first=2):
        for k, v in enumerate(values):
            if v is not None:
                self.cells.append((row, first + k, float(v)))

    def show(self, name):
        for row, column, value in self.cells:
            print(f"{name},{row},{column},{value!r}")


def note(*words):
    print(*words, file=sys.stderr)


def estimates(sheet, row, b, se_b, expected, t05):
    sheet.row(row, b)
    sheet.row(row + 1, se_b)
    sheet.row(row + 2, b - t05 * se_b, b + t05 * se_b)
    sheet.row(row + 4, (b - expected) / se_b)


def tables(sheet, bands_row, residuals_row, u, at, se_at, t05, x, y, e, z):
    for k in (0, 3, 10):
        sheet.row(bands_row + 1 + k, u[k], at(u[k]), at(u[k]) - t05 * se_at(u[k]),
                  at(u[k]) + t05 * se_at(u[k]), first=1)
    for i in (0, 6, len(x) - 1):
        sheet.row(residuals_row + 1 + i, x[i], y[i], at(x[i]), e[i], z[i], first=1)


def wls(name, x, y, P=2.0, T=0.0, xc1=None, xc2=None):
    n = len(x)
    t05 = T05[n - 2]
    T = float(F(T))
    w = [1 / power(T if a < T else a, P) for a in x]
    Sw = sum(w)
    mx = sum(a * b for a, b in zip(w, x)) / Sw
    my = sum(a * b for a, b in zip(w, y)) / Sw
    Sxx = F(0)
    Syy = Sxy = 0.0
    for wi, a, c in zip(w, x, y):
        Sxx = F(float(Sxx) + wi * (mx - a) ** 2)
        Syy += wi * (my - c) ** 2
        Sxy += wi * (mx - a) * (my - c)
    Sxx = float(Sxx)
    rw = Sxy / math.sqrt(Sxx * Syy)
    b = Sxy / Sxx
    a0 = my - mx * b
    S = math.sqrt(sum(wi * (c - (a0 + b * a)) ** 2 for wi, a, c in zip(w, x, y)) / (n - 2))
    se_b = S / math.sqrt(Sxx)
    se_a0 = S * math.sqrt(1 / Sw + mx * mx / Sxx)
    se_at = lambda u: S * math.sqrt(1 / Sw + (mx - u) ** 2 / Sxx)
    at = lambda u: a0 + b * u
    e = [c - at(a) for a, c in zip(x, y)]
    q = [math.sqrt(wi) * r for wi, r in zip(w, e)]
    factor = sd(q) * math.sqrt((n - 1) / (n - 2))
    z = [r / factor for r in q]
    s = Sheet()
    s.row(12, P)
    if T > 0:
        s.row(13, T)
    estimates(s, 14, b, se_b, 1, t05)
    s.row(19, rw)
    s.row(20, factor)
    estimates(s, 23, a0, se_a0, 0, t05)
    c1, c2, u = levels(x, xc1, xc2)
    if xc1:
        s.row(29, c1)
        s.row(30, at(c1) - c1, se_at(c1))
        s.row(31, c2)
        s.row(32, at(c2) - c2, se_at(c2))
    tables(s, 52, 64, u, at, se_at, t05, x, y, e, z)
    s.show(name)
    note("outliers", [i + 1 for i in range(n) if abs(mean(q) - q[i]) / sd(q) > 2])


def duplicates_with_outliers():
    """Each point of six_outliers() twice, the second time a little apart."""
    x, y = six_outliers()
    x2 = [v + (0.1 if i % 2 == 0 else 0.2) for i, v in enumerate(x)]
    y2 = [v + (0.25 if i % 3 == 0 else -0.125) * (5 if i % 7 == 2 else 1)
          for i, v in enumerate(y)]
    return [float(f"{v:.12g}") for v in x], [float(f"{v:.12g}") for v in x2], y, y2


def solve(Sxx, Syy, Sxy, lam):
    D = (Sxx - lam * Syy) ** 2 + 4 * lam * Sxy ** 2
    return (lam * Syy - Sxx + math.sqrt(D)) / (2 * lam * Sxy)


class Single:
    narrow = staticmethod(lambda v: float(F(v)))

    def __init__(self, x, y, ratio):
        self.x = [float(F(a)) for a in x]
        self.y = [float(F(a)) for a in y]
        self.lam = float(F(float(F(ratio)) ** 2))
        self.places = list(zip(self.x, self.y))
        self.points = [[p] for p in self.places]

    def without(self, j):
        other = Single(self.x[:j] + self.x[j + 1:], self.y[:j] + self.y[j + 1:], 1)
        other.lam = self.lam
        return other

    def ratio(self, w):
        return self.lam


class Duplicate:
    narrow = staticmethod(float)

    def __init__(self, x1, x2, y1, y2, lam=None):
        self.cols = (x1, x2, y1, y2)
        self.lam = lam  # estimated unless it is given
        self.x = [(a + b) / 2 for a, b in zip(x1, x2)]
        self.y = [(a + b) / 2 for a, b in zip(y1, y2)]
        self.places = list(zip(self.x, self.y))
        self.points = [[(a, c), (b, d)] for a, b, c, d in zip(x1, x2, y1, y2)]

    def without(self, j):
        return Duplicate(*(c[:j] + c[j + 1:] for c in self.cols), self.lam)

    def ratio(self, w):
        if self.lam is not None:
            return self.lam
        x1, x2, y1, y2 = self.cols
        return (sum(k * (a - b) ** 2 for k, a, b in zip(w, x1, x2)) /
                sum(k * (a - b) ** 2 for k, a, b in zip(w, y1, y2)))


def scatter(m, w, mx, my):
    Sxx = F(0)
    Syy = Sxy = 0.0
    for wi, row in zip(w, m.points):
        for a, c in row:
            dx, dy = mx - a, my - c
            Sxx = F(float(Sxx) + wi * (dx * dx))
            Syy += wi * (dy * dy)
            Sxy += wi * dx * dy
    return float(Sxx), Syy, Sxy


def deming(m):
    ones = [1.0] * len(m.x)
    lam = m.ratio(ones)
    mx, my = mean(m.x), mean(m.y)
    b = m.narrow(solve(*scatter(m, ones, mx, my), lam))
    return dict(lam=lam, b=b, a0=m.narrow(my - mx * b), mx=mx, my=my)


def weighted_deming(m, P, T):
    fit = deming(m)
    lam, b, mx, my = fit["lam"], fit["b"], fit["mx"], fit["my"]
    for step in range(11):
        w = []
        g = 1 + lam * b * b
        for x, y in m.places:
            d = y - (my + b * (x - mx))
            xh, yh = x + lam * b * d / g, y - d / g
            assert xh > 0 and yh > 0
            v = 1 / power((xh + lam * yh) / (1 + lam), P)
            if T != 0 and xh + lam * yh <= T + lam * T:
                v = 1 / power(T, P)
            w.append(m.narrow(v))
        Sw = sum(w)
        mx = sum(k * p[0] for k, p in zip(w, m.places)) / Sw
        my = sum(k * p[1] for k, p in zip(w, m.places)) / Sw
        lam = m.ratio(w)
        Sxx, Syy, Sxy = scatter(m, w, mx, my)
        old, b = b, m.narrow(solve(Sxx, Syy, Sxy, lam))
        rw = Sxy / math.sqrt(Sxx * Syy)
        if step > 0 and abs(b - old) < 0.000001:
            return dict(lam=lam, b=b, a0=m.narrow(my - mx * b), w=w, rw=rw)
    raise ArithmeticError("no convergence")


def errors_in_both(name, m, ratio=None, weighting=None, xc1=None, xc2=None, with_tables=True):
    n = len(m.x)
    t05 = T05[n - 2]
    fit = (lambda data: weighted_deming(data, *weighting)) if weighting else deming
    full = fit(m)
    b, a0, lam = full["b"], full["a0"], full["lam"]
    parts = [fit(m.without(j)) for j in range(n)]
    at = lambda u: a0 + b * u
    se = lambda Q, part: sd([n * Q - (n - 1) * part(p) for p in parts]) / math.sqrt(n)
    se_at = lambda u: se(at(u), lambda p: p["a0"] + p["b"] * u)
    e = [m.narrow(c - (b * a + a0)) for a, c in zip(m.x, m.y)]
    s = Sheet()
    if weighting:
        s.row(9, weighting[0])
        s.row(10, weighting[1])
    estimates(s, 11, b, se(b, lambda p: p["b"]), 1, t05)
    if weighting:
        s.row(16, full["rw"])
        q = [m.narrow(math.sqrt(k) * r) for k, r in zip(full["w"], e)]
        s.row(17, sd(q) * math.sqrt((n - 1) / (n - 2)))
    else:
        s.row(16, pearson(m.x, m.y))
        s.row(17, sd(e) * math.sqrt((n - 1) / (n - 2)))
    s.row(18, float(F(ratio)) if ratio else math.sqrt(lam))
    estimates(s, 20, a0, se(a0, lambda p: p["a0"]), 0, t05)
    c1, c2, u = levels(m.x, xc1, xc2)
    if xc1:
        s.row(25, c1)
        s.row(26, at(c1) - c1, se_at(c1))
        s.row(27, c2)
        s.row(28, at(c2) - c2, se_at(c2))
    g = 1 + lam * b * b
    r, mid = [], []
    for (x, y), d in zip(m.places, e):
        xh, yh = m.narrow(x + lam * b * d / g), m.narrow(y - d / g)
        dist = math.sqrt((x - xh) ** 2 + lam * (y - yh) ** 2)
        r.append(m.narrow(-dist if d < 0 else dist))
        mid.append((lam * yh + xh) / (lam + 1))
    z = [m.narrow(v / sd(r)) for v in r]
    if with_tables:
        tables(s, 44, 57, u, at, se_at, t05, m.x, m.y, e, z)
    s.show(name)
    note(name)
    note("r, z and m of points 1 and 7:", [(r[i], z[i], mid[i]) for i in (0, min(6, n - 1))])
    outliers = [i for i in range(n) if abs(mean(r) - r[i]) / sd(r) > 2]
    note("outliers beyond 2:", [i + 1 for i in outliers])
    return outliers, lam


def repeated(name, columns, weighting=None):
    """Without the points beyond 2 SD; the ratio stays that of all points."""
    outliers, lam = errors_in_both(name, Duplicate(*columns), None, weighting)
    retained = ([v for i, v in enumerate(c) if i not in outliers] for c in columns)
    errors_in_both(name + " repeated", Duplicate(*retained, lam), None, weighting,
                   with_tables=False)


def passing_bablok(name, x, y):
    n = len(x)
    order = lambda v: sorted(range(n), key=lambda i: v[i])
    rank_x, rank_y = {}, {}
    for k, i in enumerate(order(x)):
        rank_x[i] = k
    for k, i in enumerate(order(y)):
        rank_y[i] = k
    rs = 1 - 6 * sum((rank_x[i] - rank_y[i]) ** 2 for i in range(n)) / (n * (n * n - 1))
    slopes = [(y[j] - y[i]) / (x[j] - x[i]) for i in range(n) for j in range(i + 1, n)
              if x[i] != x[j]]
    lo, hi = min(slopes), max(slopes)
    S, c = [], 0
    for i in range(n):
        for j in range(i + 1, n):
            if x[i] != x[j]:
                S.append((y[j] - y[i]) / (x[j] - x[i]))
            elif y[i] != y[j]:
                S.append(lo - 1 if y[j] < y[i] else hi + 1)
            else:
                S.append(0.0)
                c += 1
    N = len(S)
    removed = count = 0
    for i in range(N):
        if S[i] == 0:
            count += 1
            if count <= c:
                S[i:N - 1] = S[i + 1:N]
                removed += 1
    M = N - removed
    S = sorted(S[:M])

    def central(K):
        if M % 2:
            return S[(M + 1) // 2 + K - 1]
        h = M // 2 + K
        return math.exp((math.log(S[h - 1]) + math.log(S[h])) / 2)

    K = sum(v < -1 for v in S)
    b = central(K)
    for _ in range(100):
        K = round(sum(v < -b for v in S) + 0.5 * sum(v == -b for v in S))
        new = central(K)
        change, b = abs(new - b), new
        if change < 0.0001:
            break
    C = 1.96 * math.sqrt(n * (n - 1) * (2 * n + 5) / 18)
    M1 = round((M - C) / 2)
    M2 = M - M1 + 1
    bL, bU = S[M1 + K - 1], S[M2 + K - 1]

    def intercept(s):
        v = sorted(c - s * a for a, c in zip(x, y))
        return v[n // 2] if n % 2 else (v[n // 2 - 1] + v[n // 2]) / 2

    a0, aL, aU = intercept(b), intercept(bU), intercept(bL)
    d = [c - (b * a + a0) for a, c in zip(x, y)]
    s = Sheet()
    s.row(11, b)
    s.row(12, bL, bU)
    s.row(16, rs)
    s.row(20, a0)
    s.row(21, aL, aU)
    for i in (0, 6, n - 1):
        s.row(31 + i, x[i], y[i], b * x[i] + a0, d[i], d[i] / sd(d), first=1)
    s.show(name)
    note(name, "M", M, "K", K)
    note("at 5 and 20.1:", a0 + b * 5 - 5, a0 + b * float(F(20.1)) - float(F(20.1)))


if __name__ == "__main__":
    print("case,row,column,value")
    ox, oy = six_outliers()
    mx = [(a + b) / 2 for a, b in zip(X1, X2)]
    my = [(a + b) / 2 for a, b in zip(Y1, Y2)]
    wls("wls", X1, Y1, xc1=5, xc2=20.1)
    wls("wls power 1 truncated", X1, Y1, P=1.0, T=7)
    wls("wls power 1.5", X1, Y1, P=1.5)
    wls("wls duplicate", mx, my)
    wls("wls outliers", ox, oy, P=1.0)
    errors_in_both("deming", Single(X1, Y1, 1), 1, xc1=5, xc2=20.1)
    errors_in_both("deming ratio 1.3", Single(X1, Y1, 1.3), 1.3)
    errors_in_both("deming duplicate", Duplicate(X1, X2, Y1, Y2))
    errors_in_both("deming outliers", Single(ox, oy, 1), 1)
    errors_in_both("weighted-deming", Single(X1, Y1, 1), 1, (2.0, 0.0), 5, 20.1)
    errors_in_both("weighted-deming power 1 truncated ratio 0.8", Single(X1, Y1, 0.8), 0.8,
                   (1.0, 7.0))
    errors_in_both("weighted-deming duplicate", Duplicate(X1, X2, Y1, Y2), None, (2.0, 0.0))
    errors_in_both("weighted-deming duplicate power 1.5 truncated", Duplicate(X1, X2, Y1, Y2),
                   None, (1.5, 7.0))
    errors_in_both("weighted-deming tenth step",
                   Single([1, 4, 5, 5, 7, 12], [3, 1, 8, 8, 9, 8], 1), 1, (2.0, 0.0),
                   with_tables=False)
    passing_bablok("passing-bablok", X1, Y1)
    passing_bablok("passing-bablok duplicate", mx, my)
    repeated("deming outliers duplicate", duplicates_with_outliers())
    repeated("weighted-deming outliers duplicate", duplicates_with_outliers(), (1.0, 3.0))
