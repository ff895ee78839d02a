// The parts of a zip archive, which is what newer workbooks are.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "formats/gsf.h"

namespace quorval {

class ZipReader {
 public:
  // Throws a FileError for a file that is no archive.
  explicit ZipReader(const std::filesystem::path& path);

  bool Has(std::string_view part) const;
  // The bytes of a part, "folder/name"; none where there is no such part.  Throws a FileError of a
  // damaged one and of one that would unpack to more than 512 MiB.
  std::optional<std::string> Read(std::string_view part) const;

 private:
  gsf::Owner<GsfInput> Find(std::string_view part) const;

  gsf::Owner<GsfInput> file_;
  gsf::Owner<GsfInfile> archive_;
};

// Keeps the archive in memory until Close().
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
