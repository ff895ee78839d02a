"""Expected numbers of the precision tests: one-way variance components in exact fractions."""

from fractions import Fraction
from math import sqrt


def root(value):
    return sqrt(value.numerator / value.denominator)


def components(groups):
    groups = [[Fraction(x) for x in group] for group in groups]
    k, N = len(groups), sum(map(len, groups))
    M = sum(map(sum, groups)) / N
    means = [sum(g) / len(g) for g in groups]
    within = sum((x - m) ** 2 for g, m in zip(groups, means) for x in g) / (N - k)
    between = sum(len(g) * (m - M) ** 2 for g, m in zip(groups, means)) / (k - 1)
    nav = (N - sum(Fraction(len(g) ** 2) for g in groups) / N) / (k - 1)
    component = (between - within) / nav
    print("  M", repr(float(M)), "Sw", root(within), "nav", float(nav), end=" ")
    if component < 0:
        print("negative", float(component))
    else:
        print("Sb", root(component), "St", root(within + component))
    print("  means", [float(m) for m in means])


def summary(x):
    x = [Fraction(v) for v in x]
    mean = sum(x) / len(x)
    sd = root(sum((v - mean) ** 2 for v in x) / (len(x) - 1))
    print("  mean", float(mean), "SD", sd, "CV%", 100 * sd / abs(float(mean)))
    print("  standardised", [round(float((v - mean)) / sd, 4) for v in x])


level1 = "1 0.8 1.3 0.9 1.115 0.99".split()
level2 = "5.1 4.8 4.7 5.3 6.4".split()
level3 = "10.1 11.3 13.5 9.7 10.3 12.4 9.4 10.9".split()
for name, x in {"level 1": level1, "level 2": level2}.items():
    print(name)
    summary(x)
print("precision profile example")
components([level1, level2, level3])
print("unequal sizes")
components([[3, 5], [4, 9, 8], [1, 2, 3, 4, 5]])
for name in ("SiRstv", "SmLs04"):
    rows = [line.strip().split(",") for line in open(f"../../verification/nist_anova_{name}.csv")][1:]
    print(name)
    components([list(column) for column in zip(*rows)])
