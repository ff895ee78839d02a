// The parts of a zip archive, which is what newer workbooks are.
#pragma once

#include <zip.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "formats/budget.h"

namespace quorval {

class ZipReader {
 public:
  // Throws a FileError for a file that is no archive.  The budget lives as long as the reader.
  ZipReader(const std::filesystem::path& path, Budget& budget);

  bool Has(std::string_view part) const;
  // The bytes of a part, "folder/name"; none where there is no such part.  Throws a FileError of a
  // part that is damaged or protected, and of one that does not fit the budget.
  std::optional<std::string> Read(std::string_view part) const;

 private:
  struct Close {
    void operator()(zip_t* archive) const { zip_discard(archive); }
    void operator()(zip_file_t* part) const { zip_fclose(part); }
  };
  std::optional<std::string> Packed(const zip_stat_t& about) const;

  Budget& budget_;
  std::unique_ptr<zip_t, Close> archive_;
};

}  // namespace quorval
