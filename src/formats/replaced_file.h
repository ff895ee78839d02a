#pragma once

#include <filesystem>

namespace quorval {

// A file that is written beside the one it will replace.  Until Commit() the old file stands as it
// was; a crash or a full disk leaves it whole.  What an earlier crash left behind is cleared away.
class ReplacedFile {
 public:
  // Throws a FileError where the folder cannot be written.
  explicit ReplacedFile(const std::filesystem::path& target);
  ~ReplacedFile();
  ReplacedFile(const ReplacedFile&) = delete;
  ReplacedFile& operator=(const ReplacedFile&) = delete;

  // The file to write: there, and empty.
  const std::filesystem::path& path() const { return path_; }

  // Puts what was written on the disk and in the target's place.  Throws a FileError.
  void Commit();

 private:
  std::filesystem::path target_;
  std::filesystem::path path_;
  int descriptor_;  // holds a lock, by which others know that the file is in use
  bool committed_ = false;
};

}  // namespace quorval
