#include "stats/polynomial.h"

#include <gtest/gtest.h>

#include "core/conversion.h"
#include "support/data_file.h"

namespace quorval {
namespace {

// Certified values: NIST Statistical Reference Datasets, linear regression.  The tolerance is
// relative, so it says to how many digits a coefficient holds.
TEST(PolynomialFit, HoldsOnTheReferenceDatasets) {
  const struct {
    const char* file;
    int degree;
    std::vector<double> b;
    double residual_sd;
    double tolerance;
  } cases[] = {
      {"nist_lin_Pontius.csv",
       2,
       {0.673565789473684E-03, 0.732059160401003E-06, -0.316081871345029E-14},
       0.205177424076185E-03,
       1e-9},
      {"nist_lin_Wampler1.csv", 5, {1, 1, 1, 1, 1, 1}, 0, 1e-8},
      {"nist_lin_Wampler2.csv", 5, {1, 0.1, 0.01, 0.001, 0.0001, 0.00001}, 0, 1e-11},
      {"nist_lin_Wampler3.csv", 5, {1, 1, 1, 1, 1, 1}, 2360.14502379268, 1e-8},
      {"nist_lin_Wampler4.csv", 5, {1, 1, 1, 1, 1, 1}, 236014.502379268, 1e-7},
      {"nist_lin_Wampler5.csv", 5, {1, 1, 1, 1, 1, 1}, 23601450.2379268, 1e-5},
  };
  for (const auto& [file, degree, b, residual_sd, tolerance] : cases) {
    SCOPED_TRACE(file);
    const auto columns = test::ReadDataFile(file);
    const Sample x = ToNumbers(columns[0]);
    const Sample y = ToNumbers(columns[1]);
    const Polynomial fit = PolynomialFit(x, y, degree);
    ASSERT_EQ(fit.b.size(), b.size());
    for (std::size_t j = 0; j < b.size(); ++j)
      EXPECT_NEAR(Raw(fit.b[j]) / b[j], 1, tolerance) << 'b' << j;
    const Real n = x.size();
    const double sd = Raw(fit.s * Sqrt((n - 1) / (n - degree - 1)));
    EXPECT_NEAR(sd, residual_sd, residual_sd == 0 ? 1e-8 : residual_sd * 1e-10);
  }
}

TEST(PolynomialFit, NeedsAsManyDifferentAbscissaeAsTerms) {
  EXPECT_THROW(PolynomialFit(Sample{2, 2, 2}, Sample{1, 2, 3}, 1), Fault);
  EXPECT_NEAR(Raw(PolynomialFit(Sample{1, 2, 4}, Sample{1, 4, 16}, 2).At(3)), 9, 1e-12);
}

}  // namespace
}  // namespace quorval
