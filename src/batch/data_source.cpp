#include "batch/data_source.h"

#include "batch/commands.h"
#include "batch/lookup.h"
#include "core/file_name.h"
#include "formats/file_error.h"
#include "formats/project_file.h"
#include "formats/worksheet_file.h"

namespace quorval {

namespace {

auto Keep(std::optional<std::string>& to) {
  return [&to](const std::string& text) { to = text; };
}

void LoadProject(const std::string& file, Workbench& workbench) {
  try {
    workbench.files().Load(file);
  } catch (const FileError& error) {
    throw Unusable(file + ": " + error.what());
  }
}

void LoadFile(const std::string& file, Workbench& workbench) {
  if (ExtensionOf(file) == ".qvl" || IsProjectFile(file)) {
    LoadProject(file, workbench);
  } else if (const auto error = ReadWorksheet(file, workbench.worksheet())) {
    throw Unusable(*error);
  }
}

}  // namespace

CLI::Option* AddExampleSource(CLI::App& command, DataSource& source) {
  return command
      .add_option_function<std::string>("--demo", Keep(source.example),
                                        "A built-in example set in the file's place")
      ->type_name("NAME");
}

void AddDataSource(CLI::App& command, DataSource& source) {
  CLI::Option* const file = command.add_option_function<std::string>(
      "DATA", Keep(source.file), "The data file; its first row becomes row 0, the titles");
  AddExampleSource(command, source)->excludes(file);
}

void LoadData(const DataSource& source, Workbench& workbench) {
  if (source.example) {
    workbench.ImportExample(ExampleNamed(*source.example));
  } else if (!source.file) {
    throw Unusable("a data file, or an example set by --demo, is needed");
  } else {
    LoadFile(*source.file, workbench);
  }
}

}  // namespace quorval
