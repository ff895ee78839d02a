#pragma once

#include <filesystem>
#include <string>

namespace quorval {

// What every results sheet quotes of the program.  There is no analyst, analyte or date here: the
// user types these into the sheet.
struct Context {
  std::string ProjectName = "Project 1";
  std::filesystem::path ProjectFile;
  std::string ProjectNote;
  std::filesystem::path AppFolder;
  std::string NDec = "4";  // the decimals of the results, as the field holds it
};

}  // namespace quorval
