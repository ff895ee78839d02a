#include "batch/batch_platform.h"

#include <algorithm>
#include <iostream>

#include "formats/file_error.h"

namespace quorval {
namespace {

std::string OnOneLine(std::string text) {
  std::ranges::replace(text, '\n', ' ');
  return text;
}

}  // namespace

Answer BatchPlatform::Show(const MessageBox& box) {
  std::cerr << "message: " << OnOneLine(box.text) << '\n';
  return Unattended::Show(box);
}

void BatchPlatform::ShowNotices(const Notices& notices) {
  for (const Notice& notice : notices) std::cerr << "note: " << OnOneLine(notice.text) << '\n';
  Unattended::ShowNotices(notices);
}

bool BatchPlatform::Print(std::span<const PrintJob> jobs) {
  if (pictures_ == nullptr) return false;
  for (const PrintJob& job : jobs) {
    printed_jobs_.push_back(job);
    printed_jobs_.back().grid = &printed_grids_.emplace_back(*job.grid);
  }
  return true;
}

bool BatchPlatform::WritePicture(const Plot& plot, const std::filesystem::path& path) {
  try {
    HandOutPicture(plot, path);
    return true;
  } catch (const FileError&) {
    return false;
  }
}

void BatchPlatform::HandOutPicture(const Plot& plot, const std::filesystem::path& path) const {
  Drawing().Write(plot, path);
}

void BatchPlatform::HandOutPages(const std::filesystem::path& path) const {
  Drawing().Print(printed_jobs_, path);
}

Pictures& BatchPlatform::Drawing() const {
  if (pictures_ == nullptr) throw FileError("nothing can be drawn");
  return *pictures_;
}

}  // namespace quorval
