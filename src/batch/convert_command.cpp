#include <memory>
#include <string>
#include <vector>

#include "app/workbench.h"
#include "batch/batch_platform.h"
#include "batch/commands.h"
#include "batch/data_source.h"
#include "batch/worksheet_output.h"

namespace quorval {
namespace {

struct ConvertOptions {
  std::vector<std::string> files;
  DataSource data;
  ExportOptions output;
};

ExitStatus Convert(ConvertOptions options) {
  const std::size_t wanted = options.data.example ? 1 : 2;
  if (options.files.size() != wanted)
    throw Unusable("convert takes " +
                   std::string(wanted == 1 ? "OUT alone with --demo" : "IN OUT"));
  if (!options.data.example) options.data.file = options.files.front();
  BatchPlatform platform(nullptr);
  Workbench workbench(platform, {});
  LoadData(options.data, workbench);
  WriteWorksheetFile(options.files.back(), workbench, options.output, platform);
  return ExitStatus::kDone;
}

}  // namespace

void AddConvertCommand(CLI::App& program, Task& chosen) {
  CLI::App* const convert =
      program.add_subcommand("convert", "Turn a file into another format, by the extensions");
  const auto options = std::make_shared<ConvertOptions>();
  convert->add_option("FILES", options->files, "IN OUT, or OUT alone with --demo")
      ->required()
      ->expected(1, 2);
  AddExampleSource(*convert, options->data);
  AddSafeTexts(*convert, options->output);
  convert->footer(
      "Reads .qvl, .xls, .xlsx, .ods, .csv and .tsv; writes .qvl, .xls, .xlsx, .csv and .tsv.");
  convert->callback([&chosen, options] { chosen = [options] { return Convert(*options); }; });
}

}  // namespace quorval
