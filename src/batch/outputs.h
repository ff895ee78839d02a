// What a run hands out.
#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "app/workbench.h"
#include "batch/batch_platform.h"
#include "formats/export_options.h"

namespace quorval {

struct Outputs {
  std::string json;   // a file, "-" for standard output; empty: none
  std::string plots;  // a folder; empty: none
  std::string plot_format = "png";
  std::string report;          // a PDF file; empty: none
  std::string save;            // a results file; empty: none
  std::string export_results;  // a sheet of another program; empty: none
  ExportOptions options;       // of that sheet
};

// --json, --save, --export, --safe-texts, --plots, --plot-format and --report.
void AddOutputs(CLI::App& command, Outputs& outputs);

// An option that takes the name of a file or a folder, which is not empty.
CLI::Option* AddFileOption(CLI::App& command, const std::string& option, std::string& file,
                           const std::string& help, const std::string& type = "FILE");

// "-", and its name as a device.
bool IsStandardOutput(const std::string& file);

// To standard output, to a stream that the program was given open, or as a file that replaces an
// older one.  Throws Unusable where it cannot be written.
void WriteText(const std::string& text, const std::string& file);

// Calls `write`.  Throws Unusable, which names the file and the reason, where that throws a
// FileError.
void WriteFile(const std::filesystem::path& path, const std::function<void()>& write);

// What draws and prints.  Throws Unusable in a program built without.
std::unique_ptr<Pictures> MakePictures();
// None where nothing is to be drawn.
std::unique_ptr<Pictures> PicturesFor(const Outputs& outputs);

// Writes the files and prints the sheet.  A plot window that is not shown, or holds nothing, gives
// no picture.  Throws Unusable where a file cannot be written.
void HandOut(const Outputs& outputs, Outcome outcome, OpenAnalysis& open, Workbench& workbench,
             BatchPlatform& platform);

}  // namespace quorval
