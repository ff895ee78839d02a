// Where the worksheet's cells come from: a file or a built-in example.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "app/workbench.h"

namespace quorval {

struct DataSource {
  std::optional<std::string> file, example;
};

// --demo alone.
CLI::Option* AddExampleSource(CLI::App& command, DataSource& source);

// DATA and --demo, which exclude each other.
void AddDataSource(CLI::App& command, DataSource& source);

// Throws Unusable where there is no such file or example, or none is named.
void LoadData(const DataSource& source, Workbench& workbench);

}  // namespace quorval
