// The machine of a run without a display.
#pragma once

#include <list>
#include <vector>

#include "batch/pictures.h"
#include "platform/platform.h"

namespace quorval {

// Boxes go to standard error and are kept; questions are answered Yes.  There is nobody to choose a
// file, and nothing is kept between runs.
class BatchPlatform : public Platform {
 public:
  // Without pictures nothing can be drawn or printed.
  explicit BatchPlatform(Pictures* pictures) : pictures_(pictures) {}

  const std::vector<MessageBox>& boxes() const { return boxes_; }

  Answer Show(const MessageBox& box) override;
  void ShowWaitPointer(bool) override {}
  std::optional<std::filesystem::path> AskOpen(const FileQuestion&) override { return {}; }
  std::optional<std::filesystem::path> AskSave(const FileQuestion&) override { return {}; }
  // Keeps a copy of the pages for WritePages().
  bool Print(std::span<const PrintJob> jobs) override;
  bool WritePicture(const Plot& plot, const std::filesystem::path& path) override;
  std::optional<int> Setting(std::string_view) override { return {}; }
  void SetSetting(std::string_view, int) override {}
  bool OpenHelp(std::string_view, bool) override { return false; }

  // All that was printed, as one PDF; false where it cannot be written.
  bool WritePages(const std::filesystem::path& path) const;

 private:
  Pictures* pictures_;
  std::vector<MessageBox> boxes_;
  std::list<Grid> printed_grids_;  // a list: the jobs point into it
  std::vector<PrintJob> printed_jobs_;
};

}  // namespace quorval
