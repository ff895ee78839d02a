// The streams of a compound file ([MS-CFB], also called OLE2), which is what older workbooks are.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorval {

class CompoundFile {
 public:
  // Throws a FileError for a file that is none, and of a damaged one; so does Stream().
  explicit CompoundFile(const std::filesystem::path& path);

  // The bytes of a stream that lies in no folder; none where there is no such stream.
  std::optional<std::string> Stream(std::string_view name) const;

 private:
  struct Entry;

  template <class Whole>
  Whole At(std::size_t place) const;
  std::size_t Sectors() const;
  std::string_view Sector(std::uint32_t number) const;
  std::string Chain(std::uint32_t first) const;
  std::string SmallChain(std::uint32_t first) const;
  void ReadTable();
  Entry EntryAt(std::uint32_t number) const;
  std::string BytesOf(const Entry& entry) const;

  std::string bytes_;
  std::size_t sector_size_ = 0;
  std::vector<std::uint32_t> next_;        // by sector: the one that follows it
  std::vector<std::uint32_t> next_small_;  // the same of the sectors of 64 bytes
  std::string directory_;
  std::string small_;  // what holds the streams that are shorter than 4096 bytes
};

}  // namespace quorval
