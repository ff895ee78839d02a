// What the difference plots with estimated limits and those with the user's limits share: the
// sheet's head, the listing of the pairs, and the two plot windows.
#pragma once

#include <string_view>

#include "analyses/difference/difference_rows.h"
#include "analyses/difference/options.h"
#include "analyses/difference/paired_data.h"
#include "core/plot.h"
#include "core/results_sheet.h"

namespace quorval::difference {

struct DifferenceInput {
  Options options;
  PairedData data;
};

// --- Rows of the sheets

// Where the listing of all pairs stands, and how it calls the relative differences.
struct ListingLayout {
  int heading;
  int column_heads;
  int first_pair;
  std::string_view percent_heading = "Display of x, y, diffs and perc. diffs";
  std::string_view percent_column = "Perc. Y-X";
};

void WriteListing(ResultsSheet& sheet, const ListingLayout& layout, const DifferenceInput& input);

// --- The two Bland-Altman plots: differences against the pair means

// The second plot is called by its scale.
inline constexpr PlotWindow kPlots[] = {
    {.window = "frmBAPlot",
     .caption = "Bland-Altman Plot (y-x differences against mean of x and y)",
     .x_title = "Mean of x and y",
     .y_title = "Difference y - x",
     .bitmap = " Chart2D1.bmp",
     .height = 350,
     .opens_empty = true},
    {.window = "frmBARelPlot",
     .caption = {},
     .x_title = "Mean of x and y",
     .bitmap = " Chart2D1Rel.bmp",
     .height = 350}};

inline constexpr std::string_view kRelativeCaption =
    "Relative Bland-Altman Plot (relative difference against mean of x and y)";
inline constexpr std::string_view kPercentCaption =
    "Percent Bland-Altman Plot (percent difference against mean of x and y)";

Plot& AddRelativePlot(Plots& plots, std::string_view caption, const Scale& scale);

// A green dotted line.
void AddLimit(Plot& plot, Points points);

// --- The procedure with the user's limits

void RunUserLimits(Run& run);

}  // namespace quorval::difference
