#include "analyses/regression/deming_report.h"

namespace quorval::regression {
namespace {

constexpr int kBandsRow = 44;
constexpr int kResidualsRow = 57;

// The short tables of a re-analysis.
void WriteShortTables(Run& run, const DemingFit& fit, const Bands& bands,
                      const DistanceResiduals& distances) {
  if (run.form.On(kShowBands)) WriteBands(run, kBandsRow, {}, bands);
  if (!run.form.On(kShowResiduals)) return;
  run.sheet.Row(kResidualsRow, "  x value", "  y value",
                "  Residual distances at an angle to the line");
  for (std::size_t i = 0; i < fit.e.size(); ++i)
    run.sheet.Row(kResidualsRow + 1 + static_cast<int>(i), fit.data.x[i], fit.data.y[i],
                  distances.r[i]);
}

}  // namespace

void WriteRatio(Run& run, const DemingLine& line, std::string_view estimated_label) {
  if (IsDuplicate(run.form)) {
    run.sheet.Row(18, estimated_label, Sqrt(line.lambda));
  } else {
    run.sheet.Row(18, "  Assigned   SDax/SDay", Real(run.form.Number32(kSdRatio)));
  }
}

void WriteDemingTables(Run& run, const DemingFit& fit, const Bands& bands,
                       const DistanceResiduals& distances, const Sample& z) {
  if (run.repeated != nullptr) return WriteShortTables(run, fit, bands, distances);
  if (run.form.On(kShowBands)) WriteBands(run, kBandsRow, "Estim. y", bands);
  if (!run.form.On(kShowResiduals)) return;
  Residuals residuals{.estimate = {}, .e = fit.e, .z = z};
  for (Real x : fit.data.x) residuals.estimate.push_back(fit.line.b * x + fit.line.a0);
  WriteResiduals(run, kResidualsRow,
                 {"  x value", "  y value", "  Estim. y", "  Res. (vertical: y - (a0+bx))",
                  "  St. res. at an angle to the line"},
                 fit.data, residuals);
}

}  // namespace quorval::regression
