#include "batch/outputs.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string_view>
#include <system_error>
#include <vector>

#include "batch/commands.h"
#include "batch/run_json.h"
#include "batch/sheet_table.h"
#include "batch/worksheet_output.h"

namespace quorval {
namespace {

[[noreturn]] void FailToWrite(const std::filesystem::path& path) {
  throw Unusable(path.string() + ": the file cannot be written");
}

CLI::Validator Named() {
  return {[](std::string& name) { return name.empty() ? "a name is needed" : ""; }, ""};
}

std::vector<const Plot*> PlotsOf(const OpenAnalysis& open, Workbench& workbench) {
  std::vector<const Plot*> plots;
  for (const Plot& plot : workbench.plots())
    if (Shows(open, plot)) plots.push_back(&plot);
  return plots;
}

bool ShowsData(const Plot* plot) { return plot->shown && !plot->series.empty(); }

void WritePictures(const std::vector<const Plot*>& plots, const Outputs& outputs,
                   BatchPlatform& platform) {
  const std::filesystem::path folder(outputs.plots);
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) throw Unusable(outputs.plots + ": the folder cannot be made: " + error.message());
  for (const Plot* plot : plots) {
    const auto path = folder / (plot->window + "." + outputs.plot_format);
    if (ShowsData(plot) && !platform.WritePicture(*plot, path)) FailToWrite(path);
  }
}

// The jobs of each File entry that prints plots, in the order of the entries.
void PrintAllPlots(OpenAnalysis& open, Workbench& workbench) {
  std::vector<std::string_view> entries;
  for (const PlotJob& job : open.results->procedure->plot_jobs)
    if (std::ranges::count(entries, job.entry) == 0) entries.push_back(job.entry);
  for (std::string_view entry : entries) workbench.PrintPlots(open, entry);
}

void WriteReport(const std::vector<const Plot*>& plots, const std::string& file, OpenAnalysis& open,
                 Workbench& workbench, BatchPlatform& platform) {
  workbench.PrintResults(open);
  if (std::ranges::any_of(plots, ShowsData)) PrintAllPlots(open, workbench);
  if (!platform.WritePages(file)) FailToWrite(file);
}

}  // namespace

void WriteText(const std::string& text, const std::string& file) {
  if (file == "-") {
    std::cout << text;
    return;
  }
  std::ofstream stream(file, std::ios::binary);
  if (!(stream << text).flush()) FailToWrite(file);
}

void AddOutputs(CLI::App& command, Outputs& outputs) {
  command
      .add_option("--json", outputs.json,
                  "Write all that the run showed as JSON; - is standard output")
      ->type_name("FILE")
      ->check(Named());
  command.add_option("--save", outputs.save, "Save the results sheet as a results file")
      ->type_name("FILE.qvl")
      ->check(Named());
  command
      .add_option("--export", outputs.export_results,
                  "Write the results sheet as .xls, .xlsx or .csv, by the extension")
      ->type_name("FILE")
      ->check(Named());
  CLI::Option* const plots =
      command.add_option("--plots", outputs.plots, "Write a picture of each plot window into DIR")
          ->type_name("DIR")
          ->check(Named());
  command
      .add_option("--plot-format", outputs.plot_format,
                  "The pictures' format, png where none is given")
      ->check(CLI::IsMember({"png", "svg", "pdf"}))
      ->type_name("FORMAT")
      ->needs(plots);
  command.add_option("--report", outputs.report, "Write the printed results and plots as a PDF")
      ->type_name("FILE.pdf")
      ->check(Named());
}

std::unique_ptr<Pictures> PicturesFor(const Outputs& outputs) {
  if (outputs.plots.empty() && outputs.report.empty()) return nullptr;
  if (!Pictures::Built())
    throw Unusable("this program was built without pictures: --plots and --report are not there");
  return std::make_unique<Pictures>();
}

void HandOut(const Outputs& outputs, Outcome outcome, OpenAnalysis& open, Workbench& workbench,
             BatchPlatform& platform) {
  const std::vector<const Plot*> plots = PlotsOf(open, workbench);
  const bool window_open = open.results && open.results->shown;
  if (outputs.json != "-" && window_open) std::cout << SheetTable(open.results->sheet.grid());
  if (!outputs.json.empty())
    WriteText(JsonText(RunJson(open, outcome, platform.boxes(), plots)), outputs.json);
  if (window_open && !outputs.save.empty())
    WriteResultsFile(outputs.save, open.results->sheet.grid());
  if (window_open && !outputs.export_results.empty())
    WriteExport(outputs.export_results, open.results->sheet.grid());
  if (!outputs.plots.empty()) WritePictures(plots, outputs, platform);
  if (!outputs.report.empty() && window_open)
    WriteReport(plots, outputs.report, open, workbench, platform);
}

}  // namespace quorval
