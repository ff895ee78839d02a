// The procedures by their words in the dialog: how each estimates, and what its sheet and its boxes
// say.
#pragma once

#include <string_view>

#include "analyses/reference/nonparametric.h"
#include "analyses/reference/parametric.h"

namespace quorval::reference {

// Row 5 of the sheet bears one of two labels.
inline constexpr std::string_view kAnalyte = "  Analyte: ";
inline constexpr std::string_view kVariable = " Variable:";

struct NonparametricProcedure {
  std::string_view word;
  PercentilePositions (*positions)(Real N);
  bool bootstrap;
  int lower_margin;  // the lower position may reach N less this
  std::string_view analyte_label, title, rule;
};
inline constexpr NonparametricProcedure kNonparametricProcedures[] = {
    {"simple-n-half", PositionsByNHalf, false, 1, kAnalyte,
     "  Simple nonparametric procedure (default)",
     "  Percentiles as (2.5/100)N+0.5 and (97.5/100)N+0.5"},
    {"simple-n-plus-1", PositionsByNPlus1, false, 1, kVariable, "  Simple nonparametric procedure ",
     "  Percentiles as (2.5/100)(N+1) and (97.5/100)(N+1)"},
    {"bootstrap-n-half", PositionsByNHalf, true, 0, kAnalyte,
     "  Bootstrap nonparametric procedure ", "  Bootstraps of (2.5/100)N+0.5 and (97.5/100)N+0.5"},
    {"bootstrap-n-plus-1", PositionsByNPlus1, true, 1, kVariable,
     "  Bootstrap nonparametric procedure ", "  Bootstraps of (2.5/100)(N+1) and (97.5/100)(N+1)"},
};

struct ParametricProcedure {
  std::string_view word;
  WorkingVariable (*transform)(Messages&, const Sample&);
  bool needs_positive;
  std::string_view fault;  // of its arithmetic and of its sheet
  std::string_view analyte_label, title;
  // What the sheet calls the constant of row 11 and the working variable.
  std::string_view row11{}, name{}, values{}, hyphened_values{};
};
inline constexpr ParametricProcedure kParametricProcedures[] = {
    {.word = "direct",
     .transform = Untransformed,
     .needs_positive = false,
     .fault = "Error in parametric reference interval estimation",
     .analyte_label = kVariable,
     .title = "  Parametric procedure (untransformed values)"},
    {.word = "log",
     .transform = ByLogarithm,
     .needs_positive = true,
     .fault = "Error in log-parametric reference interval estimation",
     .analyte_label = kAnalyte,
     .title = "  Parametric procedure on log-transformed values",
     .row11 = "  Geometric mean: ",
     .name = "log-transformed",
     .values = "log-values",
     .hyphened_values = "log-values"},
    {.word = "power",
     .transform = ByPower,
     .needs_positive = true,
     .fault = "Error in power-parametric reference interval estimation",
     .analyte_label = kVariable,
     .title = "  Parametric procedure on basis of power-transformed values",
     .row11 = "  Power exponent: ",
     .name = "power-transformed",
     .values = "power-transformed values",
     .hyphened_values = "power-transformed-values"},
    {.word = "exponential",
     .transform = ByExponential,
     .needs_positive = false,
     .fault = "Error in exponential-parametric reference interval estimation",
     .analyte_label = kAnalyte,
     .title = "  Parametric procedure on basis of exponential-transformed values",
     .row11 = "  Exponential transformation constant: ",
     .name = "exponential-transformed",
     .values = "exponential-transformed values",
     .hyphened_values = "exponential-transformed-values"},
    {.word = "power-modulus",
     .transform = ByPowerAndModulus,
     .needs_positive = true,
     .fault = "Error",
     .analyte_label = kVariable,
     .title = "  Parametric procedure on basis of power-modulus-transformed values",
     .row11 = "  Power exponent: ",
     .name = "power-modulus-transformed",
     .values = "power-modulus-transformed values",
     .hyphened_values = "power-modulus-transformed-values"},
    {.word = "exponential-modulus",
     .transform = ByExponentialAndModulus,
     .needs_positive = false,
     .fault = "Error in exponential-modulus transformation",
     .analyte_label = kAnalyte,
     .title = "  Parametric procedure on basis of expo-modulus-transformed values",
     .row11 = "  Transformation constant: ",
     .name = "expo-modulus-transformed",
     .values = "expo-modulus-transformed values",
     .hyphened_values = "expo-modulus-transformed-values"},
};

}  // namespace quorval::reference
