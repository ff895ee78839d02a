#include "analyses/methodeval/method_evaluation.h"

namespace quorval::methodeval {
namespace {

bool Accepts(const ColumnLimit& limit, int column) { return column >= 1 && column <= limit.last; }

}  // namespace

bool OutsideWorksheet(const Form& form, const Field& column) {
  return !Accepts(kAllColumns, form.Column(column));
}

int TakeColumn(const Run& run, const Field& field, const ColumnLimit& limit) {
  const int column = run.form.Column(field);
  if (!Accepts(limit, column)) run.Refuse(limit.refusal);
  return column;
}

ColumnSpan TakeColumns(const Run& run, const Field& start, const Field& last,
                       const ColumnLimit& limit) {
  const ColumnSpan span{TakeColumn(run, start, limit), TakeColumn(run, last, limit)};
  if (span.last < span.start) run.Refuse(limit.refusal);
  return span;
}

std::optional<Real> PercentOf(Real part, Real whole) {
  if (whole == 0) return std::nullopt;
  return 100 * part / whole;
}

Points AgainstNumber(std::span<const Real> values) {
  Points points;
  for (Real value : values) points.push_back({points.size() + 1, value});
  return points;
}

void AddSdLines(Plot& plot, Real mean, Real sd, const Range& x) {
  const auto add = [&](int sds, Pattern pattern, Colour colour) {
    const Real level = mean + sds * sd;
    plot.AddLine({{x.min, level}, {x.max, level}}, pattern).colour = colour;
  };
  add(0, Pattern::kSolid, kBlue);
  add(-2, Pattern::kDotted, kGreen);
  add(2, Pattern::kDotted, kGreen);
  add(-3, Pattern::kDotted, kRed);
  add(3, Pattern::kDotted, kRed);
}

}  // namespace quorval::methodeval
