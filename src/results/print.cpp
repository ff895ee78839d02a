#include "results/print.h"

#include <algorithm>
#include <string>

#include "results/picture_file.h"

namespace quorval {
namespace {

constexpr std::string_view kFooter = "/cQuorval/rPage #/p/n";
constexpr double kPictureColumnWidth = 100;  // characters
constexpr double kPictureWidth = 520;        // points, of a page's column

// A page of pictures: one to a row, and a dot below that makes the used range reach beyond them.
struct PicturePage {
  Grid grid{1, 20};
  std::vector<double> heights{};
};

bool Fill(PicturePage& page, Platform& platform, const PlotJob& job, std::span<const Plot> plots,
          const std::filesystem::path& folder) {
  for (const PlotWindow& wanted : job.pictures) {
    const auto plot = std::ranges::find(plots, wanted.window, &Plot::window);
    if (plot == plots.end()) continue;
    Plot drawn = *plot;
    drawn.aspect = kPictureWidth / wanted.height;
    Picture picture = PictureOf(platform, drawn, folder / wanted.bitmap);
    if (!picture) return false;
    page.heights.push_back(wanted.height);
    Cell& cell = page.grid.Edit(1, static_cast<int>(page.heights.size()));
    cell.look.type = CellType::kPicture;
    cell.picture = std::move(picture);
  }
  page.grid.SetText(1, static_cast<int>(page.heights.size()) + 1, ".");
  return true;
}

}  // namespace

PrintJob SheetPage(const Grid& grid, std::string_view header) {
  return {.grid = &grid,
          .header = std::string(header),
          .footer = std::string(kFooter),
          .border = true,
          .grid_lines = true};
}

bool PrintPlots(Platform& platform, std::span<const PlotJob* const> jobs,
                std::span<const Plot> plots, const std::filesystem::path& folder) {
  std::vector<PicturePage> pages(jobs.size());
  std::vector<PrintJob> print_jobs;
  for (std::size_t i = 0; i < jobs.size(); ++i) {
    if (!Fill(pages[i], platform, *jobs[i], plots, folder)) return false;
    if (pages[i].heights.empty()) continue;  // none of its plots is open
    print_jobs.push_back({.grid = &pages[i].grid,
                          .row_heights = pages[i].heights,
                          .column_widths = {kPictureColumnWidth}});
  }
  return platform.Print(print_jobs);
}

}  // namespace quorval
