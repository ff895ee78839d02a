// Every analysis on the built-in examples, over sets of options that together reach every row of
// the results sheets: tests/data/runs.txt.
#pragma once

#include <fstream>
#include <ostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "support/data_folder.h"

namespace quorval::test {

struct ExampleRun {
  std::string analysis, example;
  std::vector<std::pair<std::string, std::string>> settings{};
  bool reanalysed = false;
};

inline void PrintTo(const ExampleRun& one, std::ostream* out) {
  *out << one.analysis << ", " << one.example;
  for (const auto& [key, value] : one.settings) *out << ' ' << key << '=' << value;
}

inline const std::vector<ExampleRun>& ExampleRuns() {
  static const std::vector<ExampleRun> runs = [] {
    std::vector<ExampleRun> read;
    std::ifstream file(DataFile("runs.txt"));
    for (std::string line; std::getline(file, line);) {
      if (line.starts_with('#')) continue;
      std::istringstream fields(line);
      ExampleRun& run = read.emplace_back();
      std::getline(fields, run.analysis, ';');
      std::getline(fields >> std::ws, run.example, ';');
      for (std::string setting; fields >> setting;) {
        const std::size_t equals = setting.find('=');
        if (setting == "--reanalyse") {
          run.reanalysed = true;
        } else {
          run.settings.emplace_back(setting.substr(0, equals), setting.substr(equals + 1));
        }
      }
    }
    return read;
  }();
  return runs;
}

}  // namespace quorval::test
