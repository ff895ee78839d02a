#include "batch/outputs.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <string_view>
#include <system_error>
#include <vector>

#include "batch/commands.h"
#include "batch/run_json.h"
#include "batch/sheet_table.h"
#include "batch/worksheet_output.h"
#include "formats/file_error.h"
#include "formats/replaced_file.h"

namespace quorval {
namespace {

// What the program was given open, such as by a shell's ">(command)", and where text may vanish.
// It is written to; any other pipe or device is refused.
bool IsStream(const std::string& file) {
  return file == "/dev/null" || file == "/dev/stderr" || file.starts_with("/dev/fd/") ||
         file.starts_with("/proc/self/fd/");
}

CLI::Validator Named() {
  return {[](std::string& name) { return name.empty() ? "a name is needed" : ""; }, ""};
}

bool ShowsData(const Plot& plot) { return plot.shown && !plot.series.empty(); }

void WritePictures(std::span<const Plot> plots, const Outputs& outputs, BatchPlatform& platform) {
  const std::filesystem::path folder(outputs.plots);
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) throw Unusable(outputs.plots + ": the folder cannot be made: " + error.message());
  for (const Plot& plot : plots) {
    const auto path = folder / (plot.window + "." + outputs.plot_format);
    if (ShowsData(plot)) WriteFile(path, [&] { platform.HandOutPicture(plot, path); });
  }
}

// The jobs of each File entry that prints plots, in the order of the entries.
void PrintAllPlots(OpenAnalysis& open, Workbench& workbench) {
  std::vector<std::string_view> entries;
  for (const PlotJob& job : open.results->procedure->plot_jobs)
    if (std::ranges::count(entries, job.entry) == 0) entries.push_back(job.entry);
  for (std::string_view entry : entries) workbench.PrintPlots(open, entry);
}

void WriteReport(std::span<const Plot> plots, const std::string& file, OpenAnalysis& open,
                 Workbench& workbench, BatchPlatform& platform) {
  workbench.PrintResults(open);
  if (std::ranges::any_of(plots, ShowsData)) PrintAllPlots(open, workbench);
  WriteFile(file, [&] { platform.HandOutPages(file); });
}

}  // namespace

bool IsStandardOutput(const std::string& file) { return file == "-" || file == "/dev/stdout"; }

void WriteText(const std::string& text, const std::string& file) {
  if (IsStandardOutput(file)) {
    std::cout << text;
  } else if (IsStream(file)) {
    std::ofstream stream(file, std::ios::binary | std::ios::app);
    if (!(stream << text).flush()) throw Unusable(file + ": it cannot be written to");
  } else {
    WriteFile(file, [&] { ReplaceFile(file, text); });
  }
}

void WriteFile(const std::filesystem::path& path, const std::function<void()>& write) {
  try {
    write();
  } catch (const FileError& error) {
    throw Unusable(path.string() + ": " + error.what());
  }
}

CLI::Option* AddFileOption(CLI::App& command, const std::string& option, std::string& file,
                           const std::string& help, const std::string& type) {
  return command.add_option(option, file, help)->type_name(type)->check(Named());
}

void AddOutputs(CLI::App& command, Outputs& outputs) {
  AddFileOption(command, "--json", outputs.json,
                "Write all that the run showed as JSON; - is standard output");
  AddFileOption(command, "--save", outputs.save, "Save the results sheet as a results file",
                "FILE.qvl");
  AddFileOption(command, "--export", outputs.export_results,
                "Write the results sheet as .xls, .xlsx or .csv, by the extension");
  AddSafeTexts(command, outputs.options);
  CLI::Option* const plots = AddFileOption(command, "--plots", outputs.plots,
                                           "Write a picture of each plot window into DIR", "DIR");
  command
      .add_option("--plot-format", outputs.plot_format,
                  "The pictures' format, png where none is given")
      ->check(CLI::IsMember({"png", "svg", "pdf"}))
      ->type_name("FORMAT")
      ->needs(plots);
  AddFileOption(command, "--report", outputs.report, "Write the printed results and plots as a PDF",
                "FILE.pdf");
}

std::unique_ptr<Pictures> PicturesFor(const Outputs& outputs) {
  return outputs.plots.empty() && outputs.report.empty() ? nullptr : MakePictures();
}

std::unique_ptr<Pictures> MakePictures() {
  if (!Pictures::Built())
    throw Unusable("this program was built without pictures: --plots and --report are not there");
  return std::make_unique<Pictures>();
}

void HandOut(const Outputs& outputs, Outcome outcome, OpenAnalysis& open, Workbench& workbench,
             BatchPlatform& platform) {
  const std::span<const Plot> plots =
      open.results ? std::span<const Plot>(open.results->plots) : std::span<const Plot>{};
  const bool window_open = open.results && open.results->shown;
  if (!IsStandardOutput(outputs.json) && window_open)
    std::cout << SheetTable(open.results->sheet.grid());
  if (window_open && !outputs.save.empty())
    WriteResultsFile(outputs.save, open.results->sheet.grid());
  if (window_open && !outputs.export_results.empty())
    WriteExport(outputs.export_results, open.results->sheet.grid(), outputs.options, platform);
  // Behind the export, whose notices it tells.
  if (!outputs.json.empty())
    WriteText(JsonText(RunJson(open, outcome, platform.boxes(), platform.notices(), plots)),
              outputs.json);
  if (!outputs.plots.empty()) WritePictures(plots, outputs, platform);
  if (!outputs.report.empty() && window_open)
    WriteReport(plots, outputs.report, open, workbench, platform);
}

}  // namespace quorval
