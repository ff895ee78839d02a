#include "analyses/difference/listing.h"
#include "analyses/difference/plots.h"
#include "analyses/difference/single.h"

namespace quorval::difference {
namespace {

constexpr std::string_view kTitle = "  Results of Difference plots (single)";
constexpr std::string_view kTitleWithRows = "  Results of Difference plots (single)(row 1 - 80)";
constexpr std::string_view kLimitLabel = "  User set limits for differences (y-x)(+/-):";
constexpr std::string_view kConstantLabel =
    "  User set constant limits for differences (y-x)(+/-):";
constexpr std::string_view kPercentLabel = "  User set percent limits for differences (y-x)(+/-):";
constexpr std::string_view kShortPercentLabel = " User set percent limits: ";
constexpr std::string_view kProportionLabel = "  Proportion (%) differences outside the limits: ";

// A row that not every case has: row 0 stands for none.
struct LabelledRow {
  int row = 0;
  std::string_view label{};
};

// Where the rows of one case stand below the head, and their labels.
struct Layout {
  std::string_view title;
  std::string_view limit_label;       // row 10: the constant limit, of kind B the percentage
  std::string_view division_label{};  // row 11, of kind C
  int relative_heading;
  LabelledRow percent{};
  LabelledRow proportion;
  int verdict;  // two rows
  ListingLayout listing;
};

constexpr Layout kAFraction{.title = kTitle,
                            .limit_label = kLimitLabel,
                            .relative_heading = 20,
                            .proportion = {11, kProportionLabel},
                            .verdict = 13,
                            .listing = {25, 26, 28}};
constexpr Layout kAPercent{.title = kTitleWithRows,
                           .limit_label = kLimitLabel,
                           .relative_heading = 20,
                           .proportion = {11, kProportionLabel},
                           .verdict = 13,
                           .listing = {25, 26, 28}};
constexpr Layout kBFraction{
    .title = kTitleWithRows,
    .limit_label = "  User set limits (percent) for differences (y-x)(+/-):",
    .relative_heading = 12,
    .percent = {16, kPercentLabel},
    .proportion = {17, "Proportion (%) differences outside the limits: "},
    .verdict = 18,
    .listing = {21, 22, 24}};
constexpr Layout kBPercent{.title = kTitleWithRows,
                           .limit_label = kLimitLabel,
                           .relative_heading = 12,
                           .percent = {16, kPercentLabel},
                           .proportion = {17, "Proportion (%) differences outside the limits: "},
                           .verdict = 18,
                           .listing = {21, 22, 24}};
constexpr Layout kCFraction{.title = kTitle,
                            .limit_label = kConstantLabel,
                            .division_label = " up to division point of:  ",
                            .relative_heading = 14,
                            .percent = {17, kShortPercentLabel},
                            .proportion = {18, kProportionLabel},
                            .verdict = 20,
                            .listing = {25, 26, 28}};
constexpr Layout kCPercent{.title = kTitle,
                           .limit_label = kConstantLabel,
                           .division_label = "  up to division point of:",
                           .relative_heading = 20,
                           .percent = {23, kShortPercentLabel},
                           .proportion = {24, kProportionLabel},
                           .verdict = 25,
                           .listing = {27, 28, 29}};

const Layout& LayoutOf(LimitKind kind, const Scale& scale) {
  switch (kind) {
    case LimitKind::kConstant:
      return scale.percent ? kAPercent : kAFraction;
    case LimitKind::kPercentage:
      return scale.percent ? kBPercent : kBFraction;
    case LimitKind::kConstantThenPercentage:
      break;
  }
  return scale.percent ? kCPercent : kCFraction;
}

void WriteVerdict(Run& run, int row, Agreement agreement) {
  ResultsSheet& sheet = run.sheet;
  switch (agreement) {
    case Agreement::kAgrees:
      sheet.Row(row, "  Obs. distribution agrees with null hypothesis");
      sheet.Row(row + 1, "  of at least 95% observations within limits");
      break;
    case Agreement::kDoesNotAgree:
      sheet.Row(row, "  Obs. distribution does not agree with null");
      sheet.Row(row + 1, "  hypothesis of 95% observations within limits");
      break;
    case Agreement::kNotTested:
      Note(run.notices, {"not-tested",
                         "the proportion outside the limits was not tested, which takes 20 to 1000 "
                         "pairs"});
      break;
  }
}

}  // namespace

void RunUserLimits(Run& run, const PairedData& data, const UserLimits& limits,
                   const Options& options) {
  const Scale& scale = options.scale;
  const Real relative_limit = scale.FromPercent(limits.percent);
  const Real percent = scale.ToPercent(relative_limit);
  const Real proportion =
      ProportionOutside(limits, relative_limit, data.mean, data.difference, *data.relative);
  DrawAbsolutePlot(run, data, limits);
  DrawRelativePlot(run, data, limits, scale);

  const Layout& layout = LayoutOf(limits.kind, scale);
  ResultsSheet& sheet = run.sheet;
  sheet.Clear();
  WriteSingleHead(sheet, layout.title, data);
  sheet.Row(10, layout.limit_label,
            limits.kind == LimitKind::kPercentage ? percent : Real(limits.constant));
  if (!layout.division_label.empty()) sheet.Row(11, layout.division_label, Real(limits.division));
  sheet.Row(layout.relative_heading,
            Bold{scale.Word("Relative Y-X difference plot", "Percentage Y-X difference plot")});
  if (layout.percent.row > 0) sheet.Row(layout.percent.row, layout.percent.label, percent);
  sheet.Row(layout.proportion.row, layout.proportion.label, proportion);
  WriteVerdict(run, layout.verdict, TestProportion(data.Count(), proportion));
  if (options.show_data) WriteListing(sheet, layout.listing, data, scale);
}

}  // namespace quorval::difference
