#include "analyses/regression/least_squares_report.h"

#include "analyses/regression/plots.h"
#include "stats/significance.h"

namespace quorval::regression {

OutlierMarks ReportLeastSquares(Run& run, const LeastSquaresRows& rows, const LeastSquaresFit& fit,
                                std::span<const PlotWindow> plots) {
  const auto& [data, levels, line, estimates, w] = fit;
  const Real df = data.Count() - 2;
  Residuals residuals;
  Sample q;  // weighted residuals
  for (std::size_t i = 0; i < data.x.size(); ++i) {
    const Real y = residuals.estimate.emplace_back(line.At(data.x[i]));
    const Real e = residuals.e.emplace_back(data.y[i] - y);
    q.push_back(Sqrt(w[i]) * e);
  }
  // The SD shown, and the unit of z; the fit's own stays in the standard errors.
  const Real SDyx = ResidualSD(run, q);
  run.sheet.Row(rows.sd, rows.sd_label, SDyx);
  run.sheet.Row(rows.sd + 1, "  Test for dev. from linearity",
                RunsTestClass(run.messages, residuals.e));
  WriteIntercept(run, rows.intercept, TestAgainst(0, line.a0, line.se_a0, df));
  WriteCriticalValues(run, rows.critical_values, levels, estimates);

  for (Real weighted : q) residuals.z.push_back(weighted / SDyx);
  // By the SD around the residuals' mean: not by z.
  OutlierMarks outliers = MarkOutliers(run, q);
  WriteOutliers(run, rows.outliers, outliers, data);

  const Form& form = run.form;
  const Bands bands = ComputeBands(levels, estimates, CriticalT05(df));
  if (form.On(kShowBands)) WriteBands(run, rows.bands, rows.estimate_heading, bands);
  if (form.On(kShowResiduals))
    WriteResiduals(run, rows.residuals, rows.residual_headings, data, residuals);
  DrawXYPlot(run, plots[0], data, outliers, {.a0 = line.a0, .b = line.b},
             form.On(kPlotBands) ? std::optional(bands) : std::nullopt);
  DrawResidualPlot(run, plots[1], data.x, residuals.z, outliers);
  return outliers;
}

}  // namespace quorval::regression
