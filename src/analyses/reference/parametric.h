// Parametric estimators: mean -/+ 1.96 SD of a variable that is taken as Gaussian.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "analyses/reference/reference_sample.h"
#include "core/run.h"
#include "stats/primitives.h"

namespace quorval::reference {

// The percentiles of a Gaussian variable with this mean and SD, estimated from N values, and their
// 90 % confidence limits (IFCC recommendation on the treatment of reference values, 1987; the
// factor makes the SD nearly unbiased).
ReferenceInterval EstimateGaussian(Real mean, Real sd, Real N);

// A variable that is taken as Gaussian, and the way back from it.
struct WorkingVariable {
  Sample TransformedValues{};         // in the order of the sample
  std::function<Real(Real)> inverse;  // to the scale of the data
  bool widened = false;               // the limits, for the constants estimated
  Real normality_factor = 1;
};

struct ParametricEstimate {
  Description y;                 // of the working variable
  ReferenceInterval interval{};  // on the scale of the data
  Real skewness{}, kurtosis{};
  Real outlier_limit{};
  OutlierMarks outliers{};  // on the working variable's 32-bit copy
  std::string NormalityP{};
};

ParametricEstimate EstimateOn(Run& run, const WorkingVariable& variable);

// What the sheet calls the working variable.
struct VariableNames {
  std::string_view name;                     // "power-transformed"
  std::string_view values, hyphened_values;  // "power-transformed values"
};

// Rows 15 to 47 of a transformed estimator's sheet.
void WriteTransformedRows(Run& run, const ReferenceSample& sample, const VariableNames& names,
                          const WorkingVariable& variable, const ParametricEstimate& estimate);

// The estimators with their sheets.  The transformed values are handed back for the plots.
void RunDirect(Run& run, const ReferenceSample& sample);
Sample RunLog(Run& run, const ReferenceSample& sample);
Sample RunPower(Run& run, const ReferenceSample& sample);
Sample RunExponential(Run& run, const ReferenceSample& sample);

}  // namespace quorval::reference
