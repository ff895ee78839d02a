#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "app/workbench.h"
#include "batch/batch_platform.h"
#include "batch/commands.h"
#include "batch/data_source.h"
#include "batch/lookup.h"
#include "batch/outputs.h"
#include "batch/run_json.h"
#include "batch/settings.h"
#include "batch/worksheet_output.h"

namespace quorval {
namespace {

struct DataOptions {
  std::string tool;
  DataSource data;
  std::vector<std::string> settings;
  std::string save, json;
  ExportOptions output;
};

ExitStatus RunTool(const DataOptions& options) {
  const Tool& tool = ToolNamed(options.tool);
  BatchPlatform platform(nullptr);
  Workbench workbench(platform, {});
  Form form(*tool.dialog);
  SetFields(options.settings, form);
  LoadData(options.data, workbench);

  const Outcome outcome = workbench.PressOk(tool, form);
  if (outcome == Outcome::kDone && !options.save.empty())
    WriteWorksheetFile(options.save, workbench, options.output, platform);
  if (!options.json.empty())
    WriteText(JsonText(ToolJson(tool, form, outcome, platform.boxes(), platform.notices(),
                                workbench.worksheet())),
              options.json);
  return outcome == Outcome::kDone ? ExitStatus::kDone : ExitStatus::kRefused;
}

}  // namespace

void AddDataCommand(CLI::App& program, Task& chosen) {
  CLI::App* const data =
      program.add_subcommand("data", "Sort, transform or format the worksheet's columns");
  const auto options = std::make_shared<DataOptions>();
  data->add_option("TOOL", options->tool, "sort, transform or format")->required();
  AddDataSource(*data, options->data);
  AddSettings(*data, options->settings);
  data->add_option("--save", options->save, "Write the worksheet, in the format of the extension")
      ->type_name("FILE");
  AddSafeTexts(*data, options->output);
  data->add_option("--json", options->json, "Write the worksheet as JSON; - is standard output")
      ->type_name("FILE");
  data->footer("A refusal changes nothing and writes no file but the JSON.");
  data->callback([&chosen, options] {
    if (options->save.empty() && options->json.empty())
      throw CLI::RequiredError("--save or --json");
    chosen = [options] { return RunTool(*options); };
  });
}

}  // namespace quorval
