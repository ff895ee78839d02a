"""Expected numbers of the general statistics tests, by scipy and by the plain form of the bootstrap.

Run in this folder.  Values are rounded to 32 bits first where the analyses do so.
"""

import numpy as np
from scipy import stats

GLUCOSE = [5.1, 4.8, 6.2, 5.5, 5.1, 7.9, 4.4, 5.9, 6.6, 5.1, 5.7, 4.9]
AFTER = [5.6, 5.3, 6.1, 6.4, 5.9, 8.4, 5.3, 6.1, 6.6, 6.0, 6.3, 5.2]


def single(values):
    return np.array(values, dtype=np.float32).astype(float)


def tell(name, *values):
    print(f"  {name:24}", *[repr(float(v)) for v in values])


# --- One sample


class Generator:
    """Wichmann and Hill's AS 183 from 4, 4, 4; every second number is thrown away."""

    def __init__(self):
        self.x = self.y = self.z = 4

    def uniform(self):
        self.x, self.y, self.z = 171 * self.x % 30269, 172 * self.y % 30307, 170 * self.z % 30323
        return (self.x / 30269 + self.y / 30307 + self.z / 30323) % 1

    def index(self, n):
        u = self.uniform()
        self.uniform()
        return min(int(n * u + 1), n) - 1


def at(ordered, t):
    whole = int(t)
    part = t - whole
    return ordered[whole - 1] + (part * (ordered[whole] - ordered[whole - 1]) if part else 0)


def percentile_se(ordered, t):
    generator = Generator()
    n = len(ordered)
    values = [at(sorted(ordered[generator.index(n)] for _ in range(n)), t) for _ in range(200)]
    return np.std(values, ddof=1)


def anderson_darling(ordered):
    n = len(ordered)
    a2 = stats.anderson(ordered, "norm").statistic
    return a2 * (1 + 4 / n - 25 / n**2)


print("one sample")
x = np.sort(single(GLUCOSE))
n = len(x)
tell("min max", x[0], x[-1])
tell("median mean", np.median(x), x.mean())
tell("sd sem", x.std(ddof=1), stats.sem(x))
tell("skewness kurtosis", stats.skew(x), stats.kurtosis(x))
tell("sd of them", (6 / n) ** 0.5, 2 * (6 / n) ** 0.5)
tell("Anderson-Darling", anderson_darling(x))
# The position p N + 0.5 is Hazen's rule.
tell("10..90", *np.percentile(x, range(10, 100, 10), method="hazen"))
for p in (75, 97.5, 12.3):
    p32 = float(np.float32(p))
    t = p32 / 100 * n + 0.5
    inside = 1 <= t <= n
    tell(f"percentile {p} at {t}", *([at(x, t), percentile_se(x, t)] if inside else []))
width = 2.15 * x.std(ddof=1) * n**-0.2
k = int((x[-1] - x[0]) / width)
print("  classes", k, np.histogram(x, k)[0], "of 3:", np.histogram(x, 3)[0])
tell("midpoints", *(x[0] + (np.arange(k) + 0.5) * (x[-1] - x[0]) / k))

# --- Two samples

print("two samples")
x, y = single(GLUCOSE), single(AFTER[:10])
t = stats.ttest_ind(y, x)
s1, s2 = x.std(ddof=1), y.std(ddof=1)
pooled = ((len(x) - 1) * s1**2 + (len(y) - 1) * s2**2) / (len(x) + len(y) - 2)
tell("means", x.mean(), y.mean())
tell("sds", s1, s2)
tell("sems", stats.sem(x), stats.sem(y))
tell("D SE t P", y.mean() - x.mean(), (pooled / len(x) + pooled / len(y)) ** 0.5, *t)
F = s1**2 / s2**2
tell("variances F P", s1**2, s2**2, F, 2 * stats.f.sf(F, len(x) - 1, len(y) - 1))
ranks = stats.rankdata(np.concatenate([x, y]))
R1 = ranks[: len(x)].sum()
U = stats.mannwhitneyu(x, y).statistic
assert R1 == U + len(x) * (len(x) + 1) / 2
tell("medians", np.median(x), np.median(y))
tell("mean ranks", R1 / len(x), ranks[len(x) :].mean())

print("pairs")
x, y = single(GLUCOSE), single(AFTER)
d = y - x
tell("D sd sem t P", d.mean(), d.std(ddof=1), stats.sem(d), *stats.ttest_rel(y, x))
tell("median T", np.median(d), stats.wilcoxon(d, zero_method="zsplit").statistic)

print("F tails")
for sizes, F in (((4, 6), 3.0), ((20, 4), 2.5), ((150, 151), 1.2), ((3, 3), 1.0)):
    tell(f"{sizes} {F}", min(1, 2 * stats.f.sf(F, sizes[0] - 1, sizes[1] - 1)))

# --- Several samples

print("several samples")
for name, values in (("glucose", GLUCOSE), ("after", AFTER)):
    v = np.array(values)
    z = abs(v - v.mean()) / v.std(ddof=1)
    kept = v[z <= 2]
    tell(name, v.mean(), v.std(ddof=1))
    tell(f"{name}, {len(kept)} kept", kept.mean(), kept.std(ddof=1))
    print("  out", v[z > 2])
