// Which file stands under a name, and in which state.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace quorval {

// Two equal stamps mean: the same file, and nobody wrote to it in between.
struct FileStamp {
  std::uint64_t device = 0, inode = 0;
  std::int64_t size = 0, seconds = 0, nanoseconds = 0;  // of the last change of its content

  bool operator==(const FileStamp&) const = default;
};

// Of the file that a path leads to, through links; none where there is no ordinary file.
std::optional<FileStamp> StampOf(const std::filesystem::path& path);

// A second name for a file that will be replaced: NAME~, or NAME~2 and so on where that is taken.
// What the file holds is never without a name on the disk.
class KeptCopy {
 public:
  // Throws a FileError where the file cannot be kept.  A link is kept as what it leads to.
  explicit KeptCopy(const std::filesystem::path& file);
  // Takes the copy back unless Keep() was called.
  ~KeptCopy();
  KeptCopy(const KeptCopy&) = delete;
  KeptCopy& operator=(const KeptCopy&) = delete;

  void Keep() { kept_ = true; }
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
  bool kept_ = false;
};

}  // namespace quorval
