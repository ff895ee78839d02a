"""Expected numbers of the gamma function, F tail and spline tests, by SciPy."""

from scipy.interpolate import CubicSpline
from scipy.special import betainc, gamma
from scipy.stats import f

print("gamma", *map(gamma, (0.5, 7.5, 21)))

print("F upper tail")
for df1, df2, F in [(1, 1, 1), (1, 10, 4.96), (2, 22, 3.44), (3, 5, 0.25), (5, 3, 9.01),
                    (30, 40, 1.74), (2, 300, 4.68), (100, 100, 1.39), (9, 4, 0)]:
    print(f"    {{{df1}, {df2}, {F}, {f.sf(F, df1, df2)!r}}},")

print("incomplete beta")
for a, b, x in [(0.5, 0.5, 0.25), (2, 3, 0.4), (10, 0.5, 0.99), (5, 5, 0.5), (1, 1, 0.3)]:
    print(f"    {{{a}, {b}, {x}, {betainc(a, b, x)!r}}},")

print("the fraction of depth 20 at large a and b, near its switching point")


def incomplete_beta(a, b, x):
    from math import exp, lgamma, log

    def fraction(a, b, x):
        t = 0.0
        for k in range(20, 0, -1):
            m = k // 2
            if k % 2 == 0:
                c = m * (b - m) * x / ((a + 2 * m - 1) * (a + 2 * m))
            else:
                c = -(a + m) * (a + b + m) * x / ((a + 2 * m) * (a + 2 * m + 1))
            t = c / (1 + t)
        return 1 / (1 + t)

    ln_power = a * log(x) + b * log(1 - x) - lgamma(a) - lgamma(b) + lgamma(a + b)
    if x <= (a + 1) / (a + b + 2):
        return exp(ln_power) / a * fraction(a, b, x)
    return 1 - exp(ln_power) / b * fraction(b, a, 1 - x)


for df1, df2, F in [(160, 160, 1.0), (160, 170, 0.999)]:
    p = incomplete_beta(df2 / 2, df1 / 2, df2 / (df1 * F + df2))
    print(f"    {{{df1}, {df2}, {F}, {p!r}}},  // exactly {f.sf(F, df1, df2)!r}")

print("natural spline")
x = [0.5, 1, 2.5, 4, 7]
y = [1.2, 0.9, 2.8, 2.0, 5.5]
spline = CubicSpline(x, y, bc_type="natural")
for u in [0.5, 0.75, 1.7, 3.3, 6.9, 7]:
    print(f"    {{{u}, {float(spline(u))!r}}},")
print([float(spline(u, 2)) for u in x])
