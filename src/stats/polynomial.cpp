#include "stats/polynomial.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quorval {
namespace {

Real Product(std::span<const Real> a, std::span<const Real> b) {
  Real sum;
  for (std::size_t i = 0; i < a.size(); ++i) sum += a[i] * b[i];
  return sum;
}

// A polynomial by its values on the points and by its power-basis coefficients.
struct BasisPolynomial {
  Sample p;
  Sample c;
};

// A member of the orthonormal basis, with the norm that it had before it was divided by it.
struct Member : BasisPolynomial {
  Real norm;
};

// (x - alpha) last - beta before, where alpha is the last one's mean abscissa and beta its norm.
BasisPolynomial Recur(std::span<const Real> x, const Member& last, const Member& before) {
  const std::size_t n = x.size();
  BasisPolynomial next{.p = Sample(n), .c = Sample(last.c.size())};
  Real alpha;
  for (std::size_t i = 0; i < n; ++i) alpha += x[i] * Square(last.p[i]);
  for (std::size_t i = 0; i < n; ++i)
    next.p[i] = (x[i] - alpha) * last.p[i] - last.norm * before.p[i];
  for (std::size_t j = 0; j < next.c.size(); ++j)
    next.c[j] = (j > 0 ? last.c[j - 1] : Real()) - alpha * last.c[j] - last.norm * before.c[j];
  return next;
}

Member Normalise(BasisPolynomial polynomial) {
  const Real norm = Sqrt(Product(polynomial.p, polynomial.p));
  for (Real& value : polynomial.p) value /= norm;
  for (Real& value : polynomial.c) value /= norm;
  return {std::move(polynomial), norm};
}

std::size_t CountDifferent(std::span<const Real> x) {
  Sample sorted(x.begin(), x.end());
  std::ranges::sort(sorted);
  return static_cast<std::size_t>(std::unique(sorted.begin(), sorted.end()) - sorted.begin());
}

}  // namespace

Real Polynomial::At(Real x) const {
  Real y, power = 1;
  for (Real coefficient : b) {
    y += coefficient * power;
    power *= x;
  }
  return y;
}

inline namespace BNAMod {

Polynomial PolynomialFit(std::span<const Real> x, std::span<const Real> y, int degree) {
  const std::size_t n = x.size();
  const std::size_t terms = static_cast<std::size_t>(degree) + 1;
  // The norm of a further member is 0 here, but for rounding errors.
  if (CountDifferent(x) < terms) Raise(Fault::Kind::kDivisionByZero);
  Member before{{Sample(n), Sample(terms)}, 0};
  Member member{{Sample(n, 1 / Sqrt(n)), Sample(terms)}, 0};
  member.c[0] = 1 / Sqrt(n);

  Polynomial fit{.b = Sample(terms), .s = 0};
  Sample fitted(n);
  for (std::size_t k = 0; k < terms; ++k) {
    if (k > 0) {
      Member next = Normalise(Recur(x, member, before));
      before = std::exchange(member, std::move(next));
    }
    const Real coefficient = Product(y, member.p);
    for (std::size_t i = 0; i < n; ++i) fitted[i] += coefficient * member.p[i];
    for (std::size_t j = 0; j < terms; ++j) fit.b[j] += coefficient * member.c[j];
  }

  Real squares;
  for (std::size_t i = 0; i < n; ++i) squares += Square(y[i] - fitted[i]);
  fit.s = Sqrt(squares / (Real(n) - 1));
  return fit;
}

}  // namespace BNAMod

}  // namespace quorval
