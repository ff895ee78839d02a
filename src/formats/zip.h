// Writing the parts of a zip archive, which is what newer workbooks are.
#pragma once

#include <filesystem>
#include <functional>
#include <string_view>

#include "formats/gsf.h"

namespace quorval {

class ZipWriter {
 public:
  // Hands out the part's bytes piece by piece.
  using Sink = std::function<void(std::string_view)>;

  explicit ZipWriter(const std::filesystem::path& path);

  void Add(std::string_view part, std::string_view bytes);
  void Add(std::string_view part, const std::function<void(const Sink&)>& write);
  // Puts the archive in the file's place.
  void Close();

 private:
  std::filesystem::path path_;
  gsf::Owner<GsfOutput> file_;
  gsf::Owner<GsfOutput> archive_;
};

}  // namespace quorval
