#pragma once

#include <filesystem>
#include <memory>
#include <span>

#include "platform/platform.h"

namespace quorval {

// What draws pictures of plots and prints pages without a display.  A build without Qt has none.
class Pictures {
 public:
  static bool Built();

  Pictures();
  ~Pictures();
  Pictures(const Pictures&) = delete;
  Pictures& operator=(const Pictures&) = delete;

  // For the bitmaps of printed plots; goes with this object.
  std::filesystem::path Folder() const;

  // Both throw a FileError where the file cannot be written.
  void Write(const Plot& plot, const std::filesystem::path& path);
  void Print(std::span<const PrintJob> jobs, const std::filesystem::path& path);

 private:
  struct Drawing;
  std::unique_ptr<Drawing> drawing_;
};

}  // namespace quorval
