// Columns of a data set of the tests.
#pragma once

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/data_folder.h"

namespace quorval::test {

// The columns below the header row; an empty cell ends a shorter column.
inline std::vector<std::vector<std::string>> ReadDataFile(const std::string& name) {
  std::ifstream file(DataFile(name));
  std::string line;
  if (!std::getline(file, line)) throw std::runtime_error("no data file " + name);
  std::vector<std::vector<std::string>> columns;
  while (std::getline(file, line)) {
    std::istringstream cells(line);
    std::string cell;
    for (std::size_t i = 0; std::getline(cells, cell, ','); ++i) {
      if (i == columns.size()) columns.emplace_back();
      if (!cell.empty()) columns[i].push_back(cell);
    }
  }
  return columns;
}

}  // namespace quorval::test
