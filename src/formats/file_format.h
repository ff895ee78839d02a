// The files of other programs that Quorval reads and writes: one table.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/worksheet.h"
#include "formats/export_losses.h"
#include "formats/export_options.h"

namespace quorval {

// Its routines throw a FileError.
struct FileFormat {
  std::string_view extension;
  bool (*holds)(const std::filesystem::path&);  // whether a regular file's content is of it
  std::vector<std::string> (*sheet_names)(const std::filesystem::path&);
  Worksheet (*read)(const std::filesystem::path&);
  ExportLimits limits;
  // Null where it is read alone.
  void (*write)(const std::filesystem::path&, const Grid&, const ExportOptions&) = nullptr;
};

std::span<const FileFormat> FileFormats();

}  // namespace quorval
