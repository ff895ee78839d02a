// How every file of a user is written: beside the old one, onto the disk, then in its place.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string_view>

namespace quorval {

// A file that is written beside the one it will replace.  Until Commit() the old file stands as it
// was; a crash, a full disk or a failing one leaves it whole.  What an earlier crash left behind is
// cleared away.
class ReplacedFile {
 public:
  // Throws a FileError where the target is read-only, or no file but a folder, a pipe or a device,
  // and where its folder cannot be written.  A symbolic link stays one: what it points to is
  // replaced, or comes into being.
  explicit ReplacedFile(const std::filesystem::path& target);
  ~ReplacedFile();
  ReplacedFile(const ReplacedFile&) = delete;
  ReplacedFile& operator=(const ReplacedFile&) = delete;

  // The file to write: there, and empty.
  const std::filesystem::path& path() const { return path_; }

  // Adds to the file.  Throws a FileError.
  void Write(std::string_view bytes);

  // Puts what was written on the disk and in the target's place, with its owner and permissions.
  // Throws a FileError.
  void Commit();

 private:
  void Create(mode_t mode);

  std::filesystem::path target_;
  std::filesystem::path path_;
  std::optional<mode_t> permissions_;  // of the file that was there
  int descriptor_ = -1;                // holds a lock, by which others know that the file is in use
  bool committed_ = false;
};

// The bytes as the whole file.  Throws a FileError; the old file then stands as it was.
void ReplaceFile(const std::filesystem::path& target, std::string_view bytes);

}  // namespace quorval
