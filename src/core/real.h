// The two numbers of the system.  Their width and their faults are types, so a formula is written
// as a formula: without casts, and without tests for what cannot be computed.
#pragma once

#include <cmath>
#include <compare>
#include <concepts>
#include <numeric>
#include <span>
#include <vector>

#include "core/fault.h"

namespace quorval {

// A 64-bit float that is always finite.  An operation that would leave the finite numbers raises a
// Fault instead; underflow goes silently to zero.
class Real {
 public:
  constexpr Real() = default;
  constexpr Real(std::integral auto value) : value_(static_cast<double>(value)) {}
  constexpr Real(double value) : value_(value) {
    if (!(value - value == 0)) Raise(Fault::Kind::kOverflow);  // infinite or not a number
  }
  constexpr explicit operator double() const { return value_; }

 private:
  double value_ = 0;
};

// For storing and formatting; arithmetic stays with Real.
constexpr double Raw(Real a) { return static_cast<double>(a); }

constexpr bool operator==(Real a, Real b) { return Raw(a) == Raw(b); }
constexpr auto operator<=>(Real a, Real b) { return Raw(a) <=> Raw(b); }

constexpr Real operator-(Real a) { return -Raw(a); }
constexpr Real operator+(Real a, Real b) { return Raw(a) + Raw(b); }
constexpr Real operator-(Real a, Real b) { return Raw(a) - Raw(b); }
constexpr Real operator*(Real a, Real b) { return Raw(a) * Raw(b); }
constexpr Real operator/(Real a, Real b) {
  if (b == 0) Raise(Fault::Kind::kDivisionByZero);
  return Raw(a) / Raw(b);
}
constexpr Real& operator+=(Real& a, Real b) { return a = a + b; }
constexpr Real& operator-=(Real& a, Real b) { return a = a - b; }
constexpr Real& operator*=(Real& a, Real b) { return a = a * b; }
constexpr Real& operator/=(Real& a, Real b) { return a = a / b; }

constexpr Real Square(Real a) { return a * a; }
inline Real Abs(Real a) { return std::fabs(Raw(a)); }
// -1, 0 or 1.
constexpr int SignOf(Real a) { return (a > 0) - (a < 0); }
// The largest whole number that is not above a.
inline Real Int(Real a) { return std::floor(Raw(a)); }
inline Real Sqrt(Real a) {
  if (a < 0) Raise(Fault::Kind::kBadArgument);
  return std::sqrt(Raw(a));
}
inline Real Exp(Real a) { return std::exp(Raw(a)); }
inline Real Log(Real a) {
  if (a <= 0) Raise(Fault::Kind::kBadArgument);
  return std::log(Raw(a));
}
// The base is not negative, or the exponent is whole.  Exponents 0, 1 and 2 are taken as products,
// which pow() does not always equal in the last bit.
inline Real Pow(Real base, Real exponent) {
  if (exponent == 0) return 1;
  if (exponent == 1) return base;
  if (exponent == 2) return Square(base);
  if (base == 0 && exponent < 0) Raise(Fault::Kind::kDivisionByZero);
  return std::pow(Raw(base), Raw(exponent));
}

// A 32-bit float.  It rounds whenever it is given a value, and only then: in a formula it widens to
// Real, so `Sxx += d * d` rounds once for each addition and `Sxy / Sxx` is computed in 64 bits.
class Single {
 public:
  constexpr Single() = default;
  constexpr explicit Single(Real value) : value_(static_cast<float>(Raw(value))) {
    if (!(value_ - value_ == 0)) Raise(Fault::Kind::kOverflow);
  }
  constexpr operator Real() const { return static_cast<double>(value_); }
  constexpr Single& operator+=(Real value) { return *this = Single(Real(*this) + value); }

 private:
  float value_ = 0;
};

// The values of one column in the order of the worksheet.
using Sample = std::vector<Real>;
using Singles = std::vector<Single>;

inline Singles ToSingles(std::span<const Real> values) {
  Singles singles;
  singles.reserve(values.size());
  for (Real value : values) singles.emplace_back(value);
  return singles;
}

inline Sample ToReals(std::span<const Single> values) { return {values.begin(), values.end()}; }

// The sum in the order of the values.
inline Real Sum(std::span<const Real> values) {
  return std::accumulate(values.begin(), values.end(), Real());
}
inline Real Sum(std::span<const Single> values) {
  return std::accumulate(values.begin(), values.end(), Real());
}

}  // namespace quorval
