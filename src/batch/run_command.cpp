#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/workbench.h"
#include "batch/batch_platform.h"
#include "batch/commands.h"
#include "batch/data_source.h"
#include "batch/lookup.h"
#include "batch/outputs.h"
#include "batch/settings.h"

namespace quorval {
namespace {

struct RunOptions {
  std::string analysis;
  DataSource data;
  std::vector<std::string> settings;
  std::optional<std::string> decimals, project;
  bool reanalyse = false;
  Outputs outputs;
};

ExitStatus RunOneAnalysis(const RunOptions& options) {
  const MenuEntry entry = AnalysisNamed(options.analysis);
  const std::unique_ptr<Pictures> pictures = PicturesFor(options.outputs);
  BatchPlatform platform(pictures.get());
  Workbench workbench(platform, pictures ? pictures->Folder() : std::filesystem::path{});
  OpenAnalysis& open = workbench.Open(*entry.analysis);
  SetFields(options.settings, open.form);
  LoadData(options.data, workbench);
  if (options.project) workbench.project().Rename(*options.project);
  if (options.decimals) workbench.project().SetDecimals(*options.decimals);

  Outcome outcome = workbench.PressOk(open);
  if (options.reanalyse && outcome == Outcome::kDone) {
    workbench.Reanalyse(open);
    outcome = open.results->outcome;
  }
  HandOut(options.outputs, outcome, open, workbench, platform);
  return outcome == Outcome::kDone ? ExitStatus::kDone : ExitStatus::kRefused;
}

}  // namespace

void AddRunCommand(CLI::App& program, Task& chosen) {
  CLI::App* const run = program.add_subcommand("run", "Run one analysis and hand out its results");
  const auto options = std::make_shared<RunOptions>();
  run->add_option("ANALYSIS", options->analysis, "The analysis' id, as \"list\" names it")
      ->required();
  AddDataSource(*run, options->data);
  AddSettings(*run, options->settings);
  run->add_option_function<std::string>(
         "--decimals", [options](const std::string& text) { options->decimals = text; },
         "The decimals of the results, as the field of the main window takes them")
      ->type_name("TEXT");
  run->add_option_function<std::string>(
         "--project", [options](const std::string& name) { options->project = name; },
         "The project's name on the results sheet")
      ->type_name("NAME");
  run->add_flag(
      "--reanalyse", options->reanalyse,
      "Repeat a finished run without the outliers that it marked, where its window offers "
      "that");
  AddOutputs(*run, options->outputs);
  run->footer(
      "The results sheet is printed as a table, unless --json - takes standard output.\n"
      "Exit status: 0 done, 1 refused or failed (the messages tell why), 2 not usable.");
  run->callback([&chosen, options] { chosen = [options] { return RunOneAnalysis(*options); }; });
}

}  // namespace quorval
