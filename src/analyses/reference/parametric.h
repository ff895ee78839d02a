// Parametric estimators: mean -/+ 1.96 SD of a variable that is taken as Gaussian, the values
// themselves or a transform of them.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "analyses/reference/reference_interval.h"
#include "core/messages.h"
#include "stats/primitives.h"

namespace quorval::reference {

// A variable that is taken as Gaussian, and the way back from it.
struct WorkingVariable {
  Sample TransformedValues;           // ascending, as the values are
  std::function<Real(Real)> inverse;  // to the scale of the data
  // The constants of the transform, as far as they were estimated from the same values.
  std::optional<Real> SymmetryConstant{}, ModulusExponent{};
};

// Each takes the sorted values.  Where symmetry cannot be reached the boxes say so and the Failure
// goes up.
WorkingVariable Untransformed(Messages& messages, const Sample& x);
WorkingVariable ByLogarithm(Messages& messages, const Sample& x);
WorkingVariable ByPower(Messages& messages, const Sample& x);
WorkingVariable ByExponential(Messages& messages, const Sample& x);
// Two stages: to symmetry, then the modulus transform of the standardised values, which removes
// kurtosis (Boyd and Lacher, Clin Chem 1982;28:1735-1741).
WorkingVariable ByPowerAndModulus(Messages& messages, const Sample& x);
WorkingVariable ByExponentialAndModulus(Messages& messages, const Sample& x);

struct ParametricEstimate {
  WorkingVariable variable;
  Description described;         // the working variable
  ReferenceInterval interval{};  // on the scale of the data
  Real skewness{}, kurtosis{};   // of the working variable
  OutlierMarks outliers{};       // on its 32-bit copy
  std::string NormalityP{};
};

ParametricEstimate EstimateParametric(Messages& messages, WorkingVariable variable,
                                      Real outlier_limit);

// The percentiles of a Gaussian variable with this mean and SD, estimated from N values, and their
// 90 % confidence limits (IFCC recommendation on the treatment of reference values, 1987; the
// factor makes the SD nearly unbiased).
ReferenceInterval EstimateGaussian(Real mean, Real sd, Real N);

}  // namespace quorval::reference
