// The machine of a run without a display.
#pragma once

#include <list>
#include <vector>

#include "app/unattended.h"
#include "batch/pictures.h"

namespace quorval {

// Boxes and notices go to standard error.
class BatchPlatform : public Unattended {
 public:
  // Without pictures nothing can be drawn or printed.
  explicit BatchPlatform(Pictures* pictures) : pictures_(pictures) {}

  Answer Show(const MessageBox& box) override;
  void ShowNotices(const Notices& notices) override;
  // Keeps a copy of the pages for WritePages().
  bool Print(std::span<const PrintJob> jobs) override;
  bool WritePicture(const Plot& plot, const std::filesystem::path& path) override;

  // What a user asked for: a plot's picture, and all that was printed as one PDF.  Both throw a
  // FileError, of a platform without pictures too.
  void HandOutPicture(const Plot& plot, const std::filesystem::path& path) const;
  void HandOutPages(const std::filesystem::path& path) const;

 private:
  Pictures& Drawing() const;

  Pictures* pictures_;
  std::list<Grid> printed_grids_;  // a list: the jobs point into it
  std::vector<PrintJob> printed_jobs_;
};

}  // namespace quorval
