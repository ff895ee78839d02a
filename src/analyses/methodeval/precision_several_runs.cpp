// The components of variance within and between runs; each column is a run.
#include "analyses/methodeval/precision.h"
#include "analyses/methodeval/variance_components.h"

namespace quorval::methodeval::precision {
namespace {

struct Runs {
  ColumnSpan columns;
  std::vector<Sample> values{};
  std::vector<int> outlier_columns{};  // those that hold a marked value
};

Runs ReadRuns(Run& run, Real outlier_limit) {
  Runs runs{.columns = TakeColumns(run, kStartColumn, kLastColumn)};
  for (int column = runs.columns.start; column <= runs.columns.last; ++column) {
    const Sample& values = runs.values.emplace_back(ReadColumn(run, column).Numbers(run.notices));
    if (values.empty()) run.Refuse(kNoValues);
    if (values.size() == 1) Raise(Fault::Kind::kDivisionByZero);  // a run without an SD
    if (MarkOutliersBySD(run.messages, outlier_limit, values).count > 0)
      runs.outlier_columns.push_back(column);
  }
  return runs;
}

Sample MeansOf(std::span<const Sample> runs) {
  Sample means;
  for (const Sample& values : runs) means.push_back(Sum(values) / values.size());
  return means;
}

void WriteOutliers(ResultsSheet& sheet, int& row, Real limit, const Runs& runs) {
  sheet.Row(row++, "  Outlier limit (no. of SDs): ", limit);
  for (int column : runs.outlier_columns)
    sheet.Row(row++, "  Outlier(s) identified in Col. no.  ", column);
  if (runs.outlier_columns.empty()) sheet.Row(row++, "  No outliers identified ");
}

void WriteMeans(ResultsSheet& sheet, int row, const Runs& runs) {
  sheet.Row(row++, "  Display of col means ");
  sheet.Row(row++, "  Col. no. ", "  Col. mean ");
  int column = runs.columns.start;
  for (Real mean : MeansOf(runs.values)) sheet.Row(row++, column++, mean);
}

void DrawRuns(Run& run, const Runs& runs) {
  Sample all;
  for (const Sample& values : runs.values) all.insert(all.end(), values.begin(), values.end());
  Plot& values = run.AddPlot(kValuesWindow, "Values of all runs");
  values.label = "Plot of Total No. of Sample Values";
  values.x.title = "Observation no.";
  values.AddPoints(AgainstNumber(all));

  Plot& means = run.AddPlot(kMeansWindow, "Run means");
  means.label = "Plot of run mean values";
  means.x.title = "Run no.";
  means.AddPoints(AgainstNumber(MeansOf(runs.values)));
}

}  // namespace

void RunSeveral(Run& run) {
  const Real limit = run.form.WholeNumber32(kSeveralOutlierLimit);
  const Runs runs = ReadRuns(run, limit);
  const VarianceComponents components = EstimateComponents(runs.values);

  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  sheet.Row(2, Bold{"  Precision from multiple runs"});
  sheet.Row(3, "  Project:", run.context.ProjectName);
  sheet.Row(4, "  First Data Column:   Col. no.:  ", runs.columns.start);
  sheet.Row(5, "  Last Data Column:   Col. no.:  ", runs.columns.last);
  sheet.Row(6, "  No of runs: :  ", static_cast<int>(runs.values.size()));
  sheet.Row(7, "  Mean of all run means:  ", components.M);
  sheet.Row(8, "  Pooled Within-run SD: ", components.Sw);
  if (components.Sb) {
    sheet.Row(10, "  Between-run SD: ", *components.Sb);
    sheet.Row(11, "  Total SD: ", *components.St);
  } else {
    sheet.Row(10, "  Between-run SD: ", "  Negative estimate ");
    sheet.Row(11, "  Total SD: ", "  Can not be estimated ");
  }
  int row = 13;
  WriteOutliers(sheet, row, limit, runs);
  if (run.form.On(kShowMeans)) WriteMeans(sheet, row, runs);
  DrawRuns(run, runs);
}

}  // namespace quorval::methodeval::precision
