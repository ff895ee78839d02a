#include "batch/data_source.h"

#include "batch/commands.h"
#include "batch/lookup.h"
#include "formats/worksheet_file.h"

namespace quorval {

void AddDataSource(CLI::App& command, DataSource& source) {
  const auto keep = [](std::optional<std::string>& to) {
    return [&to](const std::string& text) { to = text; };
  };
  CLI::Option* const file = command.add_option_function<std::string>(
      "DATA", keep(source.file), "The data file; its first row becomes row 0, the titles");
  CLI::Option* const example = command.add_option_function<std::string>(
      "--demo", keep(source.example), "A built-in example set in the file's place");
  example->type_name("NAME")->excludes(file);
}

void LoadData(const DataSource& source, Workbench& workbench) {
  if (source.example) {
    workbench.ImportExample(ExampleNamed(*source.example));
  } else if (!source.file) {
    throw Unusable("a data file, or an example set by --demo, is needed");
  } else if (const auto error = ReadWorksheet(*source.file, workbench.worksheet())) {
    throw Unusable(*error);
  }
}

}  // namespace quorval
