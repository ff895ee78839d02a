#include "analyses/reference/transforms.h"

#include "core/failure.h"
#include "stats/moments.h"

namespace quorval::reference {
namespace {

// The walks are this procedure's own, and so are where they start, their first steps, how near to
// 0 they end and how far they go: any other choice gives another constant within the tolerance.
constexpr int kMostIterations = 40;
constexpr double kTolerance = 0.01;  // of the skewness or the kurtosis
constexpr double kFirstSymmetryStep = 0.25, kFirstModulusStep = 0.5;
constexpr double kStartAboveGaussian = 1.2,
                 kStartBelowGaussian = 0.8;  // by the sign of the kurtosis

Real PowerForward(Real x, Real c) { return c == 0 ? Log(x) : (Pow(x, c) - 1) / c; }
Real PowerInverse(Real v, Real c) { return c == 0 ? Exp(v) : Pow(c * v + 1, 1 / c); }

Real ExponentialForward(Real x, Real c) { return c == 0 ? x : (Exp(c * x) - 1) / c; }
Real ExponentialInverse(Real v, Real c) { return c == 0 ? v : Log(c * v + 1) / c; }

template <class Function>
Sample Map(std::span<const Real> values, Function&& function) {
  Sample mapped;
  mapped.reserve(values.size());
  for (Real value : values) mapped.push_back(function(value));
  return mapped;
}

// The step of a search: halved whenever the sign of what is to vanish changes.
class Step {
 public:
  Step(Real size, Real first) : size_(size), sign_(SignOf(first)) {}

  Real After(Real remaining) {
    if (SignOf(remaining) != sign_) size_ /= 2;
    sign_ = SignOf(remaining);
    return size_;
  }

 private:
  Real size_;
  int sign_;
};

}  // namespace

const Transform kPower{PowerForward, PowerInverse, 0.5, "Error in power transformation routine"};
const Transform kExponential{ExponentialForward, ExponentialInverse, 0.005,
                             "Error in exponential transformation routine"};

SymmetricValues SearchSymmetry(Messages& messages, const Transform& transform,
                               std::span<const Real> x) {
  return Insist(messages, transform.fault, [&] {
    Step step(kFirstSymmetryStep, Skewness(messages, x));
    Real c = transform.start;
    for (int iteration = 0; iteration < kMostIterations; ++iteration) {
      Sample y = Map(x, [&](Real value) { return transform.forward(value, c); });
      const Real g = Skewness(messages, y);
      if (Abs(g) <= kTolerance) return SymmetricValues{c, std::move(y)};
      const Real size = step.After(g);
      c += g > 0 ? -size : size;
    }
    throw Failure{};
  });
}

Real ModulusTransform(Real z, Real lambda) {
  const Real s = SignOf(z);
  if (lambda == 0) return s * Log(Abs(z) + 1);
  return s * (Pow(Abs(z) + 1, lambda) - 1) / lambda;
}

Real InverseModulus(Real v, Real lambda) {
  if (v >= 0) return lambda == 0 ? Exp(v) - 1 : Pow(lambda * v + 1, 1 / lambda) - 1;
  return lambda == 0 ? 1 - Exp(-v) : 1 - Pow(1 - lambda * v, 1 / lambda);
}

MesokurticValues SearchModulus(Messages& messages, std::span<const Real> z) {
  return Insist(messages, "Error in modulus transformation step", [&] {
    const Real untransformed = Kurtosis(z);
    Step step(kFirstModulusStep, untransformed);
    MesokurticValues found;
    Real lambda = untransformed >= 0 ? kStartAboveGaussian : kStartBelowGaussian;
    for (int iteration = 0; iteration < kMostIterations; ++iteration) {
      found = {lambda, Map(z, [&](Real value) { return ModulusTransform(value, lambda); })};
      const Real k = Kurtosis(found.w);
      if (Abs(k) < kTolerance) return found;
      const Real size = step.After(k);
      lambda += k > 0 ? -size : size;
    }
    messages.Tell("Max no. of iterations: No solution to modulus transformation");
    return found;
  });
}

}  // namespace quorval::reference
