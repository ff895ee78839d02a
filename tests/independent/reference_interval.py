"""Made samples, and the numbers that reference intervals must give on them.

Run in this folder.  Prints with "samples" ../data/reference_samples.csv (a column for each sample),
with "expected" ../data/reference_expected.csv (sample, settings, row, column and content of a cell).
Percentiles by NumPy, skewness, kurtosis, the normality statistic and the inverse functions by SciPy;
the generator in modular arithmetic.
"""

import csv
import sys

import numpy as np
from scipy.special import boxcox, inv_boxcox
from scipy.stats import anderson, kurtosis, skew, zscore

# --- The samples

random = np.random.default_rng(20240611)
SAMPLES = {
    "gauss20": random.normal(140, 10, 20).round(1),
    "gauss38": random.normal(140, 10, 38).round(1),
    "skewed39": random.lognormal(1, 0.5, 39).round(2),
    "ties119": random.normal(5, 1, 119).round(0),
    "gauss120": random.normal(5, 1, 120).round(2),
    "negative300": random.normal(0.5, 1.5, 300).round(3),
    "gamma1000": random.gamma(3, 2, 1000).round(2) + 0.01,
    "left1001": (8 - random.lognormal(0, 0.4, 1001)).round(3),
    "heavy500": (5 + 0.4 * random.standard_t(5, 500)).round(3),
    "outliers160": np.concatenate(
        [random.normal(10, 1, 153), [30, 31, 32, 33, 34, 35, -20]]).round(2),
    "five155": np.concatenate([random.normal(10, 1, 150), [30, 31, 32, 33, 34]]).round(2),
    "skewed5000": random.lognormal(2, 0.3, 5000).round(2),
}


def single(values):
    """Ascending, in 32 bits."""
    return np.sort(np.asarray(values).astype(np.float32)).astype(float)


# --- Nonparametric

RANKS = {120: (1, 7), 155: (1, 8), 158: (1, 8), 160: (1, 8), 300: (3, 13), 500: (7, 19),
         1000: (17, 34)}


def positions(n, rule):
    return (0.5 * (n + 1),
            *((p * n + 0.5) if rule == "n-half" else p * (n + 1) for p in (0.025, 0.975)))


def percentiles(x, rule):
    return np.interp(positions(len(x), rule), np.arange(1, len(x) + 1), x)


def simple(x, rule):
    n = len(x)
    median, lower, upper = percentiles(x, rule)
    cells = {(11, 2): median, (13, 2): lower, (15, 2): upper}
    if n > 1000:
        w = 1.645 * np.sqrt(0.975 * 0.025 * n)
        ranks = [r(0.5 + p * n + s * w) for p in (0.025, 0.975)
                 for r, s in ((np.floor, -1), (np.ceil, 1))]
    elif n in RANKS:
        a, b = RANKS[n]
        ranks = [a, b, n + 1 - b, n + 1 - a]
    else:
        cells[14, 1] = cells[16, 1] = "  90%-confidence interval cannot be estimated "
        return cells
    limits = [x[int(rank) - 1] for rank in ranks]
    return cells | dict(zip([(14, 2), (14, 3), (16, 2), (16, 3)], limits))


def indexes(n):
    """From 0; every second number of the generator, from the state 4, 4, 4."""
    moduli, state = (30269, 30307, 30323), (4 * 171, 4 * 172, 4 * 170)
    while True:
        yield int(n * (sum(s / m for s, m in zip(state, moduli)) % 1))
        state = tuple(s * a * a % m for s, a, m in zip(state, (171, 172, 170), moduli))


def bootstrap(x, rule, replications):
    n = len(x)
    draw = indexes(n)
    values = np.array([percentiles(np.sort(x[[next(draw) for _ in range(n)]]), rule)
                       for _ in range(replications)])
    mean, sd = values.mean(axis=0), values.std(axis=0, ddof=1)
    return {(11, 2): mean[0], (13, 2): mean[1], (15, 2): mean[2],
            (14, 2): mean[1] - 1.645 * sd[1], (14, 3): mean[1] + 1.645 * sd[1],
            (16, 2): mean[2] - 1.645 * sd[2], (16, 3): mean[2] + 1.645 * sd[2]}


# --- Parametric


def normality(y, factor):
    n = len(y)
    a = anderson(y).statistic * (1 + 4 / n - 25 / n**2) * factor
    points = [0.35, 0.49, 0.576, 0.656, 0.787, 1.09]
    if a < points[0]:
        return " > 0.5"
    if a >= points[-1]:
        return " < 0.01"
    p = np.interp(a, points, [0.5, 0.25, 0.15, 0.1, 0.05, 0.01])
    assert abs((p * 100) % 1 - 0.5) > 0.01, "too near to a half to be told by the exact normal"
    return f"{p:.2f}".rstrip("0")


def outlier_block(values, marks, count_row, limit_row, heading_row, heading):
    if not marks.any():
        return {(count_row, 1): "  No outliers  ", (count_row + 1, 2): 4}
    cells = {(count_row, 2): marks.sum(), (limit_row, 2): 4, (heading_row, 1): heading}
    for i, value in enumerate(values[marks][:5]):
        cells[heading_row + 1 + i, 1] = value
    if marks.sum() > 5:
        cells[heading_row + 6, 1] = "  More than 5 outliers that are not displayed "
    return cells


def parametric(x, y, inverse, widened, factor, transformed=True):
    n, m, s = len(y), y.mean(), y.std(ddof=1)
    k = 1.96 / (1 - 1 / (4 * (n - 1)))
    se = s * np.sqrt(1 / n + 1.96**2 / (2 * n))
    cells = {}
    for row, p in ((15, m - k * s), (17, m + k * s)):
        value, low, high = inverse(p), inverse(p - 1.645 * se), inverse(p + 1.645 * se)
        if widened:
            low, high = value - 1.25 * (value - low), value + 1.25 * (high - value)
        cells |= {(row, 2): value, (row + 1, 2): low, (row + 1, 3): high}
    cells[20, 2] = normality(y, factor)
    y32 = y.astype(np.float32).astype(float)
    marks = np.abs(zscore(y32, ddof=1)) > 4
    cells |= outlier_block(x, marks, 22, 24, 25, "  Outliers: ")
    if transformed:
        cells |= {(33, 2): y[0], (33, 3): y[-1], (34, 2): m, (35, 2): s, (36, 2): skew(y),
                  (37, 2): kurtosis(y)}
        cells |= outlier_block(y32, marks, 39, 40, 41, "  Outliers (transformed): ")
    return cells


def power(x, c):
    return boxcox(x, c)


def exponential(x, c):
    return x if c == 0 else np.expm1(c * x) / c


def inverse_exponential(v, c):
    return v if c == 0 else np.log1p(c * v) / c


def walk(start, step, first, remaining, done):
    sign, c = np.sign(first), start
    for _ in range(40):
        rest = remaining(c)
        if done(rest):
            return c
        if np.sign(rest) != sign:
            step /= 2
        sign = np.sign(rest)
        c -= step if rest > 0 else -step
    raise ArithmeticError("no solution")


def symmetry(x, transform, start):
    c = walk(start, 0.25, skew(x), lambda c: skew(transform(x, c)), lambda g: abs(g) <= 0.01)
    return c, transform(x, c)


def modulus(z):
    transform = lambda c: np.sign(z) * boxcox(np.abs(z) + 1, c)
    first = kurtosis(z)
    c = walk(1.2 if first >= 0 else 0.8, 0.5, first, lambda c: kurtosis(transform(c)),
             lambda k: abs(k) < 0.01)
    return c, transform(c)


def inverse_modulus(v, c):
    return np.sign(v) * (inv_boxcox(abs(v), c) - 1)


def direct(x):
    return {(11, 2): x.mean(), (11, 3): x.std(ddof=1), (12, 2): skew(x), (13, 2): kurtosis(x)
            } | parametric(x, x, lambda v: v, False, 1, False)


def log(x):
    return {(11, 2): np.exp(np.log(x).mean())} | parametric(x, np.log(x), np.exp, False, 1)


def one_stage(transform, inverse, start):
    def estimate(x):
        c, y = symmetry(x, transform, start)
        return {(11, 2): c} | parametric(x, y, lambda v: inverse(v, c), True, 1.2)
    return estimate


def two_stage(transform, inverse, start):
    def estimate(x):
        c, y = symmetry(x, transform, start)
        m, s = y.mean(), y.std(ddof=1)
        exponent, w = modulus((y - m) / s)
        back = lambda v: inverse(inverse_modulus(v, exponent) * s + m, c)
        return {(11, 2): c, (12, 2): exponent} | parametric(x, w, back, True, 1.4)
    return estimate


PARAMETRIC = {
    "direct": direct,
    "log": log,
    "power": one_stage(power, inv_boxcox, 0.5),
    "exponential": one_stage(exponential, inverse_exponential, 0.005),
    "power-modulus": two_stage(power, inv_boxcox, 0.5),
    "exponential-modulus": two_stage(exponential, inverse_exponential, 0.005),
}

# --- The files

writer = csv.writer(sys.stdout, lineterminator="\n")
if sys.argv[1:] == ["samples"]:
    writer.writerow(SAMPLES)
    for i in range(max(len(values) for values in SAMPLES.values())):
        writer.writerow([f"{v[i]:g}" if i < len(v) else "" for v in SAMPLES.values()])
    sys.exit()

SAMPLES["carbamide"] = np.loadtxt("../data/carbamide.csv", skiprows=1)
writer.writerow(["sample", "procedure", "rule", "row", "column", "content"])


def write(name, procedure, rule, cells):
    for (row, column), content in sorted(cells.items()):
        text = content if isinstance(content, str) else f"{content:.15g}"
        writer.writerow([name, procedure, rule, row, column, text])


for name, values in SAMPLES.items():
    x = single([float(f"{v:g}") for v in values])
    for rule in ("n-half", "n-plus-1"):
        if positions(len(x), rule)[1] < 1:
            continue
        write(name, "nonparametric", "simple-" + rule, simple(x, rule))
        if len(x) <= 1001:
            write(name, "nonparametric", "bootstrap-" + rule, bootstrap(x, rule, 200))
    for procedure, estimate in PARAMETRIC.items():
        if x[0] <= 0 and procedure in ("log", "power", "power-modulus"):
            continue
        try:
            with np.errstate(all="raise", under="ignore"):
                cells = estimate(x)
            if any(isinstance(v, float) and np.isnan(v) for v in cells.values()):
                raise ArithmeticError("a value without a counterpart")
        except (ArithmeticError, AssertionError) as failure:
            print(name, procedure, "has no result:", failure, file=sys.stderr)
            continue
        write(name, procedure, "simple-n-half", cells)
